// The read-only questions to the host: the exact expressions, in order, and
// how their answers are converted.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "host/cartoma.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class CatalogueTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    ASSERT_EQ(g_Cartoma.Connect(m_host.Handle(), 0), 1);
  }
  ScriptedHost m_host;
};

TEST_F(CatalogueTest, TableListsAskInTheHostsOrderAndCountAllTables) {
  // Two tables: Holes (mappable points) and Image (a raster).
  m_host.Answers().Answer({{"NumTables()", "2"}, {"TableInfo(1, 1)", "Holes"}, {"TableInfo(2, 1)", "Image"},
                           {"TableInfo(1, 5)", "T"}, {"TableInfo(2, 5)", "T"}, {"TableInfo(1, 3)", "1"},
                           {"TableInfo(2, 3)", "4"}});
  std::vector<std::string> names;
  EXPECT_EQ(g_Cartoma.GetTableNames(names), 2);
  EXPECT_THAT(names, ElementsAre("Holes", "Image"));
  EXPECT_THAT(m_host.Statements(), ElementsAre("Eval: NumTables()", "Eval: TableInfo(1, 1)", "Eval: TableInfo(2, 1)"));

  m_host.ClearTranscript();
  std::vector<std::string> vector;
  EXPECT_EQ(g_Cartoma.GetVectorTableNames(vector), 2) << "the count is of all tables, not of those kept";
  EXPECT_THAT(vector, ElementsAre("Holes"));
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Eval: NumTables()", "Eval: TableInfo(1, 5)", "Eval: TableInfo(1, 3)",
                          "Eval: TableInfo(1, 1)", "Eval: TableInfo(2, 5)", "Eval: TableInfo(2, 3)"));

  EXPECT_EQ(g_Cartoma.ListTableNames(nullptr), 2);
  m_host.Answers().Answer("TableInfo(2, 5)", "F");
  std::vector<std::string> mappable;
  g_Cartoma.GetMappableTableNames(mappable);
  EXPECT_THAT(mappable, ElementsAre("Holes"));

  // Finding a table by its file compares paths ignoring case.
  m_host.Answers().Answer({{"TableInfo(Holes, 19)", "/data/holes.tab"}, {"TableInfo(Image, 19)", "/data/Image.TAB"}});
  EXPECT_EQ(g_Cartoma.FindTableByPath("/DATA/IMAGE.tab"), "Image");
  EXPECT_EQ(g_Cartoma.FindTableByPath("/data/none.tab"), "");

  m_host.ClearTranscript();
  m_host.Answers().Answer("NumTables()", "0");
  EXPECT_EQ(g_Cartoma.GetTableNames(names = {}), 0);
  EXPECT_THAT(names, IsEmpty());
  EXPECT_THAT(m_host.Statements(), ElementsAre("Eval: NumTables()")) << "no open table: nothing more is asked";
  m_host.Answers().Answer("NumTables()", "");
  EXPECT_EQ(g_Cartoma.ListTableNames(&names), 0) << "an empty answer reads as 0";
}

TEST_F(CatalogueTest, ColumnsAreListedByPseudoNameWithAnOptionalTypeFilter) {
  m_host.Answers().Answer("TableInfo(Holes, 4)", "3");
  for (int i = 1; i <= 3; ++i) {
    m_host.Answers().Answer("ColumnInfo(Holes, COL" + std::to_string(i) + ", 1)", "C" + std::to_string(i));
    m_host.Answers().Answer("ColumnInfo(Holes, COL" + std::to_string(i) + ", 3)", i == 2 ? "7" : "1");
  }
  std::vector<std::string> all, typed;
  EXPECT_EQ(g_Cartoma.GetColumnNames("Holes", all, 0), 3);
  EXPECT_THAT(all, ElementsAre("C1", "C2", "C3"));
  for (const std::string& line : m_host.Statements()) EXPECT_EQ(line.find(", 3)"), std::string::npos) << line;
  EXPECT_EQ(g_Cartoma.GetColumnNames("Holes", typed, 7), 3);
  EXPECT_THAT(typed, ElementsAre("C2"));
  EXPECT_EQ(g_Cartoma.ColumnExists("Holes", "C3"), 1);
  EXPECT_EQ(g_Cartoma.ColumnExists("Holes", "c3"), 0) << "column names compare exactly";
}

std::string Number(long value) { return std::to_string(value); }

// One expression each, with its codes and quotes, and the answer converted.
TEST_F(CatalogueTest, EachQuestionAsksItsOneExpression) {
  const struct {
    const char* expression;
    const char* answer;
    std::function<std::string()> ask;
    const char* expected;
  } cases[] = {
      {"TableInfo(Holes, 8)", "120", [] { return Number(g_Cartoma.GetTableRowCount("Holes")); }, "120"},
      {"TableInfo(Holes, 29)", "CoordSys Earth Projection 1, 104",
       [] { return g_Cartoma.GetTableCoordSysClause("Holes"); }, "CoordSys Earth Projection 1, 104"},
      {"TableInfo(\"Holes\", 7)", "T", [] { return Number(g_Cartoma.IsTempTable("Holes")); }, "1"},
      {"TableInfo(\"Image\", 7)", "t", [] { return Number(g_Cartoma.IsTempTable("Image")); }, "0"},
      {"TableInfo(0, 1)", "Query1", [] { return g_Cartoma.GetSelectedTableName(); }, "Query1"},
      {"PathToTableName$(\"/data/h.tab\")", "h", [] { return g_Cartoma.PathToTableName("/data/h.tab"); }, "h"},
      {"GetMetadata$(Holes, \"\\Terravik\\HoleID\")", "HOLE",
       [] { return g_Cartoma.GetMetadata("Holes", "\\Terravik\\HoleID"); }, "HOLE"},
      {"Holes.Depth", "12.5", [] { return g_Cartoma.GetFieldValue("Holes", "Depth"); }, "12.5"},
      {"FrontWindow()", "31", [] { return Number(g_Cartoma.GetFrontWindow()); }, "31"},
      {"WindowInfo(0, 3)", "1", [] { return Number(g_Cartoma.GetWindowType(0)); }, "1"},
      {"WindowInfo(99, 3)", "", [] { return Number(g_Cartoma.GetWindowType(99)); }, "0"},
      {"MapperInfo(31, 9)", "2", [] { return Number(g_Cartoma.GetLayerCount(31)); }, "2"},
      {"LayerInfo(0, 2, 1)", "Holes", [] { return g_Cartoma.GetLayerName(2, 0); }, "Holes"},
      {"LayerInfo(31, 1, 24)", "0", [] { return Number(g_Cartoma.GetLayerType(1, 31)); }, "0"},
      {"SelectionInfo(1)", "Holes", [] { return g_Cartoma.GetSelectionName(); }, "Holes"},
      {"SelectionInfo(3)", "17", [] { return Number(g_Cartoma.GetSelectionCount()); }, "17"},
  };
  for (const auto& c : cases) {
    m_host.ClearTranscript();
    m_host.Answers().Answer(c.expression, c.answer);
    EXPECT_EQ(c.ask(), c.expected) << c.expression;
    EXPECT_THAT(m_host.Statements(), ElementsAre(std::string("Eval: ") + c.expression));
  }
  EXPECT_EQ(g_Cartoma.GetTableType("Missing"), 0) << "a failed question reads as 0";
  EXPECT_FALSE(g_Cartoma.m_strLastError.empty());

  // The last projection comes from the product script; the host itself is asked nothing.
  m_host.ClearTranscript();
  ScriptedScript& script = m_host.AddScript("terravik.cbx");
  script.Answers().Answer({{"PROJECTION SELECTION", "CoordSys Earth Projection 8, 104"},
                           {"LAST PROJECTION NICENAME", "UTM Zone 55"}});
  std::string nice;
  EXPECT_EQ(g_Cartoma.GetLastProjection(&nice), "CoordSys Earth Projection 8, 104");
  EXPECT_EQ(nice, "UTM Zone 55");
  EXPECT_THAT(m_host.Statements(), IsEmpty());
}

TEST_F(CatalogueTest, ObjectColourReadsTheFieldOfItsKind) {
  auto object = [&](int type, const std::string& style, const std::string& brush) {
    m_host.Answers().Answer({{"ObjectInfo(o, 1)", Number(type)}, {"ObjectInfo(o, 2)", style}, {"ObjectInfo(o, 3)", brush}});
    return g_Cartoma.GetObjectColor("o");
  };
  EXPECT_EQ(object(4, "Pen (1,2,16711680)", ""), 16711680);
  EXPECT_EQ(object(5, "Symbol (35,255,12)", ""), 255);
  EXPECT_EQ(object(7, "Pen (1,2,0)", "Brush (2,65280,16777215)"), 65280);
  EXPECT_EQ(object(1, "Pen (1,2,255)", "Brush (2,65280,0)"), 65280);
  EXPECT_EQ(object(1, "Pen (1,2,255)", ""), 255) << "no brush: the colour of the main style";
  EXPECT_EQ(object(1, "", ""), 0);
  EXPECT_EQ(object(3, "Pen (1)", ""), 0) << "too few fields";
  EXPECT_EQ(object(12, "Pen (1,2,255)", "Brush (2,3,4)"), 0);
}

TEST_F(CatalogueTest, EachKindGivesItsNodesAppendedToTheArrays) {
  m_host.Answers().Answer({{"ObjectGeography(o, 1)", "1"}, {"ObjectGeography(o, 2)", "2"},
                           {"ObjectGeography(o, 3)", "3"}, {"ObjectGeography(o, 4)", "4"}});
  const struct {
    const char* type;
    int result;
    std::vector<double> xs, ys;
  } cases[] = {
      {"10", 1, {1, 1, 3, 3, 1}, {2, 4, 4, 2, 2}},  // a rectangle: its closed ring of corners
      {"6", 1, {1, 1, 3, 3, 1}, {2, 4, 4, 2, 2}},   // a text: the same
      {"3", 1, {1, 3}, {2, 4}},                     // a line: its ends
      {"5", 1, {1}, {2}},                           // a point
      {"11", 0, {}, {}},                            // a kind without nodes
  };
  std::vector<double> xs, ys;
  for (const auto& c : cases) {
    xs = ys = {-1};
    m_host.Answers().Answer("ObjectInfo(o, 1)", c.type);
    EXPECT_EQ(g_Cartoma.GetObjectNodes("o", xs, ys), c.result) << c.type;
    EXPECT_EQ(std::vector<double>(xs.begin() + 1, xs.end()), c.xs) << c.type << ": after what the array held";
    EXPECT_EQ(std::vector<double>(ys.begin() + 1, ys.end()), c.ys) << c.type;
  }
  m_host.Answers().Fail("ObjectInfo(o, 1)", "Variable o not defined");
  EXPECT_EQ(g_Cartoma.GetObjectNodes("o", xs, ys = {}), 0);
  EXPECT_THAT(ys, IsEmpty());
}

TEST_F(CatalogueTest, APolylineOrRegionIsWalkedPartByPartByTheHostsErrors) {
  // Two parts: nodes 1 to 3 in part 1, nodes 4 and 5 in part 2. The host
  // refuses a node its part doesn't hold; node 6 no part holds, and is skipped.
  m_host.Answers().Answer({{"ObjectInfo(o, 1)", "4"}, {"ObjectInfo(o, 20)", "5"}});
  m_host.Answers().OnEval([](const std::string& e) -> std::optional<std::string> {
    int part = 0;
    long node = 0;
    char axis = 0;
    if (std::sscanf(e.c_str(), "ObjectNode%c(o, %d, %ld)", &axis, &part, &node) != 3) return std::nullopt;
    if ((part == 1 && node <= 3) || (part == 2 && node >= 4 && node <= 5))
      return std::to_string(axis == 'X' ? node * 10 : node * 100);
    return std::nullopt;
  });
  std::vector<double> xs, ys;
  EXPECT_EQ(g_Cartoma.GetObjectNodes("o", xs, ys), 1);
  EXPECT_THAT(xs, ElementsAre(10, 20, 30, 40, 50));
  EXPECT_THAT(ys, ElementsAre(100, 200, 300, 400, 500));
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Eval: ObjectInfo(o, 1)", "Eval: ObjectInfo(o, 20)", "Eval: ObjectNodeX(o, 1, 1)",
                          "Eval: ObjectNodeY(o, 1, 1)", "Eval: ObjectNodeX(o, 1, 2)", "Eval: ObjectNodeY(o, 1, 2)",
                          "Eval: ObjectNodeX(o, 1, 3)", "Eval: ObjectNodeY(o, 1, 3)", "Eval: ObjectNodeX(o, 1, 4)",
                          "Eval: ObjectNodeX(o, 2, 4)", "Eval: ObjectNodeY(o, 2, 4)", "Eval: ObjectNodeX(o, 2, 5)",
                          "Eval: ObjectNodeY(o, 2, 5)"));
  // A region: one pair stored is success.
  m_host.Answers().Answer({{"ObjectInfo(o, 1)", "7"}, {"ObjectInfo(o, 20)", "6"}});
  EXPECT_EQ(g_Cartoma.GetObjectNodes("o", xs = {}, ys = {}), 1);
  EXPECT_THAT(xs, ElementsAre(10, 20, 30, 40, 50));
}

}  // namespace
