// The statement language's grammar: every form the library sends parses,
// forms no test sends parse too, and what is not in the grammar is a
// syntax error that says where.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sim/host/errors.h"
#include "sim/host/expression_parser.h"
#include "sim/host/statements.h"

using sim::ParseStatement;
using ::testing::HasSubstr;

namespace {

TEST(Grammar, EveryStatementFormTheLibrarySendsParses) {
  const char* statements[] = {
      "Open Table \"/data/holes.tab\" As Holes Hide View Automatic",
      "Open Table \"/data/x.tab\"",
      "Close Table \"_TableSubset\"",
      "Commit Table Holes",
      "Commit Table Holes As \"/out/h.tab\" CoordSys Earth Projection 1, 104 Interactive",
      "Commit Table Holes As \"/out/h.tab\" CoordSys Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000",
      "Commit Table Holes As \"/out/h.tab\" CoordSys NonEarth Units \"m\" Bounds (0, 0) (1000, 1000)",
      "Drop Table _CollarSubset",
      "Pack Table Holes Graphic Data",
      "Create Table _CollarSubset ( ID Char(50) )",
      "Alter Table Holes (Add Grade Float)",
      "SELECT * FROM Assays WHERE COL1 IN (SELECT COL1 FROM _CollarSubset) ORDER BY COL1, COL2 INTO _TableSubset "
      "NoSelect",
      "Insert Into _CollarSubset (ID) Values(\"DH1\")",
      "Update Holes Set Grade = 1.5 Where RowID = 1",
      "Update Holes Set Obj = _colorObj Where RowID = 3",
      "Fetch Rec 7 From Holes",
      "Set Table Holes FastEdit Off",
      "Dim _TempObj As Object",
      "Create Point Into Variable _TempObj (1.500000, -2.250000)",
      "Set CoordSys Table Holes",
      "Set CoordSys Earth Projection 1, 104",
      "Set COORDSYS EARTH PROJECTION 1, 104",
      "_colorObj = Holes.Obj",
      "Alter Object _colorObj Info 2, MakePen(1,2,1193046)",
      "Alter Object _colorObj Info 2, MakeFontSymbol(65,255,14,\"Arial\",0,45)",
      "Alter Object _colorObj Info 3, MakeBrush(2,255,255)",
      "Set Style Symbol (35,0,12)",
      "Run Menu Command 102",
      "Run Application \"/opt/app.cbx\"",
      "Save Workspace As \"/tmp/w.wor\"",
      "Metadata Table Holes SetKey \"\\Terravik\\xsects\\type\" To \"Section\"",
      "Set ProgressBars Off",
  };
  for (const char* statement : statements) EXPECT_NO_THROW(ParseStatement(statement)) << statement;
}

TEST(Grammar, StatementsBeyondTheLibrarysTextsParseToo) {
  const char* statements[] = {
      "select HoleID, Depth * 2 As Twice from Holes, Collars where Holes.HoleID = Collars.HoleID and not Depth < 3 "
      "order by Twice desc",
      "Insert Into Copy (A, B) Select COL1, COL2 From Holes Where RowID In (1, 2, 3)",
      "Delete From Holes Where Grade <> 0 Or UCase$(HoleID) = \"X\"",
      "Create Region Into Variable r 2 4 (0,0) (10,0) (10,10) (0,10) 3 (2,2) (4,2) (3,4) Pen MakePen(2,2,255)",
      "Create Pline Into Variable l Multiple 2 2 (0,0) (1,1) 3 (2,2) (3,3) (4,2)",
      "Create Text Into Variable t \"Label\" (0,0) (10,2) Font MakeFont(\"Arial\",1,255,12)",
      "Create Arc Into Variable a (0,0) (4,4) 0 90",
      "Fetch Next From Holes",
      "Map From Holes, Collars",
      "Set Map Window FrontWindow() Layer 1 Editable On",
      "Alter Table Holes (Add A Char (10), B Decimal (8, 2) Drop Grade Rename Depth DepthTo)",
      "Metadata Table Holes DropKey \"\\Terravik\\x\"",
      "Close All",
      "Set Window FrontWindow() Printer Default Name \"Plotter\" Orientation Portrait Copies 1 Papersize 9",
  };
  for (const char* statement : statements) EXPECT_NO_THROW(ParseStatement(statement)) << statement;
}

TEST(Grammar, TheParsedStatementKeepsItsParts) {
  const auto commit = std::get<sim::CommitTableStmt>(ParseStatement(
      "Commit Table Holes As \"/out/h.tab\" CoordSys Earth Projection 8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000 "
      "Interactive"));
  EXPECT_EQ(commit.table, "Holes");
  ASSERT_TRUE(commit.coordsys);
  EXPECT_EQ(commit.coordsys->Name(), "Universal Transverse Mercator (WGS 84) Zone 55 South");
  EXPECT_TRUE(commit.interactive);

  const auto select = std::get<sim::SelectStmt>(
      ParseStatement("SELECT * FROM A WHERE COL2 IN (SELECT COL1 FROM K) ORDER BY COL2, COL3 DESC INTO S NoSelect"));
  EXPECT_EQ(select.query.into, "S");
  EXPECT_TRUE(select.query.noSelect);
  ASSERT_EQ(select.query.order.size(), 2u);
  EXPECT_TRUE(select.query.order[1].descending);
  EXPECT_EQ(select.query.where->kind, sim::ExprKind::InSelect);

  const auto region = std::get<sim::CreateObjectStmt>(
      ParseStatement("Create Region Into Variable r 2 3 (0,0) (1,0) (1,1) 3 (5,5) (6,5) (6,6)"));
  EXPECT_EQ(region.partSizes, (std::vector<int>{3, 3}));
  EXPECT_EQ(region.numbers.size(), 12u);
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

TEST(Grammar, UnsupportedCoordinateSystemsAreNamed) {
  EXPECT_THROW(ParseStatement("Set CoordSys Earth Projection 3, 104"), sim::HostError);
  EXPECT_THROW(ParseStatement("Set CoordSys Earth Projection 1, 999"), sim::HostError);
  EXPECT_THROW(ParseStatement("Set CoordSys NonEarth Units \"furlong\""), sim::HostError);
  EXPECT_THROW(ParseStatement("Set CoordSys Earth Projection 8, 104, \"m\", 147, 0"), sim::HostError);
}

}  // namespace
