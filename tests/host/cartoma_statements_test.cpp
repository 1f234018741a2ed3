// The statements that change host state: their texts, their order, and
// which statement decides the result.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/cartoma.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;

namespace {

class StatementsTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    ASSERT_EQ(g_Cartoma.Connect(m_host.Handle(), 0), 1);
  }
  ScriptedHost m_host;
};

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

TEST_F(StatementsTest, OpenAndCommitBuildTheirOptionalParts) {
  g_Cartoma.OpenTable("/data/holes.tab", "Holes", 1, 1);
  g_Cartoma.OpenTable("/data/x.tab", nullptr, 0, 0);
  g_Cartoma.OpenTable(nullptr, "ignored", 1, 1);
  g_Cartoma.CommitTableAs("Holes", "/out/h.tab", nullptr, 0);
  g_Cartoma.CommitTableAs("Holes", "/out/h.tab", "Earth Projection 1, 104", 1);
  g_Cartoma.CreateTable("_CollarSubset", "HoleID Char(20)", nullptr, nullptr);
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Open Table \"/data/holes.tab\" As Holes Hide View Automatic",
                          "Do: Open Table \"/data/x.tab\"", "Do: Run Menu Command 102",
                          "Do: Set ProgressBars Off", "Do: Commit Table Holes As \"/out/h.tab\"",
                          "Do: Set ProgressBars On", "Do: Set ProgressBars Off",
                          "Do: Commit Table Holes As \"/out/h.tab\" CoordSys Earth Projection 1, 104 Interactive",
                          "Do: Set ProgressBars On", "Do: Create Table _CollarSubset ( HoleID Char(20) )"));
}

TEST_F(StatementsTest, RowsCountFromOneInTheHost) {
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
              ElementsAre("Do: Update Holes Set Grade = 0", "Do: Update Holes Set Grade = 1.5 Where RowID = 1",
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

TEST_F(StatementsTest, RecolouringRewritesTheStyleOfTheObjectsKind) {
  auto recolour = [&](int type, const std::string& style, const std::string& brush) {
    m_host.ClearTranscript();
    m_host.Answers().Answer({{"ObjectInfo(_colorObj, 1)", std::to_string(type)}, {"ObjectInfo(_colorObj, 2)", style},
                             {"ObjectInfo(_colorObj, 3)", brush}});
    return g_Cartoma.SetObjectColor("_colorObj", 255) ? m_host.Statements().back() : std::string("none");
  };
  EXPECT_EQ(recolour(4, "Pen (2,2,0)", ""), "Do: Alter Object _colorObj Info 2, MakePen(2,2,255)");
  EXPECT_EQ(recolour(5, "Symbol (35,0,12)", ""), "Do: Alter Object _colorObj Info 2, MakeSymbol(35,255,12)");
  EXPECT_EQ(recolour(5, "Symbol (65,0,12,\"Arial\",0,45)", ""),
            "Do: Alter Object _colorObj Info 2, MakeFontSymbol(65,255,12,\"Arial\",0,45)");
  EXPECT_EQ(recolour(5, "Symbol (35)", ""), "none");
  EXPECT_EQ(recolour(7, "", "Brush (5,0,16777215)"), "Do: Alter Object _colorObj Info 3, MakeBrush(5,255,255)");
  EXPECT_EQ(recolour(8, "", "Brush (1,0,16777215)"), "Do: Alter Object _colorObj Info 3, MakeBrush(2,255,255)")
      << "a hollow fill becomes solid so that the colour shows";
  EXPECT_EQ(recolour(1, "Pen (1,2,0)", "Brush (2,0,0)"), "none");
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

TEST_F(StatementsTest, MakeTableSubsetSelectsCommitsAndCopiesTheMetadata) {
  ScopedFolder folder;
  const std::string source = folder.Write("assays.tab", "!table\nbegin_metadata\n\"\\Terravik\\HoleID\" = \"HOLE\"\n");
  const std::string out = folder.Write("assays_subset.tab", "!table\nDefinition Table\n");
  m_host.Answers().Answer("TableInfo(Assays, 19)", source);
  m_host.Answers().Fail("Close Table \"_TableSubset\"", "Table _TableSubset is not open");
  EXPECT_TRUE(g_Cartoma.MakeTableSubset("_CollarSubset", "Assays", "HOLE", out, "FROM_M"));
  EXPECT_THAT(m_host.Statements(),
              ElementsAre("Do: Close Table \"_TableSubset\"",
                          "Do: SELECT * FROM Assays WHERE HOLE IN (SELECT COL1 FROM _CollarSubset) ORDER BY HOLE, "
                          "FROM_M INTO _TableSubset NoSelect",
                          "Do: Set ProgressBars Off", "Do: Commit Table _TableSubset As \"" + out + "\"",
                          "Do: Set ProgressBars On", "Eval: TableInfo(Assays, 19)",
                          "Do: Close Table \"_TableSubset\""));
  EXPECT_EQ(ReadFile(out), "!table\r\nDefinition Table\r\nbegin_metadata\r\n\"\\Terravik\\HoleID\" = \"HOLE\"\r\n");

  m_host.ClearTranscript();
  m_host.Answers().Fail("SELECT * FROM Assays WHERE HOLE IN (SELECT COL1 FROM _CollarSubset) ORDER BY HOLE INTO "
                        "_TableSubset NoSelect",
                        "Column HOLE not found");
  EXPECT_FALSE(g_Cartoma.MakeTableSubset("_CollarSubset", "Assays", "HOLE", out, nullptr));
  EXPECT_EQ(m_host.Statements().size(), 2u) << "a failed selection ends the subset";
}

}  // namespace
