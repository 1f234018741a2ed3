// The DXF exports, called by name on a freshly loaded library, the way a
// host script calls them: the bytes on disk are the contract.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "exchange/dxf_text.h"
#include "formkit/formkit.h"
#include "support/formkit_library.h"
#include "support/session_fixture.h"

namespace {

const std::string kHead = "  0\nSECTION\n  2\nHEADER\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
const std::string kTail = "  0\nENDSEC\n  0\nEOF\n";

std::string Vertex(const char* rgb, const char* x, const char* y, const char* z) {
  return std::string("  0\nVERTEX\n  8\n0\n 62\n0\n 999\nRGB=") + rgb + "\n 10\n" + x + "\n 20\n" + y + "\n 30\n" + z +
         "\n 70\n32\n";
}

class DXFExportsTest : public ::testing::Test {
 protected:
  std::string Path(const char* name) const { return m_folder.Path() + "/" + name; }

  FormkitLibrary m_library;
  ScopedFolder m_folder;
  decltype(&DXFCreate) m_create = FORMKIT_EXPORT(m_library, DXFCreate);
  decltype(&DXFCreateWithBounds) m_createWithBounds = FORMKIT_EXPORT(m_library, DXFCreateWithBounds);
  decltype(&DXFColor) m_color = FORMKIT_EXPORT(m_library, DXFColor);
  decltype(&DXFPoint) m_point = FORMKIT_EXPORT(m_library, DXFPoint);
  decltype(&DXFLine) m_line = FORMKIT_EXPORT(m_library, DXFLine);
  decltype(&DXFPolyline) m_polyline = FORMKIT_EXPORT(m_library, DXFPolyline);
  decltype(&DXFRegion) m_region = FORMKIT_EXPORT(m_library, DXFRegion);
  decltype(&DXFClose) m_close = FORMKIT_EXPORT(m_library, DXFClose);
};

TEST_F(DXFExportsTest, AFileWithoutEntitiesIsTheHeadAndTheTail) {
  ASSERT_EQ(m_create(Path("empty.dxf").c_str()), 1);
  EXPECT_EQ(m_close(), 1);
  EXPECT_EQ(m_close(), 0) << "a second close has no file to end";
  EXPECT_EQ(ReadFile(Path("empty.dxf")), OnDisk(kHead + kTail));

  ASSERT_EQ(m_createWithBounds(Path("bounds.dxf").c_str(), 5, -2.5, 1e6, -1, 0.0078125, -0.0000004), 1);
  EXPECT_EQ(m_close(), 1);
  EXPECT_EQ(ReadFile(Path("bounds.dxf")),
            OnDisk("  0\nSECTION\n  2\nHEADER\n"
                   "  9\n$EXTMIN\n 10\n5.000000\n 20\n-2.500000\n 30\n1000000.000000\n"
                   "  9\n$EXTMAX\n 10\n-1.000000\n 20\n0.007812\n 30\n-0.000000\n"
                   "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n" +
                   kTail))
      << "bounds are written as given, min above max included, with six decimals rounded half to even";
}

TEST_F(DXFExportsTest, PointAndLineCarryLayerZeroTwiceAndTheColourComment) {
  ASSERT_EQ(m_create(Path("a.dxf").c_str()), 1);
  EXPECT_EQ(m_point(1, 2.25, -3), 1);
  EXPECT_EQ(m_color(-16777216), 1);
  EXPECT_EQ(m_line(0.1, 123456789.123, 0, 1e-7, -0.5, 2), 1);
  EXPECT_EQ(m_close(), 1);
  EXPECT_EQ(ReadFile(Path("a.dxf")),
            OnDisk(kHead +
                   "  0\nPOINT\n  8\n0\n  8\n0\n 62\n0\n 999\nRGB=0\n"
                   " 10\n1.000000\n 20\n2.250000\n 30\n-3.000000\n"
                   "  0\nLINE\n  8\n0\n  8\n0\n 62\n0\n 999\nRGB=-16777216\n"
                   " 10\n0.100000\n 20\n123456789.123000\n 30\n0.000000\n"
                   " 11\n0.000000\n 21\n-0.500000\n 31\n2.000000\n" +
                   kTail));
}

TEST_F(DXFExportsTest, PolylinesAndRegionsAreThreeDimensionalWithAVertexPerValue) {
  const double x[] = {1, 2, 3}, y[] = {4, 5, 6}, z[] = {7, 8, 9};
  ASSERT_EQ(m_create(Path("poly.dxf").c_str()), 1);
  EXPECT_EQ(m_color(255), 1);
  EXPECT_EQ(m_polyline(x, y, z, 2), 1);
  EXPECT_EQ(m_region(x, y, z, 3), 1);
  EXPECT_EQ(m_polyline(x, y, z, 0), 1);
  EXPECT_EQ(m_region(nullptr, nullptr, nullptr, -4), 1) << "a count below zero writes no vertex";
  EXPECT_EQ(m_close(), 1);

  const std::string head8 = "  0\nPOLYLINE\n  8\n0\n 62\n0\n 999\nRGB=255\n 66\n     1\n 70\n8\n";
  const std::string head9 = "  0\nPOLYLINE\n  8\n0\n 62\n0\n 999\nRGB=255\n 66\n     1\n 70\n9\n";
  const std::string seqend = "  0\nSEQEND\n  8\n0\n";
  EXPECT_EQ(ReadFile(Path("poly.dxf")),
            OnDisk(kHead + head8 + Vertex("255", "1.000000", "4.000000", "7.000000") +
                   Vertex("255", "2.000000", "5.000000", "8.000000") + seqend + head9 +
                   Vertex("255", "1.000000", "4.000000", "7.000000") +
                   Vertex("255", "2.000000", "5.000000", "8.000000") +
                   Vertex("255", "3.000000", "6.000000", "9.000000") + seqend + head8 + seqend + head9 + seqend +
                   kTail));
}

TEST_F(DXFExportsTest, NothingIsWrittenWithoutAnOpenFile) {
  EXPECT_EQ(m_create(Path("missing-folder/a.dxf").c_str()), 0);
  EXPECT_FALSE(std::filesystem::exists(Path("missing-folder")));
  const double v[] = {1};
  EXPECT_EQ(m_point(1, 2, 3), 0);
  EXPECT_EQ(m_line(1, 2, 3, 4, 5, 6), 0);
  EXPECT_EQ(m_polyline(v, v, v, 1), 0);
  EXPECT_EQ(m_region(v, v, v, 1), 0);
  EXPECT_EQ(m_close(), 0);
}

TEST_F(DXFExportsTest, ANewFileLeavesTheOpenOneWithoutItsEndAndKeepsTheColour) {
  EXPECT_EQ(m_color(4242), 1) << "a colour may come before the file";
  ASSERT_EQ(m_create(Path("left.dxf").c_str()), 1);
  m_point(1, 1, 1);
  ASSERT_EQ(m_create(Path("next.dxf").c_str()), 1);
  m_point(0, 0, 0);
  EXPECT_EQ(m_close(), 1);
  const std::string left = ReadFile(Path("left.dxf"));
  EXPECT_TRUE(left.ends_with(OnDisk(" 30\n1.000000\n"))) << "the entities sent so far reach the disk";
  EXPECT_EQ(left.find("EOF"), std::string::npos);
  EXPECT_NE(ReadFile(Path("next.dxf")).find("RGB=4242\r\n"), std::string::npos) << "the colour outlives the file";
}

}  // namespace
