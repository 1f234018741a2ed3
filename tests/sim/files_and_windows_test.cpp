// Table files on disk (the .tab with its GeoPackage, raster registration
// tables, other vector data), and the session around them: windows and
// layers, workspaces, scripts, menu commands.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "sim/sim_fixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

class Files : public SimTest {
 protected:
  std::string Path(const std::string& name) const { return (fs::path(Folder()) / name).string(); }
  void Open(const std::string& path, const std::string& alias) { Do("Open Table \"" + path + "\" As " + alias); }
};

TEST_F(Files, EveryObjectKindSurvivesACommitAndAReopen) {
  Open(Sample("objects"), "Objects");
  Do("Commit Table Objects As \"" + Path("copy.tab") + "\"");
  Open(Path("copy.tab"), "Copy");
  ASSERT_EQ(Eval("TableInfo(Copy, 8)"), "12");
  Do("Dim a As Object");
  Do("Dim b As Object");
  Do("Set CoordSys Table Objects");
  for (int row = 1; row <= 12; ++row) {
    Do("Fetch Rec " + std::to_string(row) + " From Objects");
    Do("Fetch Rec " + std::to_string(row) + " From Copy");
    EXPECT_EQ(Eval("Copy.Name"), Eval("Objects.Name"));
    Do("a = Objects.Obj");
    Do("b = Copy.Obj");
    if (Eval("Objects.Name") == "Memo") {  // the row without an object stays without one
      EXPECT_THAT(DoError("Print ObjectInfo(b, 1)"), HasSubstr("holds no object"));
      continue;
    }
    for (const char* info : {"1", "2", "3", "20", "21", "22"})
      EXPECT_EQ(Eval(std::string("ObjectInfo(b, ") + info + ")"), Eval(std::string("ObjectInfo(a, ") + info + ")"))
          << "row " << row << " code " << info;
    for (const char* code : {"1", "2", "3", "4", "5", "6"})
      EXPECT_EQ(Eval(std::string("ObjectGeography(b, ") + code + ")"),
                Eval(std::string("ObjectGeography(a, ") + code + ")"))
          << "row " << row << " code " << code;
  }
}

TEST_F(Files, AMetadataBlockAndColumnTypesAreWrittenAsTheTabDefinition) {
  Do("Create Table Log (HoleID Char (8), Depth Decimal (7, 2), Count SmallInt, Ok Logical)");
  Do("Insert Into Log Values(\"A1\", 3.14159, 7, \"T\")");
  Do("Metadata Table Log SetKey \"\\Terravik\\xsects\\dhdata\\DH\" To \"1\"");
  Do("Commit Table Log As \"" + Path("log.tab") + "\"");
  const std::string text = ReadFile(Path("log.tab"));
  EXPECT_THAT(text, HasSubstr("    Depth Decimal (7, 2) ;\r\n"));
  EXPECT_THAT(text, HasSubstr("begin_metadata\r\n\"\\Terravik\\xsects\\dhdata\\DH\" = \"1\"\r\n"));
  EXPECT_THAT(text, ::testing::Not(HasSubstr("CoordSys"))) << "a table without objects has no coordinate system";

  Open(Path("log.tab"), "Again");
  Do("Fetch First From Again");
  ExpectAnswers({{"Again.Depth & \"/\" & Again.Count & \"/\" & Again.Ok", "3.14/7/T"},
                 {"ColumnInfo(Again, Count, 3)", "4"}, {"TableInfo(Again, 5)", "F"}});
}

TEST_F(Files, OpeningFailsWithReasonsAndLeavesNoTable) {
  EXPECT_EQ(DoError("Open Table \"" + Path("none.tab") + "\""), "The file " + Path("none.tab") + " does not exist");
  std::ofstream(Path("bad.tab")) << "!table\nDefinition Table\n  Fields 1\n    A Blob ;\n";
  EXPECT_THAT(DoError("Open Table \"" + Path("bad.tab") + "\""), HasSubstr("is damaged at 'A Blob ;'"));
  std::ofstream(Path("lonely.tab")) << "!table\nDefinition Table\n  Fields 1\n    A Integer ;\n";
  EXPECT_THAT(DoError("Open Table \"" + Path("lonely.tab") + "\""), HasSubstr("rows of table lonely are missing"));
  EXPECT_EQ(Eval("NumTables()"), "0");
  Open(Sample("collars"), "Collars");
  EXPECT_THAT(DoError("Open Table \"" + Sample("assays") + "\" As Collars"), HasSubstr("already open"));
  Do("Open Table \"" + Sample("collars") + "\" As Collars");
  EXPECT_EQ(Eval("NumTables()"), "1") << "the same file again keeps the open table";
}

TEST_F(Files, RasterTablesAndOtherVectorDataOpenAsTables) {
  Open(Sample("dem"), "Dem");
  ExpectAnswers({{"TableInfo(Dem, 3)", "4"}, {"TableInfo(Dem, 30)", "Map Grid of Australia (GDA94) Zone 55"}});
  EXPECT_THAT(DoError("Commit Table Dem As \"" + Path("d.tab") + "\""), HasSubstr("raster image"));
  std::ofstream(Path("lost.tab")) << "!table\nDefinition Table\n  File \"LOST.JPG\"\n  Type \"RASTER\"\n";
  EXPECT_EQ(DoError("Open Table \"" + Path("lost.tab") + "\""), "The image LOST.JPG of raster table lost does not exist");

  std::ofstream(Path("wells.geojson"))
      << R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"name":"W1","depth":12.5},)"
      << R"("geometry":{"type":"Point","coordinates":[144.3,-36.7]}}]})";
  Do("Open Table \"" + Path("wells.geojson") + "\"");
  Do("Fetch Rec 1 From wells");
  ExpectAnswers(
      {{"TableInfo(0, 1)", "wells"}, {"TableInfo(wells, 29)", "Earth Projection 1, 104"}, {"wells.depth", "12.5"}});
  EXPECT_EQ(DoError("Update wells Set depth = 1"), "Table wells is read-only");
  Do("Commit Table wells As \"" + Path("wells.tab") +
     "\" CoordSys Earth Projection 8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000");
  Open(Path("wells.tab"), "Wells2");
  EXPECT_EQ(Eval("TableInfo(Wells2, 30)"), "Universal Transverse Mercator (WGS 84) Zone 55 South");
}

TEST_F(Files, DropDeletesTheFilesAndCloseKeepsThem) {
  const std::string collars = Sample("collars");
  Open(collars, "Collars");
  Do("Commit Table Collars As \"" + Path("copy.tab") + "\"");
  Open(Path("copy.tab"), "Copy");
  Do("Close Table \"Collars\"");
  EXPECT_TRUE(fs::exists(collars));
  Do("Drop Table Copy");
  EXPECT_FALSE(fs::exists(Path("copy.tab")));
  EXPECT_FALSE(fs::exists(Path("copy.gpkg")));
  EXPECT_EQ(Eval("NumTables()"), "0");
}

TEST_F(Files, WindowsLayersAndAWorkspaceThatReadsBack) {
  Open(Sample("collars"), "Collars");
  Open(Sample("dem"), "Dem");
  Open(Sample("assays"), "Assays");
  EXPECT_EQ(Eval("FrontWindow()"), "0");
  EXPECT_THAT(DoError("Map From Assays"), HasSubstr("not mappable"));
  Do("Map From Collars, Dem");
  const std::string mapper = Eval("FrontWindow()");
  ExpectAnswers({{"WindowInfo(" + mapper + ", 3)", "1"}, {"MapperInfo(0, 9)", "2"}, {"LayerInfo(0, 2, 1)", "Dem"},
                 {"LayerInfo(0, 2, 24)", "4"}, {"LayerInfo(" + mapper + ", 1, 24)", "0"}});
  Do("Set Map Window FrontWindow() Layer Collars Editable On");
  Do("Set Window FrontWindow() Printer Name \"Plotter A0\" Orientation Landscape Copies 2");
  Do("Browse * From Assays");
  EXPECT_EQ(Eval("WindowInfo(FrontWindow(), 3)"), "2");
  EXPECT_THAT(DoError("Print MapperInfo(FrontWindow(), 9)"), HasSubstr("is not a map window"));

  Do("Save Workspace As \"" + Path("session.wor") + "\"");
  Do("Close All");
  EXPECT_EQ(Eval("NumWindows()"), "0") << "closing the tables closes their windows";
  std::ifstream workspace(Path("session.wor"));
  std::vector<std::string> lines;
  std::string statement;
  for (std::string line; std::getline(workspace, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
    if (line[0] == ' ') {  // an indented line goes on with the statement before it
      statement += line;
      continue;
    }
    if (!statement.empty()) Do(statement);  // the workspace runs statement by statement
    statement = line[0] == '!' ? "" : line;
  }
  if (!statement.empty()) Do(statement);
  EXPECT_EQ(lines.size(), 13u);
  EXPECT_EQ(lines[9], "  Name \"Plotter A0\"");
  EXPECT_EQ(Eval("NumTables()"), "3");
  ASSERT_EQ(Eval("NumWindows()"), "2");
  const std::string reopened = std::to_string(m_host.Windowing().All().front().id);
  EXPECT_EQ(Eval("LayerInfo(" + reopened + ", 1, 6)"), "T") << "the editable layer is editable again";
  EXPECT_EQ(Eval("LayerInfo(" + reopened + ", 2, 6)"), "F");
  EXPECT_EQ(m_host.Windowing().All().front().printer.size(), 3u) << "the printer settings came back";
}

TEST_F(Files, ScriptsRunAndMenuCommandsAnswerFromTheirQueues) {
  std::ofstream(Path("tools.cbx")) << "compiled";
  Do("Run Application \"" + Path("tools.cbx") + "\"");
  ASSERT_NE(m_host.RunningScripts().Find("TOOLS.CBX"), nullptr);
  EXPECT_THAT(DoError("Run Application \"" + Path("none.cbx") + "\""), HasSubstr("does not exist"));
  EXPECT_EQ(DoError("Run Menu Command 999"), "Menu command 999 is not known");
  m_host.QueuePen("Pen (4,2,255)");
  Do("Run Menu Command 503");
  EXPECT_EQ(Eval("CurrentPen()"), "Pen (4,2,255)");
  Do("Run Menu Command 304");
  EXPECT_EQ(Eval("CurrentSymbol()"), "Symbol (35,0,12)") << "nothing queued: the box was cancelled";
  EXPECT_EQ(DoError("Run Menu Command 102"), "The Open Table dialog box was cancelled");
}

}  // namespace
