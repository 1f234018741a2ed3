// Pictures and their registration: GetPictureSize (the platform's loader
// first, the raster library for what it can't read, and untouched outputs
// on every failure), and registration tables written from a rectangle and
// from control points, read back the way the host session reads them.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include "exchange/tab_coordsys.h"
#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "support/formkit_library.h"
#include "support/session_fixture.h"

namespace {

// Small pictures for the picture size tests: PNG files of 1 by 1 and 5 by 3
// pixels, and a text grid that only the raster library reads.

const std::string kPng1x1(
    "\x89\x50\x4e\x47\x0d\x0a\x1a\x0a\x00\x00\x00\x0d\x49\x48\x44\x52\x00\x00\x00\x01\x00\x00\x00\x01\x08\x02\x00\x00"
    "\x00\x90\x77\x53\xde\x00\x00\x00\x0c\x49\x44\x41\x54\x78\xda\x63\x68\x70\x50\x00\x00\x02\x24\x00\xe1\x95\xa4\xb1"
    "\x8b\x00\x00\x00\x00\x49\x45\x4e\x44\xae\x42\x60\x82",
    69);

const std::string kPng5x3(
    "\x89\x50\x4e\x47\x0d\x0a\x1a\x0a\x00\x00\x00\x0d\x49\x48\x44\x52\x00\x00\x00\x05\x00\x00\x00\x03\x08\x02\x00\x00"
    "\x00\xd4\x54\x52\xaf\x00\x00\x00\x10\x49\x44\x41\x54\x78\xda\x63\x68\x70\x50\x40\x46\x0c\x04\xf8\x00\x40\xdf\x0d"
    "\x21\x74\xf8\x03\x9c\x00\x00\x00\x00\x49\x45\x4e\x44\xae\x42\x60\x82",
    73);

// An ASCII grid of 4 columns and 2 rows.
const std::string kAsciiGrid4x2 =
    "ncols 4\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 10\n1 2 3 4\n5 6 7 8\n";

TEST(PictureSizeTest, PicturesOfBothLibrariesGiveTheirSizeAndOtherFilesZeroWithTheOutputsLeft) {
  ScopedFolder folder;
  folder.Write("Maps/Dot.PNG", kPng1x1);
  const std::tuple<std::string, int, int> pictures[] = {
      {folder.Write("photo.png", kPng5x3), 5, 3},
      {folder.Write("dem.asc", kAsciiGrid4x2), 4, 2},       // a grid only the raster library reads
      {folder.Path() + "\\MAPS\\DOT.png", 1, 1}};         // the path written the system's way
  for (const auto& [path, wide, high] : pictures) {
    int32_t width = 0, height = 0;
    EXPECT_EQ(GetPictureSize(path.c_str(), &width, &height), 1) << path;
    EXPECT_EQ(width * 100 + height, wide * 100 + high) << path;
  }

  const std::string files[] = {folder.Path() + "/missing.png", folder.Write("empty.png", ""),
                               folder.Write("corrupt.png", "\x89PNG but nothing a decoder can read"),
                               folder.Write("notes.txt", "not a picture at all\n"), folder.Path()};
  for (const std::string& file : files) {
    int32_t width = -7, height = -9;
    EXPECT_EQ(GetPictureSize(file.c_str(), &width, &height), 0) << file;
    EXPECT_EQ(width * 100 + height, -709) << file;
  }
  int32_t width = 0;
  EXPECT_EQ(GetPictureSize(folder.Write("a.png", kPng1x1).c_str(), &width, nullptr), 0);
  EXPECT_EQ(GetPictureSize(nullptr, &width, &width), 0);
}

TEST(PictureSizeTest, ALibraryWhoseDecodersCantBeLoadedKnowsNoPictureAndGoesOn) {
  ScopedFolder folder;
  const FormkitLibrary copy;  // in the temporary folder, with no decoder library beside it
  int32_t width = -7, height = -9;
  EXPECT_EQ(FORMKIT_EXPORT(copy, GetPictureSize)(folder.Write("dem.asc", kAsciiGrid4x2).c_str(), &width, &height), 0);
  EXPECT_EQ(width, -7);
  EXPECT_EQ(FORMKIT_EXPORT(copy, GetRSSRegistry)(), 7) << "the other exports answer";
}

const std::string kHead =
    "!table\n!version 550\n!charset WindowsLatin1\n\nDefinition Table\n"
    "  File \"photo.png\"\n  Type \"RASTER\"\n";

TEST(TabCoordSysTest, TheClauseGivesTheLineAndTheUnits) {
  struct Case {
    const char* clause;
    const char* line;
    const char* units;
  };
  const Case cases[] = {
      {"10, 104", "  CoordSys Earth Projection 10, 104\n", "m"},
      {"earth projection 8, 104, \"m\", 21", "  CoordSys earth projection 8, 104, \"m\", 21\n", "m"},
      {"CoordSys Earth Projection 1, 104", "  CoordSys Earth Projection 1, 104\n", "degree"},
      {"\"ft\" 8, 104", "  CoordSys Earth Projection \"ft\" 8, 104\n", "m"},
      {"Earth Projection 8, 104, \"m", "  CoordSys Earth Projection 8, 104, \"m\n", "m"},
      {"50% \"Cm\"", "  CoordSys Earth Projection 50% \"Cm\"\n", "cm"},
  };
  for (const Case& c : cases) {
    const TabCoordSys described = DescribeTabCoordSys(c.clause);
    EXPECT_EQ(described.strLine, c.line) << c.clause;
    EXPECT_EQ(described.strUnits, c.units) << c.clause;
  }
}

class RasterTabTest : public SessionTest {
 protected:
  std::string Tab(const char* name) const { return m_folder.Path() + "/" + name; }

  ScopedFolder m_folder;
};

// A rectangle ties the picture's corners to it; colour 0 is transparent,
// and a one-pixel picture has one-pixel corners.
TEST_F(RasterTabTest, ATableFromARectangleTiesThePictureCornersToIt) {
  m_folder.Write("photo.png", kPng5x3);
  ASSERT_EQ(theApp.WriteRasterTab(Tab("photo.tab"), "photo.png", 500000, 7000000.5, 501000.25, 7001000, nullptr, -1),
            1);
  EXPECT_EQ(ReadFile(Tab("photo.tab")),
            OnDisk(kHead +
                   "  (500000.000000,7001000.000000) (0,0) Label \"Pt 1\",\n"
                   "  (501000.250000,7001000.000000) (4,0) Label \"Pt 2\",\n"
                   "  (501000.250000,7000000.500000) (4,2) Label \"Pt 3\",\n"
                   "  (500000.000000,7000000.500000) (0,2) Label \"Pt 4\"\n"
                   "  CoordSys NonEarth Units \"m\"\n"
                   "  Units \"m\"\n"));

  m_folder.Write("dot.png", kPng1x1);
  ASSERT_EQ(theApp.WriteRasterTab(Tab("dot.tab"), "dot.png", 0, 0, 1, 1, "1, 104", 0), 1);
  const std::string text = ReadFile(Tab("dot.tab"));
  EXPECT_TRUE(text.ends_with(OnDisk("  (0.000000,1.000000) (0,0) Label \"Pt 1\",\n"
                                    "  (1.000000,1.000000) (0,0) Label \"Pt 2\",\n"
                                    "  (1.000000,0.000000) (0,0) Label \"Pt 3\",\n"
                                    "  (0.000000,0.000000) (0,0) Label \"Pt 4\"\n"
                                    "  CoordSys Earth Projection 1, 104\n"
                                    "  Units \"degree\"\n"
                                    "  RasterStyle 4 1\n"
                                    "  RasterStyle 7 0\n")))
      << text;
}

TEST_F(RasterTabTest, APathInTheImageNameIsProbedAndWrittenAsGiven) {
  m_folder.Write("images/scan.png", kPng5x3);
  const std::string image = m_folder.Path() + "\\IMAGES\\scan.png";
  ASSERT_EQ(theApp.WriteRasterTab(Tab("scan.tab"), image, 0, 0, 1, 1, "", 16777215), 1);
  EXPECT_NE(ReadFile(Tab("scan.tab")).find("  File \"" + image + "\"\r\n"), std::string::npos);

  EXPECT_EQ(theApp.WriteRasterTab(Tab("beside.tab"), "scan.png", 0, 0, 1, 1, "", -1), 0)
      << "a bare name is looked for beside the table only";
  EXPECT_FALSE(std::filesystem::exists(Tab("beside.tab"))) << "no picture, no table";
  EXPECT_EQ(theApp.WriteRasterTab(Tab("gone/scan.tab"), image, 0, 0, 1, 1, "", -1), 0);
}

TEST_F(RasterTabTest, ControlPointsMakeANewTableWhenThereAreNoOldLines) {
  ASSERT_EQ(theApp.RewriteRasterTab(Tab("new.tab"), "photo.png", {0, 640, -3}, {0, 480, 7}, {1.5, 2.5, 3.5},
                                    {-1, -2, -3}, "Earth Projection 8, 104, \"M\", 3", nullptr),
            1);
  EXPECT_EQ(ReadFile(Tab("new.tab")),
            OnDisk(kHead +
                   "  (1.500000,-1.000000) (0,0) Label \"Pt 1\",\n"
                   "  (2.500000,-2.000000) (640,480) Label \"Pt 2\",\n"
                   "  (3.500000,-3.000000) (-3,7) Label \"Pt 3\"\n"
                   "  CoordSys Earth Projection 8, 104, \"M\", 3\n"
                   "  Units \"m\"\n"));

  const std::vector<std::string> none;
  ASSERT_EQ(theApp.RewriteRasterTab(Tab("bare.tab"), "photo.png", {}, {}, {}, {}, "NonEarth Units \"\"", &none), 1);
  EXPECT_EQ(ReadFile(Tab("bare.tab")), OnDisk(kHead + "  CoordSys NonEarth Units \"\"\n"))
      << "no points, no line for them; empty units, no Units line";
  EXPECT_EQ(theApp.RewriteRasterTab(Tab("short.tab"), "photo.png", {1, 2}, {1, 2}, {1}, {1, 2}, nullptr, nullptr), 0);
}

TEST_F(RasterTabTest, KeptLinesStayAsTheyStandWhilePointsCoordinatesAndUnitsAreReplaced) {
  const std::vector<std::string> old = {
      "!table\n", "!version 300\n", "Definition Table\n", "  File \"Old 100%d.jpg\"\n", "  Type \"RASTER\"\n",
      "  (1,2) (3,4) Label \"Pt 1\",\n", "  (5,6) (7,8) Label \"Pt 2\"\n",
      "  CoordSys Earth Projection 8, 104, \"m\", 3\n", "  Units \"m\"\n", "  RasterStyle 4 1\n",
      "begin_metadata\n", "\"\\Note\" = \"a LABEL here %s\"\n", "\"\\Owner\" = \"Survey\"\n"};
  ASSERT_EQ(theApp.RewriteRasterTab(Tab("kept.tab"), "ignored.png", {0, 10}, {0, 20}, {100, 200}, {300, 400},
                                    "1, 104", &old),
            1);
  EXPECT_EQ(ReadFile(Tab("kept.tab")),
            OnDisk("!table\n!version 300\nDefinition Table\n  File \"Old 100%d.jpg\"\n  Type \"RASTER\"\n"
                   "  (100.000000,300.000000) (0,0) Label \"Pt 1\",\n"
                   "  (200.000000,400.000000) (10,20) Label \"Pt 2\"\n"
                   "  CoordSys Earth Projection 1, 104\n"
                   "  Units \"degree\"\n  RasterStyle 4 1\nbegin_metadata\n\"\\Owner\" = \"Survey\"\n"))
      << "a line with LABEL between blanks goes even from the metadata";

  ASSERT_EQ(theApp.RewriteRasterTab(Tab("unitless.tab"), "", {0}, {0}, {1}, {1}, "NonEarth Units \"\"", &old), 1);
  EXPECT_EQ(ReadFile(Tab("unitless.tab")).find("Units \"m\""), std::string::npos) << "empty units drop the line";

  const std::vector<std::string> noUnits = {"Definition Table\n", "  File \"a.jpg\"\n", "  RasterStyle 7 255\n"};
  ASSERT_EQ(theApp.RewriteRasterTab(Tab("plain.tab"), "", {0}, {0}, {1}, {2}, nullptr, &noUnits), 1);
  EXPECT_EQ(ReadFile(Tab("plain.tab")),
            OnDisk("Definition Table\n  File \"a.jpg\"\n  RasterStyle 7 255\n"
                   "  (1.000000,2.000000) (0,0) Label \"Pt 1\"\n  CoordSys NonEarth Units \"m\"\n"))
      << "lines that never reach a point or coordinate line all stay in front; no Units line is added";
}

TEST_F(RasterTabTest, ATableReadFromDiskIsRewrittenWithItsOwnLineEnds) {
  const std::string path = m_folder.Write(
      "disk.tab",
      "!table\r\n!version 450\r\n\r\nDefinition Table\r\n  File \"dem.grd\"\r\n  Type \"RASTER\"\r\n"
      "  (0,0) (0,0) Label \"Pt 1\"\r\n  CoordSys NonEarth Units \"m\"\r\n  Units \"m\"\r\n  RasterStyle 6 1\r\n");
  std::vector<std::string> lines;
  g_Cartoma.ReadTextLines(path, lines);
  ASSERT_EQ(theApp.RewriteRasterTab(path, "dem.grd", {0}, {0}, {5}, {6}, "NonEarth Units \"ft\"", &lines), 1);
  EXPECT_EQ(ReadFile(path),
            "!table\r\n!version 450\r\n\r\nDefinition Table\r\n  File \"dem.grd\"\r\n  Type \"RASTER\"\r\n"
            "  (5.000000,6.000000) (0,0) Label \"Pt 1\"\r\n  CoordSys NonEarth Units \"ft\"\r\n  Units \"ft\"\r\n"
            "  RasterStyle 6 1\r\n");
}

}  // namespace
