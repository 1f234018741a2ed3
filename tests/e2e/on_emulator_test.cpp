// The library with the host emulator: loaded as a host loads it, with the
// emulator registered through the host C API and the exports called by
// name as a script calls them; and the host session's table and object
// operations on real sample tables, with what they write read back by GDAL.
#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <unistd.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "support/host/emulated_host.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class LibraryOnEmulator : public ::testing::Test {
 protected:
  void SetUp() override {
    m_emulator.SetGlobal("terravik.cbx", "TerviDir", "/opt/terravik");
    m_emulator.AddScript("utilities.cbx");
    ASSERT_NE(m_handle, 0);
    ASSERT_EQ(FORMKIT_EXPORT(m_library, InitFormkitInstance)("Terravik"), 1);
  }
  int Do(const std::string& statement) { return FORMKIT_EXPORT(m_library, CartomaDo)(m_handle, statement.c_str()); }
  std::string Eval(const std::string& expression) {
    return FORMKIT_EXPORT(m_library, CartomaEval)(m_handle, expression.c_str());
  }
  std::string LastError() { return FORMKIT_EXPORT(m_library, CartomaLastError)(); }
  std::vector<std::string> Calls() const {
    std::vector<std::string> calls;
    for (const sim::CallRecord& call : m_emulator.Calls()) calls.push_back(call.member + ": " + call.text);
    return calls;
  }

  ScopedRegistry m_registry;
  ScopedFolder m_folder;
  LibraryWithEmulator m_host;
  const FormkitLibrary& m_library = m_host.library;
  sim::Emulator& m_emulator = m_host.emulator;
  int32_t m_handle = m_host.registration.Handle();
};

TEST_F(LibraryOnEmulator, ConnectingNeedsAHandleOrARunningHost) {
  EXPECT_EQ(FORMKIT_EXPORT(m_library, ConnectToCartoma)(0), 0) << "no handle and no running host";
  EXPECT_EQ(reinterpret_cast<void*>(FORMKIT_EXPORT(m_library, ConnectToCartomaWithoutAppCheck)),
            reinterpret_cast<void*>(FORMKIT_EXPORT(m_library, ConnectToCartomaWithoutAppCheckDispatch)))
      << "one entry under two names";
  EXPECT_EQ(FORMKIT_EXPORT(m_library, GetProcessID)(), getpid());
  EXPECT_EQ(FORMKIT_EXPORT(m_library, ConnectToCartoma)(m_handle), 1);
}

TEST_F(LibraryOnEmulator, AMalformedStatementGivesItsDescriptionAndStatementsRunOnRealTables) {
  EXPECT_EQ(FORMKIT_EXPORT(m_library, CartomaDo)(0, "Close All"), 1) << "no host: nothing to send, and no failure";
  EXPECT_STREQ(FORMKIT_EXPORT(m_library, CartomaEval)(0, "NumTables()"), "");
  EXPECT_EQ(Do("Open Tabel \"x.tab\""), 0);
  EXPECT_THAT(LastError(), HasSubstr("Syntax error near 'Tabel"));
  EXPECT_THAT(Calls(), ElementsAre("Do: Open Tabel \"x.tab\"", "LastErrorMessage: "))
      << "the library reads the host's own text after a failure";
  EXPECT_EQ(Do("Close Table Holes"), 0);
  EXPECT_EQ(LastError(), "Table Holes is not open");
  EXPECT_EQ(Eval("TableInfo(Holes, 8)"), "");
  EXPECT_EQ(LastError(), "Table Holes is not open");

  ASSERT_EQ(Do("Open Table \"" + CopySample(m_folder, "collars") + "\" As Collars Hide"), 1);
  EXPECT_EQ(LastError(), "Table Holes is not open") << "a success does not clear the last failure";
  ASSERT_EQ(Do("Select HoleID, MaxDepth From Collars Where MaxDepth > 150 Order By MaxDepth Desc Into Deep"), 1);
  ASSERT_EQ(Do("Fetch First From Deep"), 1);
  EXPECT_EQ(Eval("Deep.HoleID & \" \" & Deep.COL2"), "BD004 200");
  EXPECT_STREQ(FORMKIT_EXPORT(m_library, GetCartomaTableFieldValue)(m_handle, "Deep", "HoleID"), "BD004");
}

TEST_F(LibraryOnEmulator, ScriptsAnswerVariablesQueriesAndCommandsAndNoToolkitIsLoaded) {
  auto variable = FORMKIT_EXPORT(m_library, GetCBXVariable);
  auto query = FORMKIT_EXPORT(m_library, GetDDEQuery);
  auto command = FORMKIT_EXPORT(m_library, DoDDECommand);
  EXPECT_STREQ(variable(m_handle, "terravik.cbx", "TerviDir"), "/opt/terravik");
  EXPECT_STREQ(variable(m_handle, "terravik.cbx", "NoSuchVariable"), "");
  EXPECT_STREQ(variable(m_handle, "zelvar.cbx", "TerviDir"), "") << "a script that doesn't run";

  m_emulator.QueueProjection("8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000", "UTM zone 55 South");
  EXPECT_STREQ(query(m_handle, "terravik.cbx", "PROJECTION SELECTION"),
               "8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000");
  EXPECT_STREQ(query(m_handle, "terravik.cbx", "LAST PROJECTION NICENAME"), "UTM zone 55 South");
  EXPECT_STREQ(query(m_handle, "terravik.cbx", "PROJECTION SELECTION"), "") << "nothing picked: cancelled";

  EXPECT_STREQ(variable(0, "terravik.cbx", "TerviDir"), "") << "no host, no script";
  const char* kept = variable(m_handle, "terravik.cbx", "TerviDir");
  query(m_handle, "terravik.cbx", "LAST PROJECTION NICENAME");
  EXPECT_STREQ(kept, "/opt/terravik") << "a returned text stays until the same export is called again";

  EXPECT_EQ(command(m_handle, "absent.cbx", "Go"), 0);
  EXPECT_EQ(command(m_handle, "utilities.cbx", "TerviDir = \"/srv/tv\""), 1);
  EXPECT_STREQ(variable(m_handle, "utilities.cbx", "TerviDir"), "/srv/tv");
  EXPECT_EQ(command(m_handle, "absent.cbx", "Go"), 1) << "once a command reached a script, 1 for good";
  EXPECT_EQ(command(0, "absent.cbx", "Go"), 1);

  // None of these exports has a dialog, so none may have loaded a toolkit.
  Do("Close All");
  Eval("NumTables()");
  const std::string maps = ReadFile("/proc/self/maps");
  for (const char* toolkit : {"libwx_", "libgtk", "libformkit-wx"}) EXPECT_EQ(maps.find(toolkit), std::string::npos);
}

constexpr const char* kMga55 = "Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000";

struct FeatureRow {
  std::vector<std::string> fields;
  double x = 0, y = 0;
};

// Every feature of the first layer of a GeoPackage: its fields as text and
// its first point.
std::vector<FeatureRow> ReadWithGdal(const std::string& path) {
  GDALAllRegister();
  std::unique_ptr<GDALDataset> dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
  if (!dataset) throw std::runtime_error("GDAL can't open " + path);
  OGRLayer& layer = *dataset->GetLayer(0);
  std::vector<FeatureRow> rows;
  for (auto& feature : layer) {
    FeatureRow row;
    for (int i = 0; i < feature->GetFieldCount(); ++i) row.fields.push_back(feature->GetFieldAsString(i));
    if (const OGRGeometry* geometry = feature->GetGeometryRef();
        geometry && wkbFlatten(geometry->getGeometryType()) == wkbPoint) {
      row.x = geometry->toPoint()->getX();
      row.y = geometry->toPoint()->getY();
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

using SessionOnEmulator = EmulatorSessionTest;

TEST_F(SessionOnEmulator, MakeTableSubsetWritesTheChosenHolesInOrderWithTheMetadataBlock) {
  const std::string assays = Open("assays", "Assays");
  ASSERT_TRUE(g_Cartoma.CreateTable("_CollarSubset", "ID Char(50)", nullptr, nullptr));
  ASSERT_TRUE(g_Cartoma.InsertRow("_CollarSubset", "ID", "\"BD004\""));
  ASSERT_TRUE(g_Cartoma.InsertRow("_CollarSubset", "ID", "\"BD001\""));
  ASSERT_TRUE(g_Cartoma.CommitTable("_CollarSubset"));

  const std::string out = Out("assays_subset.tab");
  ASSERT_TRUE(g_Cartoma.MakeTableSubset("_CollarSubset", "Assays", "COL1", out, "COL2")) << g_Cartoma.m_strLastError;
  std::vector<std::string> holeAndFrom;
  for (const FeatureRow& row : ReadWithGdal(Out("assays_subset.gpkg")))
    holeAndFrom.push_back(row.fields[0] + "@" + row.fields[1]);
  EXPECT_THAT(holeAndFrom, ElementsAre("BD001@10", "BD001@11", "BD001@12", "BD004@149", "BD004@150"));
  const std::string source = ReadFile(assays);
  ASSERT_NE(source.find("begin_metadata\n\""), std::string::npos);
  EXPECT_TRUE(ReadFile(out).ends_with(OnDisk(source.substr(source.find("begin_metadata"))))) << "the metadata block";
  EXPECT_EQ(g_Cartoma.FindTableByPath(out), "") << "the subset is written, not left open";
}

TEST_F(SessionOnEmulator, CommittingUnderAnotherClauseReprojectsEveryRowLongitudeFirst) {
  Open("collars", "Collars");
  EXPECT_EQ(g_Cartoma.GetTableCoordSysClause("Collars"), kMga55);
  const std::string out = Out("collars_wgs84.tab");
  ASSERT_TRUE(g_Cartoma.CommitTableAs("Collars", out, "Earth Projection 1, 104", 0)) << g_Cartoma.m_strLastError;

  const std::vector<FeatureRow> source = ReadWithGdal(Out("collars.gpkg"));
  const std::vector<FeatureRow> written = ReadWithGdal(Out("collars_wgs84.gpkg"));
  ASSERT_EQ(written.size(), 5u);
  // Each hole within about 500 m of where PROJ puts the collars; how exactly
  // the host's commit matches PROJ is the multi-table reprojection's test.
  for (std::size_t i = 0; i < written.size(); ++i) {
    EXPECT_NEAR(written[i].x, 144.257, 0.005) << "longitude first";
    EXPECT_NEAR(written[i].y, -36.787, 0.005);
    EXPECT_EQ(written[i].fields[0], source[i].fields[0]);
  }
  ASSERT_TRUE(g_Cartoma.OpenTable(out.c_str(), "Wgs", 1, 0));
  EXPECT_EQ(g_Cartoma.GetTableCoordSysName("Wgs"), "Longitude / Latitude (WGS 84)");

  EXPECT_FALSE(g_Cartoma.CommitTableAs("Collars", Out("plane.tab"), "NonEarth Units \"m\"", 0));
  EXPECT_THAT(g_Cartoma.m_strLastError, HasSubstr("earth and non-earth"));
  EXPECT_FALSE(std::filesystem::exists(Out("plane.tab")));
}

TEST_F(SessionOnEmulator, ObjectsOfEveryKindGiveTheirNodesAsTheLibraryReadsThem) {
  Open("objects", "Objects");
  const auto fetch = [](int row) {
    EXPECT_TRUE(g_Cartoma.FetchRow("Objects", row) && g_Cartoma.ObjectToVariable("o", "Objects")) << "row " << row;
  };
  const int kinds[] = {5, 5, 3, 4, 7, 8, 9, 2, 1, 10, 0, 6};  // the 11th row has no object
  for (int row = 0; row < 12; ++row) {
    fetch(row);
    EXPECT_EQ(g_Cartoma.GetObjectType("o"), kinds[row]) << "row " << row;
  }
  std::vector<double> xs, ys;
  const auto nodesOfRow = [&](int row) {
    fetch(row);
    return g_Cartoma.GetObjectNodes("o", xs = {}, ys = {});
  };
  ASSERT_EQ(nodesOfRow(3), 1);  // a polyline of two sections, 3 and 2 nodes
  EXPECT_THAT(xs, ElementsAre(144.26, 144.265, 144.27, 144.271, 144.276));
  ASSERT_EQ(nodesOfRow(4), 1);  // a region with a hole: both rings, 4 nodes each
  EXPECT_EQ(xs.size(), 8u);
  EXPECT_DOUBLE_EQ(xs[4], 144.27);
  ASSERT_EQ(nodesOfRow(5), 1);  // a rectangle: its corner ring, closed
  EXPECT_THAT(xs, ElementsAre(144.281, 144.281, 144.283, 144.283, 144.281));
  EXPECT_THAT(ys, ElementsAre(-36.761, -36.76, -36.76, -36.761, -36.761));
  EXPECT_EQ(g_Cartoma.GetObjectPen("o"), "Pen (1,2,0)");
}

// Colours stored into columns on a copy, then applied back in place with a
// factor, over objects with a symbol, a font symbol, a pen and brushes.
TEST_F(SessionOnEmulator, ColorTableObjectsStoresColoursInColumnsAndAppliesThemBackScaled) {
  Open("objects", "Objects");
  const std::string copy = Out("rgb.tab");
  ASSERT_EQ(ColorTableObjects("Objects", copy.c_str(), "C0", "C1", "C2", 1, 1, 1, 2, 0), 1) << g_Cartoma.m_strLastError;
  const std::string table = g_Cartoma.GetSelectedTableName();
  const struct {
    int row;
    const char* stored;  // bytes 0, 1 and 2 of the object's colour
    int applied;         // the colour after byte 0 x 2, byte 1 x 1, byte 2 x 0.5
    const char* style;   // the style that carries it, when not a brush
  } cases[] = {{0, "255 0 0", 254, "Symbol (35,254,12)"},
               {1, "0 0 255", 127 << 16, "Symbol (65,8323072,14,\"Arial\",0,45)"},
               {2, "200 255 0", 144 | 255 << 8, "Pen (2,2,65424)"},  // 200 x 2 keeps its low byte
               {4, "255 255 0", 254 | 255 << 8, nullptr}};
  ASSERT_TRUE(g_Cartoma.UpdateRow(table, "C0", "200", 2));
  const auto columns = [&](int row) {
    EXPECT_TRUE(g_Cartoma.FetchRow(table, row));
    return g_Cartoma.GetFieldValue(table, "C0") + " " + g_Cartoma.GetFieldValue(table, "C1") + " " +
           g_Cartoma.GetFieldValue(table, "C2");
  };
  for (const auto& c : cases) EXPECT_EQ(columns(c.row), c.stored) << "row " << c.row;
  EXPECT_EQ(columns(10), "0 0 0") << "the row without an object";

  m_emulator.ClearCalls();
  // The host refuses the update of the row without an object: the result
  // tells of it, and the row after it is updated all the same.
  EXPECT_EQ(ColorTableObjects(table.c_str(), copy.c_str(), "C0", "C1", "C2", 2, 1, 0.5f, 2, 1), 0);
  std::vector<std::string> statements;
  for (const sim::CallRecord& call : m_emulator.Calls())
    if (call.member == "Do" && (call.text.find("FastEdit") != std::string::npos || call.text.starts_with("Update")))
      statements.push_back(call.text);
  ASSERT_EQ(statements.size(), 14u);
  EXPECT_EQ(statements.front(), "Set Table " + table + " FastEdit Off");
  EXPECT_EQ(statements[12], "Update " + table + " Set Obj = _colorObj Where RowID = 12");
  EXPECT_EQ(statements.back(), "Set Table " + table + " FastEdit On");

  ASSERT_TRUE(g_Cartoma.CloseTable(table));
  ASSERT_TRUE(g_Cartoma.OpenTable(copy.c_str(), "Reread", 1, 0));
  for (const auto& c : cases) {
    ASSERT_TRUE(g_Cartoma.FetchRow("Reread", c.row));
    ASSERT_TRUE(g_Cartoma.ObjectToVariable("r", "Reread"));
    EXPECT_EQ(g_Cartoma.GetObjectColor("r"), c.applied) << "row " << c.row;
    if (c.style) {
      EXPECT_EQ(g_Cartoma.GetObjectPen("r"), c.style) << "the rest of the style is kept";
    }
  }
}

}  // namespace
