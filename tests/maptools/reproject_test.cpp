// "Reproject multiple tables" over the host emulator, driven on the
// headless backend as a user drives it: the host's statements in their
// order, and the tables it writes read back with GDAL and compared with
// what PROJ makes of the sample points.
#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <proj.h>

#include <cstdio>
#include <filesystem>
#include <sstream>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "maptools/reproject_table.h"
#include "support/host/emulated_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using fk::ui::HeadlessDialog;

namespace {

namespace fs = std::filesystem;

// Control ids as the system's description gives them.
enum { OPEN_TABLE = 1007, NEW_PROJECTION = 1036, OVERWRITE = 1037, TABLES = 1038, SELECT_ALL = 1039,
       DIRECTORY = 1043, SUFFIX = 1044, WITH_SUFFIX = 1045, IN_DIRECTORY = 1047, BROWSE = 1048 };

constexpr const char* kUtm55 = "8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000";
const std::string kUtm55Clause = std::string("CoordSys Earth Projection ") + kUtm55;
const std::string kOff = "Set ProgressBars Off", kOn = "Set ProgressBars On";

using Points = std::vector<std::pair<double, double>>;

// The point features of a GeoPackage, as GDAL reads them.
Points PointsOf(const std::string& gpkg) {
  GDALAllRegister();
  std::unique_ptr<GDALDataset> dataset(GDALDataset::Open(gpkg.c_str(), GDAL_OF_VECTOR));
  if (!dataset) throw std::runtime_error("GDAL can't open " + gpkg);
  Points points;
  for (auto& feature : *dataset->GetLayer(0))
    if (const OGRGeometry* g = feature->GetGeometryRef(); g && wkbFlatten(g->getGeometryType()) == wkbPoint)
      points.emplace_back(g->toPoint()->getX(), g->toPoint()->getY());
  return points;
}

// The points read match what PROJ makes of the source points, longitude
// first, within `tolerance`.
void ExpectProjected(const char* from, const char* to, const Points& source, const Points& read,
                     double tolerance = 1e-3) {
  ASSERT_EQ(read.size(), source.size());
  PJ* raw = proj_create_crs_to_crs(nullptr, from, to, nullptr);
  PJ* pj = proj_normalize_for_visualization(nullptr, raw);
  for (std::size_t i = 0; i < source.size(); ++i) {
    const PJ_COORD c = proj_trans(pj, PJ_FWD, proj_coord(source[i].first, source[i].second, 0, 0));
    EXPECT_NEAR(read[i].first, c.xy.x, tolerance) << "point " << i;
    EXPECT_NEAR(read[i].second, c.xy.y, tolerance) << "point " << i;
  }
  proj_destroy(pj);
  proj_destroy(raw);
}

class ReprojectOnEmulator : public EmulatorSessionTest {
 protected:
  void SetUp() override {
    EmulatorSessionTest::SetUp();
    m_emulator.QueueProjection(kUtm55, "UTM Zone 55 (WGS 84)");
  }
  std::vector<std::string> Statements() const {
    std::vector<std::string> texts;
    for (const sim::CallRecord& call : m_emulator.Calls())
      if (call.member == "Do") texts.push_back(call.text);
    return texts;
  }
  std::vector<std::string> Messages() {
    std::vector<std::string> texts;
    for (const fk::ui::ShownPrompt& prompt : m_ui.Prompts().Shown()) texts.push_back(prompt.text);
    return texts;
  }
  // The statement that commits a table under the target's clause, which
  // stands between "Set ProgressBars Off" and "Set ProgressBars On".
  static std::string Commit(const std::string& table, const std::string& path) {
    return "Commit Table " + table + " As \"" + path + "\" " + kUtm55Clause;
  }
  int Run() { return MultiReProject(m_registration.Handle()); }
};

TEST_F(ReprojectOnEmulator, OverwritingTwoTablesGoesThroughATemporaryCopyThatIsGoneAfterwards) {
  const std::string collars = Open("collars", "collars"), objects = Open("objects", "objects");
  const Points collarPoints = PointsOf(Out("collars.gpkg")), objectPoints = PointsOf(Out("objects.gpkg"));
  m_ui.OnDialog(1005, [&](HeadlessDialog& box) {
    box.Press(NEW_PROJECTION);
    box.Press(SELECT_ALL);
    EXPECT_EQ(box.View().ListCtrlText(TABLES, 1, 1), "UTM Zone 55 (WGS 84)");
    box.SetCheck(OVERWRITE, 1);
    m_emulator.ClearCalls();
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(Run(), 1) << ::testing::PrintToString(Messages());
  EXPECT_THAT(Messages(), ElementsAre());

  std::vector<std::string> expected;
  for (const auto& [table, path] : {std::pair{"collars", collars}, std::pair{"objects", objects}}) {
    const std::string copy = path.substr(0, path.size() - 4) + "_temp__.TAB";
    expected.insert(expected.end(),
                    {"Drop Table _TempTableCopy", kOff, Commit(table, copy), kOn,
                     "Open Table \"" + copy + "\" As _TempTableCopy", "Drop Table " + std::string(table), kOff,
                     Commit("_TempTableCopy", path), kOn, "Open Table \"" + path + "\"", "Drop Table _TempTableCopy"});
  }
  EXPECT_THAT(Statements(), ElementsAreArray(expected));
  ExpectProjected("EPSG:28355", "EPSG:32755", collarPoints, PointsOf(Out("collars.gpkg")));
  ExpectProjected("EPSG:4326", "EPSG:32755", objectPoints, PointsOf(Out("objects.gpkg")));
  for (const auto& entry : fs::directory_iterator(m_folder.Path()))
    EXPECT_EQ(entry.path().filename().string().find("_temp__"), std::string::npos) << entry.path();
}

// An earth table and a non-earth one: the second is told and skipped, and
// the box still ends with OK.
TEST_F(ReprojectOnEmulator, NewTablesGoIntoTheFolderWithTheSuffixAndANonEarthTableIsSkipped) {
  Open("collars", "collars");
  m_emulator.GetHost().QueueOpenFile(CopySample(m_folder, "objects"));
  const std::string plan = Out("plan.tab");
  for (const std::string& s : std::vector<std::string>{
           "Set CoordSys NonEarth Units \"m\"", "Create Table Plan (Name Char (10))",
           "Insert Into Plan (Name) Values(\"a\")", "Dim p As Object",
           "Create Point Into Variable p (1500.25, 250.5)", "Update Plan Set Obj = p",
           "Commit Table Plan As \"" + plan + "\"", "Close Table Plan", "Open Table \"" + plan + "\""})
    m_emulator.GetHost().Do(s);
  const std::string out = Out("utm");
  fs::create_directory(out);
  m_ui.OnDialog(1005, [&](HeadlessDialog& box) {
    box.Press(NEW_PROJECTION);
    box.CheckRow(TABLES, 0, true);
    box.Press(OPEN_TABLE);  // the host's own box opens the objects
    ASSERT_EQ(box.View().ListCtrlText(TABLES, 2, 0), "objects");
    EXPECT_EQ(box.View().ListCtrlText(TABLES, 0, 1), "UTM Zone 55 (WGS 84)") << "still ticked";
    box.CheckRow(TABLES, 1, true);
    box.CheckRow(TABLES, 2, true);
    box.SetCheck(IN_DIRECTORY, 1);
    EXPECT_EQ(box.View().Text(DIRECTORY), m_folder.Path() + "/") << "the first ticked table's folder";
    box.Type(DIRECTORY, out);
    box.Type(SUFFIX, "_utm");
    m_emulator.ClearCalls();
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(Run(), 1);
  EXPECT_THAT(Messages(), ElementsAre("Table 'plan' cannot be reprojected. Conversion between earth and non-earth "
                                      "projections is not supported."));
  EXPECT_THAT(Statements(), ElementsAre(kOff, Commit("collars", out + "/collars_utm.tab"), kOn, kOff,
                                        Commit("objects", out + "/objects_utm.tab"), kOn))
      << "written, not opened";
  ExpectProjected("EPSG:28355", "EPSG:32755", PointsOf(Out("collars.gpkg")), PointsOf(out + "/collars_utm.gpkg"));
  ExpectProjected("EPSG:4326", "EPSG:32755", PointsOf(Out("objects.gpkg")), PointsOf(out + "/objects_utm.gpkg"));
}

// The control points of a raster table file: world points, then pixels.
std::pair<Points, Points> ControlPoints(const std::string& tabPath) {
  std::pair<Points, Points> points;
  std::istringstream lines(ReadFile(tabPath));
  double x, y, px, py;
  for (std::string line; std::getline(lines, line);)
    if (std::sscanf(line.c_str(), " (%lf,%lf) (%lf,%lf) Label", &x, &y, &px, &py) == 4) {
      points.first.emplace_back(x, y);
      points.second.emplace_back(px, py);
    }
  return points;
}

TEST_F(ReprojectOnEmulator, ARasterTableIsWrittenAnewFromItsControlPointsEachConvertedByTheHost) {
  const std::string dem = Open("dem", "dem");
  const auto [world, pixels] = ControlPoints(dem);
  ReprojectTarget inPlace;
  inPlace.projection = "1, 104";
  inPlace.overwrite = true;
  ASSERT_TRUE(ReprojectTable("dem", inPlace, m_ui.Prompts())) << g_Cartoma.m_strLastError;
  const auto [converted, pixelsAfter] = ControlPoints(dem);
  EXPECT_EQ(pixelsAfter, pixels);
  ExpectProjected("EPSG:28355", "EPSG:4326", world, converted, 1e-6);  // six decimals of a degree
  EXPECT_NE(ReadFile(dem).find("  CoordSys Earth Projection 1, 104\r\n"), std::string::npos);
  EXPECT_EQ(g_Cartoma.GetTableType("dem"), 4) << "open again";
}

TEST_F(ReprojectOnEmulator, OkChecksTheChoicesInTheirOrderAndTheOptionsGreyAsTold) {
  const std::string collars = Open("collars", "collars");
  fs::copy_file(Out("collars.tab"), Out("collars_temp__.TAB"));
  fs::copy_file(Out("collars.gpkg"), Out("collars_temp__.gpkg"));
  ASSERT_TRUE(g_Cartoma.OpenTable(Out("collars_temp__.TAB").c_str(), "Blocker", 1, 0));
  const std::string before = ReadFile(collars) + ReadFile(Out("collars.gpkg"));
  struct Case {
    std::function<void(HeadlessDialog&)> action;
    std::string message;  // at OK
  };
  const std::vector<Case> cases = {
      {[](HeadlessDialog&) {}, "No tables have been selected to change the projection for"},
      {[](HeadlessDialog& box) { box.CheckRow(TABLES, 0, true); }, "No new projection has been selected yet"},
      {[](HeadlessDialog& box) { box.Press(NEW_PROJECTION), box.SetCheck(WITH_SUFFIX, 0); },
       "You must select an alternative directory or apply a filename suffix to create new files. Otherwise use "
       "the 'overwrite' option."},
      {[](HeadlessDialog& box) { box.SetCheck(IN_DIRECTORY, 1), box.Type(DIRECTORY, ""); },
       "Creation directory is empty."},
      {[](HeadlessDialog& box) { box.SetCheck(IN_DIRECTORY, 0), box.SetCheck(WITH_SUFFIX, 1), box.Type(SUFFIX, ""); },
       "File postfix is empty."},
      // Overwriting needs neither; its first commit meets the blocked file.
      {[](HeadlessDialog& box) { box.SetCheck(IN_DIRECTORY, 1), box.SetCheck(OVERWRITE, 1); },
       "Error. Table '" + collars + "' could not be overwritten.\n[The file " + Out("collars_temp__.TAB") +
           " is in use by table Blocker; close that table first]"},
  };
  m_ui.OnDialog(1005, [&](HeadlessDialog& box) {
    EXPECT_FALSE(box.View().IsEnabled(DIRECTORY));
    EXPECT_TRUE(box.View().IsEnabled(SUFFIX));
    for (const Case& c : cases) {
      m_ui.Prompts().Clear();
      c.action(box);
      box.Press(fk::ui::IDOK);
      EXPECT_THAT(Messages(), ElementsAre(c.message));
    }
    EXPECT_FALSE(box.View().IsEnabled(IN_DIRECTORY) || box.View().IsEnabled(WITH_SUFFIX));
    EXPECT_TRUE(box.View().IsEnabled(DIRECTORY) && box.View().IsEnabled(BROWSE)) << "left as they were";
    EXPECT_FALSE(box.Ended());
    box.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(ReadFile(collars) + ReadFile(Out("collars.gpkg")), before);
  EXPECT_EQ(g_Cartoma.GetTablePath("collars"), collars) << "still open";
}

}  // namespace
