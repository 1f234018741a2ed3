// The host session at its wire, against the scripted host: the exact
// questions and statements it sends, in order, how the answers are
// converted, and which statement decides the result.
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
  m_host.Emulator().AddScript("terravik.cbx");
  m_host.Emulator().QueueProjection("CoordSys Earth Projection 8, 104", "UTM Zone 55");
  std::string nice;
  EXPECT_EQ(g_Cartoma.GetLastProjection(&nice), "CoordSys Earth Projection 8, 104");
  EXPECT_EQ(nice, "UTM Zone 55");
  EXPECT_THAT(m_host.Statements(), IsEmpty());
}

// A hollow fill becomes solid so that the colour shows.
TEST_F(CatalogueTest, ObjectColourIsReadFromAndRewrittenInTheStyleOfItsKind) {
  const struct {
    int type;
    const char *style, *brush;
    int colour;
    const char* rewritten;  // behind "Alter Object o Info ", or nothing sent
  } cases[] = {
      {4, "Pen (1,2,16711680)", "", 16711680, "2, MakePen(1,2,255)"},
      {5, "Symbol (35,65280,12)", "", 65280, "2, MakeSymbol(35,255,12)"},
      {5, "Symbol (65,16711680,12,\"Arial\",0,45)", "", 16711680, "2, MakeFontSymbol(65,255,12,\"Arial\",0,45)"},
      {5, "Symbol (35)", "", 0, nullptr},
      {7, "Pen (1,2,0)", "Brush (5,65280,16777215)", 65280, "3, MakeBrush(5,255,255)"},
      {8, "", "Brush (1,255,16777215)", 255, "3, MakeBrush(2,255,255)"},
      {1, "Pen (1,2,255)", "Brush (2,65280,0)", 65280, nullptr},
      {1, "Pen (1,2,255)", "", 255, nullptr},  // no brush: the colour of the main style
      {1, "", "", 0, nullptr},
      {3, "Pen (1)", "", 0, nullptr},  // too few fields
      {12, "Pen (1,2,255)", "Brush (2,3,4)", 0, nullptr},
  };
  for (const auto& c : cases) {
    m_host.Answers().Answer({{"ObjectInfo(o, 1)", Number(c.type)}, {"ObjectInfo(o, 2)", c.style},
                             {"ObjectInfo(o, 3)", c.brush}});
    EXPECT_EQ(g_Cartoma.GetObjectColor("o"), c.colour) << c.type << c.style << c.brush;
    EXPECT_EQ(g_Cartoma.SetObjectColor("o", 255) ? m_host.Statements().back() : "none",
              c.rewritten ? std::string("Do: Alter Object o Info ") + c.rewritten : "none")
        << c.type << c.style << c.brush;
  }
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

using StatementsTest = CatalogueTest;

TEST_F(StatementsTest, SlowStatementsAreBracketedAlsoWhenTheyFail) {
  m_host.Answers().Fail("Alter Table Holes (Add Grade Float)", "Column Grade exists");
  EXPECT_FALSE(g_Cartoma.AddColumn("Holes", "Grade", "Float"));
  EXPECT_EQ(g_Cartoma.m_strLastError, "Column Grade exists");
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Set ProgressBars Off", "Do: Commit Table Holes", "Do: Set ProgressBars On",
                          "Do: Set ProgressBars Off", "Do: Alter Table Holes (Add Grade Float)",
                          "Do: Set ProgressBars On"));

  // The bracket statements themselves don't decide.
  m_host.ClearTranscript();
  m_host.Answers().Fail("Set ProgressBars On", "Unknown keyword");
  EXPECT_TRUE(g_Cartoma.PackTable("Holes"));
  EXPECT_THAT(m_host.Statements(), ElementsAre("Do: Set ProgressBars Off", "Do: Pack Table Holes Graphic Data",
                                               "Do: Set ProgressBars On"));
}

TEST_F(StatementsTest, OpenAndCommitBuildTheirOptionalPartsAndRowsCountFromOneInTheHost) {
  g_Cartoma.OpenTable("/data/holes.tab", "Holes", 1, 1);
  g_Cartoma.OpenTable("/data/x.tab", nullptr, 0, 0);
  g_Cartoma.OpenTable(nullptr, "ignored", 1, 1);
  g_Cartoma.CommitTableAs("Holes", "/out/h.tab", nullptr, 0);
  g_Cartoma.CommitTableAs("Holes", "/out/h.tab", "Earth Projection 1, 104", 1);
  g_Cartoma.CreateTable("_CollarSubset", "HoleID Char(20)", nullptr, nullptr);
  g_Cartoma.UpdateColumn("Holes", "Grade", "0", nullptr);
  g_Cartoma.UpdateRow("Holes", "Grade", "1.5", 0);
  g_Cartoma.FetchRow("Holes", 0);
  g_Cartoma.FetchRec("Holes", 7);
  g_Cartoma.SetUndo("Holes", 1);
  g_Cartoma.SetFastEdit("Holes", 1);
  g_Cartoma.InsertRow("Holes", "HoleID, Depth", "\"DH1\", 10");
  g_Cartoma.SelectInto("Select * From Holes", "Q");
  g_Cartoma.DropTable("Q");
  g_Cartoma.CloseTable("Q");
  g_Cartoma.RunApplication("/opt/app.cbx");
  g_Cartoma.SaveWorkspace("/tmp/w.wor");
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Open Table \"/data/holes.tab\" As Holes Hide View Automatic",
                          "Do: Open Table \"/data/x.tab\"", "Do: Run Menu Command 102",
                          "Do: Set ProgressBars Off", "Do: Commit Table Holes As \"/out/h.tab\"",
                          "Do: Set ProgressBars On", "Do: Set ProgressBars Off",
                          "Do: Commit Table Holes As \"/out/h.tab\" CoordSys Earth Projection 1, 104 Interactive",
                          "Do: Set ProgressBars On", "Do: Create Table _CollarSubset ( HoleID Char(20) )",
                          "Do: Update Holes Set Grade = 0", "Do: Update Holes Set Grade = 1.5 Where RowID = 1",
                          "Do: Fetch Rec 1 From Holes", "Do: Fetch Rec 7 From Holes",
                          "Do: Set Table Holes FastEdit Off", "Do: Set Table Holes FastEdit On",
                          "Do: Insert Into Holes (HoleID, Depth) Values(\"DH1\", 10)",
                          "Do: Select * From Holes INTO Q NoSelect", "Do: Drop Table Q", "Do: Close Table \"Q\"",
                          "Do: Run Application \"/opt/app.cbx\"", "Do: Save Workspace As \"/tmp/w.wor\""));
}

TEST_F(StatementsTest, TheLastStatementDecidesForObjectVariables) {
  m_host.Answers().Fail("Dim p As Object", "Variable p already defined");
  EXPECT_TRUE(g_Cartoma.CreatePointVariable("p", 1.5, -2.25));
  m_host.Answers().Fail("Create Point Into Variable q (0.000000, 0.000000)", "No coordinate system");
  EXPECT_FALSE(g_Cartoma.CreatePointVariable("q", 0, 0));

  m_host.Answers().Fail("Set CoordSys Table Holes", "no map");
  EXPECT_TRUE(g_Cartoma.ObjectToVariable("o", "Holes"));
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Dim p As Object", "Do: Create Point Into Variable p (1.500000, -2.250000)",
                          "Do: Dim q As Object", "Do: Create Point Into Variable q (0.000000, 0.000000)",
                          "Do: Set CoordSys Table Holes", "Do: Dim o As Object", "Do: o = Holes.Obj"));
}

TEST_F(StatementsTest, TransformPointSetsEachSystemAndReadsThePointBack) {
  m_host.Answers().Answer({{"ObjectInfo(_TempObj, 1)", "5"}, {"ObjectGeography(_TempObj, 1)", "151.2"},
                           {"ObjectGeography(_TempObj, 2)", "-33.85"}});
  double x = 0, y = 0;
  EXPECT_EQ(g_Cartoma.TransformPoint("Earth Projection 1, 104", 334000, 6252000,
                                     "CoordSys Earth Projection 1, 0", x, y), 1);
  EXPECT_DOUBLE_EQ(x, 151.2);
  EXPECT_DOUBLE_EQ(y, -33.85);
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Set CoordSys Earth Projection 1, 104", "Do: Dim _TempObj As Object",
                          "Do: Create Point Into Variable _TempObj (334000.000000, 6252000.000000)",
                          "Do: Set COORDSYS EARTH PROJECTION 1, 0", "Eval: ObjectInfo(_TempObj, 1)",
                          "Eval: ObjectGeography(_TempObj, 1)", "Eval: ObjectGeography(_TempObj, 2)"));
}

TEST_F(StatementsTest, PickSymbolPutsTheCurrentSymbolBack) {
  m_host.Answers().AnswerInTurn("CurrentSymbol()", {"Symbol (35,0,12)", "Symbol (40,255,18)"});
  EXPECT_EQ(g_Cartoma.PickSymbol("Symbol (34,0,10)"), "Symbol (40,255,18)");
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Eval: CurrentSymbol()", "Do: Set Style Symbol (34,0,10)", "Do: Run Menu Command 304",
                          "Do: Run Menu Command 503", "Eval: CurrentSymbol()", "Do: Set Style Symbol (35,0,12)"));
}

TEST_F(StatementsTest, CloseTablesByFileClosesEveryTableOfThatFile) {
  m_host.Answers().Answer("NumTables()", "3");
  const char* tables[] = {"A", "B", "C"};
  const char* paths[] = {"/data/a.tab", "/data/B.TAB", "/data/b.tab"};
  for (int i = 0; i < 3; ++i) {
    m_host.Answers().Answer("TableInfo(" + std::to_string(i + 1) + ", 1)", tables[i]);
    m_host.Answers().Answer(std::string("TableInfo(") + tables[i] + ", 19)", paths[i]);
  }
  EXPECT_TRUE(g_Cartoma.CloseTablesByFile("/data/b.tab", 0));
  const auto lines = m_host.Statements();
  for (const auto& [table, closes] : {std::pair{"A", 0}, {"B", 1}, {"C", 1}})
    EXPECT_EQ(std::count(lines.begin(), lines.end(), std::string("Do: Close Table \"") + table + "\""), closes);
  EXPECT_FALSE(g_Cartoma.CloseTablesByFile("/data/none.tab", 0));
}

// What the metadata copy writes is tested on the emulator (tests/e2e).
TEST_F(StatementsTest, MakeTableSubsetSelectsCommitsAndCopiesTheMetadata) {
  m_host.Answers().Answer("TableInfo(Assays, 19)", "/data/assays.tab");
  m_host.Answers().Fail("Close Table \"_TableSubset\"", "Table _TableSubset is not open");
  EXPECT_TRUE(g_Cartoma.MakeTableSubset("_CollarSubset", "Assays", "HOLE", "/out/a.tab", "FROM_M"));
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Close Table \"_TableSubset\"",
                          "Do: SELECT * FROM Assays WHERE HOLE IN (SELECT COL1 FROM _CollarSubset) ORDER BY HOLE, "
                          "FROM_M INTO _TableSubset NoSelect",
                          "Do: Set ProgressBars Off", "Do: Commit Table _TableSubset As \"/out/a.tab\"",
                          "Do: Set ProgressBars On", "Eval: TableInfo(Assays, 19)",
                          "Do: Close Table \"_TableSubset\""));

  m_host.ClearTranscript();
  m_host.Answers().Fail("SELECT * FROM Assays WHERE HOLE IN (SELECT COL1 FROM _CollarSubset) ORDER BY HOLE INTO "
                        "_TableSubset NoSelect",
                        "Column HOLE not found");
  EXPECT_FALSE(g_Cartoma.MakeTableSubset("_CollarSubset", "Assays", "HOLE", "/out/a.tab", nullptr));
  EXPECT_EQ(m_host.Statements().size(), 2u) << "a failed selection ends the subset";
}

}  // namespace
