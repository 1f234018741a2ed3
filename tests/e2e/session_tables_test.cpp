// The host session's table and object operations run on the emulator with
// real sample tables, and what they write is read back with GDAL and
// compared with what PROJ gives.
#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <proj.h>

#include <filesystem>
#include <fstream>

#include "e2e/emulated_host.h"
#include "host/cartoma.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

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

// What PROJ makes of a point between two systems, longitude first.
std::pair<double, double> ProjTransform(const char* from, const char* to, double x, double y) {
  PJ* raw = proj_create_crs_to_crs(nullptr, from, to, nullptr);
  PJ* pj = proj_normalize_for_visualization(nullptr, raw);
  const PJ_COORD out = proj_trans(pj, PJ_FWD, proj_coord(x, y, 0, 0));
  proj_destroy(pj);
  proj_destroy(raw);
  return {out.xy.x, out.xy.y};
}

std::vector<std::string> MetadataBlock(const std::string& tabPath) {
  std::ifstream in(tabPath);
  std::vector<std::string> block;
  bool inBlock = false;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (inBlock) block.push_back(line);
    if (line == "begin_metadata") inBlock = true;
  }
  return block;
}

class SessionOnEmulator : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m_emulator.AddScript("terravik.cbx");
    ASSERT_EQ(g_Cartoma.Connect(m_registration.Handle(), 1), 1);
  }
  std::string Open(const char* sample, const char* alias) {
    const std::string path = CopySamples(m_folder, {sample});
    EXPECT_TRUE(g_Cartoma.OpenTable(path.c_str(), alias, 1, 0)) << g_Cartoma.m_strLastError;
    return path;
  }
  std::string Out(const std::string& name) const { return (std::filesystem::path(m_folder.Path()) / name).string(); }

  ScopedFolder m_folder;
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
};

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
  EXPECT_EQ(MetadataBlock(out), MetadataBlock(assays));
  EXPECT_FALSE(MetadataBlock(out).empty());
  EXPECT_EQ(g_Cartoma.FindTableByPath(out), "") << "the subset is written, not left open";
}

TEST_F(SessionOnEmulator, CommittingUnderAnotherClauseReprojectsAsProjDoes) {
  Open("collars", "Collars");
  EXPECT_EQ(g_Cartoma.GetTableCoordSysClause("Collars"), kMga55);
  const std::string out = Out("collars_wgs84.tab");
  ASSERT_TRUE(g_Cartoma.CommitTableAs("Collars", out, "Earth Projection 1, 104", 0)) << g_Cartoma.m_strLastError;

  const std::vector<FeatureRow> source = ReadWithGdal(Out("collars.gpkg"));
  const std::vector<FeatureRow> written = ReadWithGdal(Out("collars_wgs84.gpkg"));
  ASSERT_EQ(written.size(), 5u);
  for (std::size_t i = 0; i < written.size(); ++i) {
    const auto [lon, lat] = ProjTransform("EPSG:28355", "EPSG:4326", source[i].x, source[i].y);
    EXPECT_NEAR(written[i].x, lon, 1e-9);
    EXPECT_NEAR(written[i].y, lat, 1e-9);
    EXPECT_NEAR(written[i].x, 144.28, 0.05) << "longitude first";
    EXPECT_EQ(written[i].fields[0], source[i].fields[0]);
  }
  ASSERT_TRUE(g_Cartoma.OpenTable(out.c_str(), "Wgs", 1, 0));
  EXPECT_EQ(g_Cartoma.GetTableCoordSysName("Wgs"), "Longitude / Latitude (WGS 84)");

  EXPECT_FALSE(g_Cartoma.CommitTableAs("Collars", Out("plane.tab"), "NonEarth Units \"m\"", 0));
  EXPECT_THAT(g_Cartoma.m_strLastError, HasSubstr("earth and non-earth"));
  EXPECT_FALSE(std::filesystem::exists(Out("plane.tab")));
}

TEST_F(SessionOnEmulator, TransformPointConvertsThroughTheHostsCurrentSystem) {
  double x = 0, y = 0;
  ASSERT_EQ(g_Cartoma.TransformPoint(kMga55, 255120, 5925210, "Earth Projection 1, 104", x, y), 1)
      << g_Cartoma.m_strLastError;
  const auto [lon, lat] = ProjTransform("EPSG:28355", "EPSG:4326", 255120, 5925210);
  EXPECT_NEAR(x, lon, 1e-9);
  EXPECT_NEAR(y, lat, 1e-9);
  // The clause with the keyword goes upper-cased, and still reads. The way
  // back starts from degrees written with six decimals, about 0.1 m.
  ASSERT_EQ(g_Cartoma.TransformPoint("CoordSys Earth Projection 1, 104", lon, lat, kMga55, x, y), 1);
  EXPECT_NEAR(x, 255120, 0.1);
  EXPECT_NEAR(y, 5925210, 0.1);
}

TEST_F(SessionOnEmulator, ObjectsOfEveryKindGiveTheirNodesAsTheLibraryReadsThem) {
  Open("objects", "Objects");
  std::vector<double> xs, ys;
  const auto nodesOfRow = [&](int row) {
    xs.clear();
    ys.clear();
    EXPECT_TRUE(g_Cartoma.FetchRow("Objects", row));
    EXPECT_TRUE(g_Cartoma.ObjectToVariable("o", "Objects"));
    return g_Cartoma.GetObjectNodes("o", xs, ys);
  };
  ASSERT_EQ(nodesOfRow(3), 1);  // a polyline of two sections, 3 and 2 nodes
  EXPECT_EQ(g_Cartoma.GetObjectType("o"), 4);
  EXPECT_THAT(xs, ElementsAre(144.26, 144.265, 144.27, 144.271, 144.276));
  ASSERT_EQ(nodesOfRow(4), 1);  // a region with a hole: both rings, 4 nodes each
  EXPECT_EQ(xs.size(), 8u);
  EXPECT_DOUBLE_EQ(xs[4], 144.27);
  ASSERT_EQ(nodesOfRow(5), 1);  // a rectangle: its corner ring, closed
  EXPECT_THAT(xs, ElementsAre(144.281, 144.281, 144.283, 144.283, 144.281));
  EXPECT_THAT(ys, ElementsAre(-36.761, -36.76, -36.76, -36.761, -36.761));
  EXPECT_EQ(g_Cartoma.GetObjectPen("o"), "Pen (1,2,0)");
}

TEST_F(SessionOnEmulator, ColoursAreWrittenIntoStylesAndKeptInTheFile) {
  Open("objects", "Objects");
  const struct {
    int row;
    int colour;
    const char* style;
  } cases[] = {{0, 255, "Symbol (35,255,12)"},
               {1, 16711680, "Symbol (65,16711680,14,\"Arial\",0,45)"},
               {2, 65280, "Pen (2,2,65280)"},
               {4, 65535, "Brush (2,65535,16777215)"}};
  for (const auto& c : cases) {
    ASSERT_TRUE(g_Cartoma.FetchRow("Objects", c.row));
    ASSERT_TRUE(g_Cartoma.ObjectToVariable("_colorObj", "Objects"));
    EXPECT_EQ(g_Cartoma.GetObjectColor("_colorObj"), c.colour) << c.style;
    ASSERT_EQ(g_Cartoma.SetObjectColor("_colorObj", 0x123456), 1) << g_Cartoma.m_strLastError;
    ASSERT_TRUE(g_Cartoma.UpdateRow("Objects", "Obj", "_colorObj", c.row)) << g_Cartoma.m_strLastError;
  }
  const std::string out = Out("recoloured.tab");
  ASSERT_TRUE(g_Cartoma.CommitTableAs("Objects", out, nullptr, 0));
  ASSERT_TRUE(g_Cartoma.OpenTable(out.c_str(), "Recoloured", 1, 0));
  for (const auto& c : cases) {
    ASSERT_TRUE(g_Cartoma.FetchRow("Recoloured", c.row));
    ASSERT_TRUE(g_Cartoma.ObjectToVariable("r", "Recoloured"));
    EXPECT_EQ(g_Cartoma.GetObjectColor("r"), 0x123456) << c.style;
  }
  ASSERT_TRUE(g_Cartoma.FetchRow("Recoloured", 1));
  ASSERT_TRUE(g_Cartoma.ObjectToVariable("r", "Recoloured"));
  EXPECT_EQ(g_Cartoma.GetObjectPen("r"), "Symbol (65,1193046,14,\"Arial\",0,45)") << "the font is kept";
}

}  // namespace
