// The statement language: tokens, coordinate clauses (what the host writes
// back, the names it shows, what PROJ is given) and style texts; forms that
// no run of the host meets parse to their kind of statement over the right
// table or variable, and what is not in the grammar is a syntax error that
// says where.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sim/host/coordsys.h"
#include "sim/host/errors.h"
#include "sim/host/expression_parser.h"
#include "sim/host/statements.h"
#include "sim/host/styles.h"
#include "sim/host/tokenizer.h"

using sim::CoordSys;
using sim::ParseCoordSysText;
using sim::ParseStatement;
using ::testing::HasSubstr;

namespace {

TEST(CoordSysClauses, ClausesReadBackAsTheHostWritesThemWithTheirNamesAndProjDefinitions) {
  const struct {
    const char* text;
    const char* clause;  // as the host writes it back; null: as given
    const char* name;
    const char* proj;
  } cases[] = {
      {"Earth Projection 1, 104", nullptr, "Longitude / Latitude (WGS 84)", "EPSG:4326"},
      {"CoordSys EARTH PROJECTION 1, 116", "Earth Projection 1, 116", "Longitude / Latitude (GDA94)", "EPSG:4283"},
      {"Earth Projection 8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000", nullptr,
       "Universal Transverse Mercator (WGS 84) Zone 55 South", "EPSG:32755"},
      {"Earth Projection 8, 104, \"m\", -3, 0, 0.9996, 500000, 0", nullptr,
       "Universal Transverse Mercator (WGS 84) Zone 30 North", "EPSG:32630"},
      {"Earth Projection 8, 116, \"M\", 153, 0, 0.9996, 500000, 10000000",
       "Earth Projection 8, 116, \"m\", 153, 0, 0.9996, 500000, 10000000", "Map Grid of Australia (GDA94) Zone 56",
       "EPSG:28356"},
      {"NonEarth Units \"ft\" Bounds (-10, -10.5) (1000, 2000)", nullptr, "Non-Earth (ft)", ""},
  };
  for (const auto& c : cases) {
    const CoordSys cs = ParseCoordSysText(c.text);
    EXPECT_EQ(cs.Clause(), c.clause ? c.clause : c.text) << c.text;
    EXPECT_EQ(cs.Name(), c.name) << c.text;
    EXPECT_EQ(cs.ProjDefinition(), c.proj) << c.text;
  }
  // A transverse Mercator that is no UTM zone goes to PROJ by its parameters.
  const CoordSys local = ParseCoordSysText("Earth Projection 8, 116, \"km\", 145.5, -10, 1, 300, 200");
  EXPECT_EQ(local.Name(), "Transverse Mercator (GDA94)");
  EXPECT_THAT(local.ProjDefinition(), ::testing::HasSubstr("+lon_0=145.5 +k=1 +x_0=300000 +y_0=200000"));
  EXPECT_THAT(local.ProjDefinition(), ::testing::HasSubstr("+units=km"));
  EXPECT_TRUE(local.SameSystem(
      ParseCoordSysText("Earth Projection 8, 116, \"km\", 145.5, -10, 1, 300, 200 Bounds (0,0) (1,1)")));
  for (const char* unsupported : {"Earth Projection 3, 104", "Earth Projection 1, 999", "NonEarth Units \"furlong\"",
                                  "Earth Projection 8, 104, \"m\", 147, 0"})
    EXPECT_THROW(ParseCoordSysText(unsupported), sim::HostError) << unsupported;
}

TEST(Styles, TextsReadBackAndColoursSitWhereTheLibraryLooks) {
  const struct {
    const char* text;
    const char* written;
    int colour;
  } cases[] = {
      {"Pen (1,2,255)", "Pen (1,2,255)", 255},
      {"MakePen(2, 5, 16711680)", "Pen (2,5,16711680)", 16711680},
      {"Brush (2, 65280, 0)", "Brush (2,65280,0)", 65280},
      {"Symbol (35,255,12)", "Symbol (35,255,12)", 255},
      {"Symbol (65, 1193046, 14, \"Arial \"\"Bold\"\"\", 1, 45.5)",
       "Symbol (65,1193046,14,\"Arial \"\"Bold\"\"\",1,45.5)", 1193046},
      {"MakeFont(\"Arial\", 1, 255, 12)", "Font (\"Arial\",1,255,12)", 255},
  };
  for (const auto& c : cases) {
    const sim::Style style = sim::ParseStyleText(c.text);
    EXPECT_EQ(style.Text(), c.written) << c.text;
    EXPECT_EQ(style.Colour(), c.colour) << c.text;
    EXPECT_EQ(sim::ParseStyleText(style.Text()), style) << "the written text reads back the same";
  }
  EXPECT_THROW(sim::ParseStyleText("Pen (1,2)"), sim::HostError);
  EXPECT_THROW(sim::ParseStyleText("Symbol (\"Arial\",1,2)"), sim::HostError);
  EXPECT_THROW(sim::ParseStyleText("Shade (1,2,3)"), sim::HostError);
  EXPECT_THROW(sim::ParseStyleText("Pen (1,2,3"), sim::HostError);
}

TEST(Tokens, NumbersTextsAndNames) {
  const auto tokens = sim::Tokenize("PathToTableName$(\"a \"\"b\"\"\") <= -1.5e3 .25 x_1");
  ASSERT_EQ(tokens.size(), 10u);
  EXPECT_EQ(tokens[0].text, "PathToTableName$");
  EXPECT_EQ(tokens[2].text, "a \"b\"");
  EXPECT_EQ(tokens[4].text, "<=");
  EXPECT_EQ(tokens[6].number, 1500);
  EXPECT_EQ(tokens[7].number, 0.25);
  EXPECT_EQ(tokens[8].text, "x_1");
  EXPECT_THROW(sim::Tokenize("a # b"), sim::SyntaxError);
}

// The position of a kind of statement in the statement variant.
template <typename Kind, std::size_t I = 0>
constexpr std::size_t KindOf() {
  if constexpr (std::is_same_v<std::variant_alternative_t<I, sim::Statement>, Kind>)
    return I;
  else
    return KindOf<Kind, I + 1>();
}

// What a statement acts on: the table it names, its target, its variable.
std::string Subject(const sim::Statement& statement) {
  return std::visit(
      [](const auto& s) -> std::string {
        if constexpr (requires { s.query.into; })
          return s.query.into;
        else if constexpr (requires { std::string(s.table); })
          return s.table;
        else if constexpr (requires { std::string(s.tables.front()); })
          return s.tables.front();
        else if constexpr (requires { std::string(s.variable); })
          return s.variable;
        else if constexpr (requires { std::string(s.alias); })
          return s.alias;
        else
          return "";
      },
      statement);
}

// "<kind> <subject>" of what the text parses to, or the syntax error.
std::string Parsed(const char* text) {
  try {
    const sim::Statement statement = ParseStatement(text);
    return std::to_string(statement.index()) + " " + Subject(statement);
  } catch (const std::exception& e) {
    return e.what();
  }
}

struct Form {
  const char* text;
  std::size_t kind;
  const char* subject;
};

TEST(Grammar, StatementFormsParseToTheirKindAndSubject) {
  using namespace sim;
  const Form forms[] = {
      // What the library sends that no run of the host here meets; the rest
      // of its forms run, with their effects checked, in the tests of the
      // interpreter, of the files and end to end.
      {"Open Table \"/data/holes.tab\" As Holes Hide View Automatic", KindOf<OpenTableStmt>(), "Holes"},
      {"Commit Table Holes As \"/out/h.tab\" CoordSys Earth Projection 1, 104 Interactive", KindOf<CommitTableStmt>(),
       "Holes"},
      {"Set Table Holes FastEdit Off", KindOf<SetFastEditStmt>(), "Holes"},
      {"Set ProgressBars Off", KindOf<SetProgressBarsStmt>(), ""},
      // Beyond the library's texts.
      {"select HoleID, Depth * 2 As Twice from Holes, Collars where Holes.HoleID = Collars.HoleID and not Depth < 3 "
       "order by Twice desc",
       KindOf<SelectStmt>(), ""},
      {"Insert Into Copy (A, B) Select COL1, COL2 From Holes Where RowID In (1, 2, 3)", KindOf<InsertStmt>(), "Copy"},
      {"Delete From Holes Where Grade <> 0 Or UCase$(HoleID) = \"X\"", KindOf<DeleteStmt>(), "Holes"},
      {"Create Pline Into Variable l Multiple 2 2 (0,0) (1,1) 3 (2,2) (3,3) (4,2)", KindOf<CreateObjectStmt>(), "l"},
      {"Fetch Next From Holes", KindOf<FetchStmt>(), "Holes"},
      {"Map From Holes, Collars", KindOf<MapFromStmt>(), "Holes"},
      {"Set Map Window FrontWindow() Layer 1 Editable On", KindOf<SetMapLayerStmt>(), ""},
      {"Alter Table Holes (Add A Char (10), B Decimal (8, 2) Drop Grade Rename Depth DepthTo)",
       KindOf<AlterTableStmt>(), "Holes"},
      {"Metadata Table Holes DropKey \"\\Terravik\\x\"", KindOf<MetadataStmt>(), "Holes"},
      {"Set Window FrontWindow() Printer Default Name \"Plotter\" Orientation Portrait Copies 1 Papersize 9",
       KindOf<SetWindowPrinterStmt>(), ""},
  };
  for (const Form& form : forms)
    EXPECT_EQ(Parsed(form.text), std::to_string(form.kind) + " " + form.subject) << form.text;
}

TEST(Grammar, PrecedenceFollowsTheUsualRules) {
  const sim::ExprPtr e = sim::ParseExpressionText("a = 1 Or b = 2 And Not c + 2 * 3 > 4");
  ASSERT_EQ(e->text, "OR");
  EXPECT_EQ(e->args[1]->text, "AND");
  EXPECT_EQ(e->args[1]->args[1]->text, "NOT");
  const sim::Expr& compare = *e->args[1]->args[1]->args[0];
  EXPECT_EQ(compare.text, ">");
  EXPECT_EQ(compare.args[0]->text, "+");
  EXPECT_EQ(compare.args[0]->args[1]->text, "*");
}

TEST(Grammar, WhatIsNotInTheGrammarSaysWhere) {
  const std::pair<const char*, const char*> cases[] = {
      {"Open Tabel \"x\"", "Syntax error near 'Tabel \"x\"': expected Table"},
      {"Select * Holes", "Syntax error near 'Holes': expected From"},
      {"Fetch Rec From Holes", "Syntax error near 'From Holes': expected a value"},
      {"Create Table T (A Char)", "a Char column needs a width"},
      {"Create Table T (A Blob (3))", "unknown column type Blob"},
      {"Set Table Holes FastEdit Maybe", "expected On or Off"},
      {"Insert Into T (A) Values(\"open", "the text has no closing quote"},
      {"Dim x As Object extra", "expected the end of the statement"},
      {"Frobnicate Holes", "unknown statement Frobnicate"},
      {"Commit Table H As \"x.tab\" CoordSys Earth 1, 104", "expected Projection"},
      {"", "the statement is empty"},
  };
  for (const auto& [statement, message] : cases) {
    try {
      ParseStatement(statement);
      ADD_FAILURE() << "parsed: " << statement;
    } catch (const sim::SyntaxError& e) {
      EXPECT_THAT(e.what(), HasSubstr(message)) << statement;
    }
  }
}

}  // namespace
