// The host's files read and rewritten directly.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;

namespace {

using HostFilesTest = SessionTest;

TEST_F(HostFilesTest, RasterFileNameIsTakenFromTheFileLineInCapitals) {
  ScopedFolder folder;
  const std::string tab = folder.Write("image.tab",
                                       "!table\r\n!version 300\r\nDefinition Table\r\n  File \"Aerial Photo.jpg\" \r\n"
                                       "  Type \"RASTER\"\r\n");
  EXPECT_EQ(g_Cartoma.GetRasterFileName(tab), "AERIAL PHOTO.JPG");
  EXPECT_EQ(g_Cartoma.GetRasterFileName(folder.Path() + "/missing.tab"), "");
  const std::string empty = folder.Write("empty.tab", "  File \"\"\r\n  profile \"grid.grd\"\n");
  EXPECT_EQ(g_Cartoma.GetRasterFileName(empty), "PROGRID.GRD")
      << "an empty name searches on, and \"FILE \" inside a word matches";
}

TEST_F(HostFilesTest, GridStyleAndControlPoints) {
  ScopedFolder folder;
  const std::string tab = folder.Write(
      "grid.tab",
      "Definition Table\n  File \"dem.grd\"\n  Type \"RASTER\"\n"
      "  (500000.5,7000000.25) (0,0) Label \"Pt 1\",\n"
      "  (501000,7001000) (1000,1000) Label \"Pt 2\"\n"
      "  (502000,7002000 (2000,2000) Label \"broken\"\n"
      "  (1,2) (3,4) Unlabelled\n"
      "  RasterStyle 6 1\n");
  std::vector<double> xs, ys;
  std::vector<unsigned long> px, py;
  EXPECT_EQ(g_Cartoma.ReadTabControlPoints(tab, xs, ys, px, py), 0);
  EXPECT_THAT(xs, ElementsAre(500000.5, 501000));
  EXPECT_THAT(ys, ElementsAre(7000000.25, 7001000));
  EXPECT_THAT(px, ElementsAre(0u, 1000u));
  EXPECT_THAT(py, ElementsAre(0u, 1000u));

  ScriptedHost host;
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  host.Answers().Answer({{"TableInfo(DEM, 19)", tab},
                         {"TableInfo(Photo, 19)", folder.Write("photo.tab", "RasterStyle 4 1\n")},
                         {"TableInfo(Gone, 19)", folder.Path() + "/gone.tab"}});
  EXPECT_EQ(g_Cartoma.IsGridRasterTab("DEM"), 1);
  EXPECT_EQ(g_Cartoma.IsGridRasterTab("Photo"), 0);
  EXPECT_EQ(g_Cartoma.IsGridRasterTab("Gone"), 0);
}

class CopyMetadataTest : public SessionTest {
 protected:
  ScopedFolder m_folder;
  std::string m_source =
      m_folder.Write("source.tab", "!table\nDefinition Table\nbegin_metadata\n\"\\Key\" = \"1\"\n\"\\Other\" = \"2\"\n");
};

TEST_F(CopyMetadataTest, TheTargetKeepsItsHeadAndTakesTheSourcesBlockUnderItsOwnMarker) {
  const std::string target =
      m_folder.Write("target.tab", "!table\r\nFields 2\r\nBEGIN_METADATA\r\n\"\\Old\" = \"x\"\r\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(m_source, target), 1);
  EXPECT_EQ(ReadFile(target), "!table\r\nFields 2\r\nBEGIN_METADATA\r\n\"\\Key\" = \"1\"\r\n\"\\Other\" = \"2\"\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}), 2) << "no temporary file left";

  // A target without a block gets the marker in lower case.
  const std::string plain = m_folder.Write("plain.tab", "!table\nFields 1\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(m_source, plain), 1);
  EXPECT_EQ(ReadFile(plain), "!table\r\nFields 1\r\nbegin_metadata\r\n\"\\Key\" = \"1\"\r\n\"\\Other\" = \"2\"\r\n");

  const std::string noBlock = m_folder.Write("noblock.tab", "!table\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(noBlock, plain), 1);
  EXPECT_EQ(ReadFile(plain), "!table\r\nFields 1\r\nbegin_metadata\r\n") << "an empty block";
}

TEST_F(CopyMetadataTest, AMissingSourceOrTargetChangesNothing) {
  const std::string target = m_folder.Write("keep.tab", "!table\nbegin_metadata\n\"\\Mine\" = \"1\"\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(m_folder.Path() + "/none.tab", target), 0);
  EXPECT_EQ(ReadFile(target), "!table\nbegin_metadata\n\"\\Mine\" = \"1\"\n");
  EXPECT_EQ(g_Cartoma.CopyTabMetadata(m_source, m_folder.Path() + "/absent.tab"), 0);
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path() + "/absent.tab"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}), 2);
}

TEST(PenFileTest, ThePenCountComesFromAPen2Header) {
  ScopedFolder folder;
  const std::pair<std::string, int> files[] = {{std::string("PEN2\0\0\x2c\x01rest", 12), 300},
                                               {std::string("pen2\0\0\x05\0", 8), 5},
                                               {std::string("PEN1\0\0\x05\0", 8), 0},
                                               {std::string("PEN2\0\0\x05", 7), 0}};
  for (const auto& [bytes, count] : files)
    EXPECT_EQ(GetCartomaPenCount(folder.Write("a.pen", bytes).c_str()), count) << bytes.substr(0, 4);
  EXPECT_EQ(GetCartomaPenCount((folder.Path() + "/none.pen").c_str()), 0);
  EXPECT_EQ(GetCartomaPenCount(nullptr), 0);
}

}  // namespace
