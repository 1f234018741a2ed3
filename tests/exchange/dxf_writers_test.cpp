// The DXF files of both writers: byte for byte (the exports called by name
// on a freshly loaded library, as a host script calls them; the selection
// file with its fixed header and faces at two decimals), and read back by
// ezdxf's strict reader and audit (check_dxf.py) with the entities, colours,
// vertices and closed flags compared (skipped when python3 lacks ezdxf).
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "exchange/dxf_lib.h"
#include "exchange/dxf_selection.h"
#include "formkit/formkit.h"
#include "support/formkit_library.h"
#include "support/session_fixture.h"

using Point3 = std::array<double, 3>;
using Points = std::vector<Point3>;

namespace {

// The corners of a selection box worked out on their own, from the angles'
// meaning: the offset is turned about x by 90 less the tilt, then about z by
// the negated turn, with the exact value of pi. (-hx, +hy), (+hx, +hy),
// (+hx, -hy), (-hx, -hy) at +hz, then the same at -hz.
std::array<Point3, 8> ExpectedBox(Point3 centre, Point3 size, double tilt, double turn) {
  const double a = (90.0 - tilt) * std::numbers::pi / 180.0, b = -turn * std::numbers::pi / 180.0;
  const double sx[4] = {-size[0] / 2, size[0] / 2, size[0] / 2, -size[0] / 2};
  const double sy[4] = {size[1] / 2, size[1] / 2, -size[1] / 2, -size[1] / 2};
  std::array<Point3, 8> box;
  for (int i = 0; i < 8; ++i) {
    const double ox = sx[i % 4], oy = sy[i % 4], oz = i < 4 ? size[2] / 2 : -size[2] / 2;
    const double y1 = oy * std::cos(a) - oz * std::sin(a), z1 = oy * std::sin(a) + oz * std::cos(a);
    box[i] = {centre[0] + ox * std::cos(b) - y1 * std::sin(b), centre[1] + ox * std::sin(b) + y1 * std::cos(b),
              centre[2] + z1};
  }
  return box;
}

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

TEST_F(DXFExportsTest, AFileWithoutEntitiesIsTheHeadAndTheTailAndNothingIsWrittenWithoutAnOpenFile) {
  const double v[] = {1};
  EXPECT_EQ(m_create(Path("missing-folder/a.dxf").c_str()), 0);
  EXPECT_FALSE(std::filesystem::exists(Path("missing-folder")));
  EXPECT_EQ(m_point(1, 2, 3) + m_line(1, 2, 3, 4, 5, 6) + m_polyline(v, v, v, 1) + m_region(v, v, v, 1) + m_close(), 0);
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

  // A new file leaves the open one without its end, and the colour outlives the file.
  EXPECT_EQ(m_color(4242), 1) << "a colour may come before the file";
  ASSERT_EQ(m_create(Path("left.dxf").c_str()), 1);
  m_point(1, 1, 1);
  ASSERT_EQ(m_create(Path("next.dxf").c_str()), 1);
  m_point(0, 0, 0);
  EXPECT_EQ(m_close(), 1);
  const std::string left = ReadFile(Path("left.dxf"));
  EXPECT_TRUE(left.ends_with(OnDisk(" 30\n1.000000\n"))) << "the entities sent so far reach the disk";
  EXPECT_EQ(left.find("EOF"), std::string::npos);
  EXPECT_NE(ReadFile(Path("next.dxf")).find("RGB=4242\r\n"), std::string::npos);
}

TEST_F(DXFExportsTest, EntitiesCarryLayerZeroAndTheColourCommentAndPolylinesAVertexPerValue) {
  const double x[] = {1, 2, 3}, y[] = {4, 5, 6}, z[] = {7, 8, 9};
  ASSERT_EQ(m_create(Path("a.dxf").c_str()), 1);
  EXPECT_EQ(m_point(1, 2.25, -3), 1);
  EXPECT_EQ(m_color(-16777216), 1);
  EXPECT_EQ(m_line(0.1, 123456789.123, 0, 1e-7, -0.5, 2), 1);
  EXPECT_EQ(m_color(255), 1);
  EXPECT_EQ(m_polyline(x, y, z, 2), 1);
  EXPECT_EQ(m_region(x, y, z, 3), 1);
  EXPECT_EQ(m_polyline(x, y, z, 0), 1);
  EXPECT_EQ(m_region(nullptr, nullptr, nullptr, -4), 1) << "a count below zero writes no vertex";
  EXPECT_EQ(m_close(), 1);

  const std::string head8 = "  0\nPOLYLINE\n  8\n0\n 62\n0\n 999\nRGB=255\n 66\n     1\n 70\n8\n";
  const std::string head9 = "  0\nPOLYLINE\n  8\n0\n 62\n0\n 999\nRGB=255\n 66\n     1\n 70\n9\n";
  const std::string seqend = "  0\nSEQEND\n  8\n0\n";
  const std::string v1 = Vertex("255", "1.000000", "4.000000", "7.000000"),
                    v2 = Vertex("255", "2.000000", "5.000000", "8.000000");
  EXPECT_EQ(ReadFile(Path("a.dxf")),
            OnDisk(kHead +
                   "  0\nPOINT\n  8\n0\n  8\n0\n 62\n0\n 999\nRGB=0\n"
                   " 10\n1.000000\n 20\n2.250000\n 30\n-3.000000\n"
                   "  0\nLINE\n  8\n0\n  8\n0\n 62\n0\n 999\nRGB=-16777216\n"
                   " 10\n0.100000\n 20\n123456789.123000\n 30\n0.000000\n"
                   " 11\n0.000000\n 21\n-0.500000\n 31\n2.000000\n" +
                   head8 + v1 + v2 + seqend + head9 + v1 + v2 + Vertex("255", "3.000000", "6.000000", "9.000000") +
                   seqend + head8 + seqend + head9 + seqend + kTail));
}

const std::string kHeader =
    "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1006\n"
    "  9\n$UCSORG\n  10\n0.0\n  20\n0.0\n  30\n0.0\n"
    "  9\n$UCSXDIR\n  10\n1.0\n  20\n0.0\n  30\n0.0\n"
    "  9\n$TILEMODE\n  70\n1\n"
    "  9\n$UCSYDIR\n  10\n0.0\n  20\n1.0\n  30\n0.0\n"
    "  9\n$EXTMIN\n  10\n0.0\n  20\n0.0\n  30\n0.0\n"
    "  9\n$EXTMAX\n  10\n100000.0\n  20\n100000.0\n  30\n10000.0\n"
    "    0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";

class DXFSelectionTest : public ::testing::Test {
 protected:
  // The file written with the boxes given as centre, size, tilt and turn.
  std::string WriteBoxes(const std::vector<std::array<double, 8>>& boxes, int color) {
    CDXFSelection selection;
    selection.SetFileName(m_path.c_str());
    selection.SetFaceColor(color);
    EXPECT_TRUE(selection.OpenSelection());
    for (const auto& b : boxes) selection.WriteBox(b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7]);
    EXPECT_EQ(selection.CloseSelection(), 1);
    return ReadFile(m_path);
  }

  ScopedFolder m_folder;
  std::string m_path = m_folder.Path() + "/Selection.dxf";
};

TEST_F(DXFSelectionTest, TheFixedHeaderThenTheFacesAtTwoDecimalsAndANullNameKeepsTheName) {
  EXPECT_EQ(WriteBoxes({}, 1), OnDisk(kHeader + kTail));

  const std::string text = WriteBoxes({{200000.004, 10, -5, 4, 2, 6, 90, 0}}, 7);
  EXPECT_TRUE(text.starts_with(OnDisk(kHeader)));
  EXPECT_TRUE(text.ends_with(OnDisk(kTail)));
  EXPECT_NE(text.find(OnDisk("  0\n3DFACE\n  8\n0\n 62\n7\n"
                             " 10\n199998.00\n 20\n11.00\n 30\n-2.00\n"
                             " 11\n200002.00\n 21\n11.00\n 31\n-2.00\n"
                             " 12\n200002.00\n 22\n9.00\n 32\n-2.00\n"
                             " 13\n199998.00\n 23\n11.00\n 33\n-2.00\n")),
            std::string::npos)
      << "the first face of a standing box, beyond the fixed extents; the fourth point repeats the first";

  // A null file name keeps the name; an unopened file closes quietly.
  CDXFSelection selection;
  selection.SetFileName(m_path.c_str());
  EXPECT_EQ(selection.SetFileName(nullptr), 1);
  std::filesystem::remove(m_path);
  ASSERT_TRUE(selection.OpenSelection());
  selection.CloseSelection();
  EXPECT_TRUE(std::filesystem::exists(m_path));

  CDXFSelection unopened;
  unopened.SetFileName((m_folder.Path() + "/no/such/folder.dxf").c_str());
  EXPECT_FALSE(unopened.OpenSelection());
  EXPECT_EQ(unopened.CloseSelection(), 1) << "closing an unopened file does nothing and succeeds";
}

constexpr const char* kPython = "/usr/bin/python3";

// What one file should hold, as the JSON the checker reads (numbers in
// their shortest exact form).
struct Expectation {
  std::string path;
  double tolerance;
  std::string header;
  std::vector<std::string> entities;

  void Entity(const char* type, int color, const Points& points, bool closed = false) {
    entities.push_back(fmt::format(R"({{"type": "{}", "color": {}, "closed": {}, "points": {}}})", type, color,
                                   closed, points));
  }
  std::string Json() const {
    return fmt::format(R"({{"path": "{}", "tolerance": {}{}, "entities": [{}]}})", path, tolerance, header,
                       fmt::join(entities, ", "));
  }
};

std::string Extents(const Point3& min, const Point3& max) {
  return fmt::format(R"(, "$EXTMIN": {}, "$EXTMAX": {})", min, max);
}

TEST(DXFPeerTest, FilesOfBothWritersReadBackAsWritten) {
  if (std::system((std::string(kPython) + " -c 'import ezdxf' >/dev/null 2>&1").c_str()) != 0)
    GTEST_SKIP() << "ezdxf can't be imported by " << kPython << ": the DXF files were not read back";
  ScopedFolder folder;
  std::mt19937 random{7};
  std::uniform_real_distribution<double> coordinate(-1e6, 1e6);
  Expectation entities{folder.Path() + "/entities.dxf", 1e-6, Extents({-10, -20, -30}, {10, 20, 30}), {}};
  {
    CDXFLib dxf;
    ASSERT_EQ(dxf.DXFCreateWithBounds(entities.path, -10, -20, -30, 10, 20, 30), 1);
    dxf.DXFColor(0x00FF8000);
    dxf.DXFPoint(512345.125, 7012345.5, -12.25);
    entities.Entity("POINT", 0, {{512345.125, 7012345.5, -12.25}});
    dxf.DXFLine(0, 0, 0, -1.5, 2.5e5, 3);
    entities.Entity("LINE", 0, {{0, 0, 0}, {-1.5, 2.5e5, 3}});
    for (int count : {2, 3, 0, 500}) {
      std::vector<double> x(count), y(count), z(count);
      Points points;
      for (int i = 0; i < count; ++i) {
        x[i] = coordinate(random), y[i] = coordinate(random), z[i] = coordinate(random) / 1000;
        points.push_back({x[i], y[i], z[i]});
      }
      dxf.DXFPolyline(x.data(), y.data(), z.data(), count);
      entities.Entity("POLYLINE", 0, points, false);
      dxf.DXFRegion(x.data(), y.data(), z.data(), count);
      entities.Entity("POLYLINE", 0, points, true);
    }
    ASSERT_EQ(dxf.DXFClose(), 1);
  }
  Expectation boxes{folder.Path() + "/selection.dxf", 0.006, Extents({0, 0, 0}, {100000, 100000, 10000}), {}};
  {
    CDXFSelection selection;
    selection.SetFileName(boxes.path.c_str());
    selection.SetFaceColor(1);
    ASSERT_TRUE(selection.OpenSelection());
    std::uniform_real_distribution<double> angle(-180, 180);
    for (int box = 0; box < 6; ++box) {
      const Point3 centre{coordinate(random), coordinate(random), coordinate(random) / 100};
      const Point3 size{1 + box * 10.0, 2 + box * 5.0, box == 3 ? 0.0 : 3.0};
      const double tilt = angle(random), turn = angle(random);
      selection.WriteBox(centre[0], centre[1], centre[2], size[0], size[1], size[2], tilt, turn);
      const std::array<Point3, 8> c = ExpectedBox(centre, size, tilt, turn);
      const auto face = [&](int a, int b, int d) { boxes.Entity("3DFACE", 1, {c[a], c[b], c[d], c[a]}); };
      face(0, 1, 2), face(0, 2, 3), face(4, 6, 5), face(4, 7, 6);
      for (int i = 0; i < 4; ++i) face(i, 4 + i, (i + 1) % 4), face(4 + i, 4 + (i + 1) % 4, (i + 1) % 4);
    }
    ASSERT_EQ(selection.CloseSelection(), 1);
  }

  const std::string expectations =
      folder.Write("expectations.json", fmt::format("[{},\n{}]\n", entities.Json(), boxes.Json()));
  const std::string command = std::string(kPython) + " " FORMKIT_SOURCE_DIR "/tests/exchange/check_dxf.py " +
                              expectations + " > " + folder.Path() + "/report 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << ReadFile(folder.Path() + "/report");
}

}  // namespace
