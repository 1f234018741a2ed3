// The selection file: its fixed header, and boxes of twelve triangles
// whose corners and winding are read back from the text.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "exchange/dxf_selection.h"
#include "exchange/dxf_text.h"
#include "support/session_fixture.h"

namespace {

const std::string kHeader =
    "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1006\n"
    "  9\n$UCSORG\n  10\n0.0\n  20\n0.0\n  30\n0.0\n"
    "  9\n$UCSXDIR\n  10\n1.0\n  20\n0.0\n  30\n0.0\n"
    "  9\n$TILEMODE\n  70\n1\n"
    "  9\n$UCSYDIR\n  10\n0.0\n  20\n1.0\n  30\n0.0\n"
    "  9\n$EXTMIN\n  10\n0.0\n  20\n0.0\n  30\n0.0\n"
    "  9\n$EXTMAX\n  10\n100000.0\n  20\n100000.0\n  30\n10000.0\n"
    "    0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
const std::string kTail = "  0\nENDSEC\n  0\nEOF\n";

struct BoxCorner {
  double x, y, z;
};
using Face = std::array<BoxCorner, 4>;

// The order of the faces is checked against the corners of box_geometry.h
// in dxf_peer_test.cpp.

// The 3DFACEs of a selection file, each with its colour checked.
std::vector<Face> ReadFaces(const std::string& onDisk, int color) {
  std::istringstream in(onDisk);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    EXPECT_TRUE(line.ends_with('\r')) << "every line ends in CR LF";
    lines.push_back(line.substr(0, line.size() - 1));
  }
  std::vector<Face> faces;
  for (std::size_t at = 0; at + 29 < lines.size(); ++at) {
    if (lines[at] != "3DFACE") continue;
    EXPECT_EQ(lines[at + 1], "  8");
    EXPECT_EQ(lines[at + 2], "0");
    EXPECT_EQ(lines[at + 3], " 62");
    EXPECT_EQ(lines[at + 4], std::to_string(color));
    Face face;
    for (int corner = 0; corner < 4; ++corner) {
      double* value[3] = {&face[corner].x, &face[corner].y, &face[corner].z};
      for (int axis = 0; axis < 3; ++axis) {
        const std::size_t code = at + 5 + 2 * (3 * corner + axis);
        EXPECT_EQ(lines[code], " " + std::to_string(axis + 1) + std::to_string(corner));
        EXPECT_EQ(lines[code + 1].size() - lines[code + 1].find('.'), 3u) << "two decimals: " << lines[code + 1];
        *value[axis] = std::stod(lines[code + 1]);
      }
    }
    faces.push_back(face);
  }
  return faces;
}

void ExpectNear(const BoxCorner& actual, const BoxCorner& expected, const char* what) {
  EXPECT_NEAR(actual.x, expected.x, 0.006) << what;
  EXPECT_NEAR(actual.y, expected.y, 0.006) << what;
  EXPECT_NEAR(actual.z, expected.z, 0.006) << what;
}

class DXFSelectionTest : public ::testing::Test {
 protected:
  std::string WriteBoxes(const std::vector<std::array<double, 8>>& boxes, int color = 1) {
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

TEST_F(DXFSelectionTest, NoPositionsGiveTheFixedHeaderAndAnEmptyEntitiesSection) {
  EXPECT_EQ(WriteBoxes({}), OnDisk(kHeader + kTail));
}

TEST_F(DXFSelectionTest, AStandingBoxIsAxisAligned) {
  const std::string text = WriteBoxes({{200000.004, 10, -5, 4, 2, 6, 90, 0}}, 7);
  ASSERT_TRUE(text.starts_with(OnDisk(kHeader)));
  ASSERT_TRUE(text.ends_with(OnDisk(kTail)));
  EXPECT_NE(text.find(OnDisk("  0\n3DFACE\n  8\n0\n 62\n7\n"
                             " 10\n199998.00\n 20\n11.00\n 30\n-2.00\n"
                             " 11\n200002.00\n 21\n11.00\n 31\n-2.00\n"
                             " 12\n200002.00\n 22\n9.00\n 32\n-2.00\n"
                             " 13\n199998.00\n 23\n11.00\n 33\n-2.00\n")),
            std::string::npos)
      << "the first face, beyond the fixed extents and rounded to two decimals";
  const std::vector<Face> faces = ReadFaces(text, 7);
  ASSERT_EQ(faces.size(), 12u);
  for (const Face& face : faces) ExpectNear(face[3], face[0], "the fourth point repeats the first");
}

TEST_F(DXFSelectionTest, TiltAndTurnOfNinetyPutPlusXOnTheNegativeYSide) {
  const std::vector<Face> faces = ReadFaces(WriteBoxes({{0, 0, 0, 10, 2, 4, 90, 90}}), 1);
  ASSERT_EQ(faces.size(), 12u);
  // T1 is the corner at (+hx, +hy, +hz): its x offset lands at y = -5.
  ExpectNear(faces[0][1], {1, -5, 2}, "T1");
}

// Seen from outside, every triangle runs clockwise: its normal by the
// right-hand rule points into the box. Each of the six sides gets two.
TEST_F(DXFSelectionTest, EveryTriangleRunsClockwiseSeenFromOutside) {
  const BoxCorner centre{5000, -300, 120};
  for (const auto& [tilt, turn] : {std::pair{90.0, 0.0}, {35.0, 20.0}, {0.0, 135.0}, {-60.0, -45.0}}) {
    SCOPED_TRACE("tilt " + std::to_string(tilt) + ", turn " + std::to_string(turn));
    const std::vector<Face> faces = ReadFaces(WriteBoxes({{centre.x, centre.y, centre.z, 80, 60, 40, tilt, turn}}), 1);
    ASSERT_EQ(faces.size(), 12u);
    for (const Face& f : faces) {
      const BoxCorner u{f[1].x - f[0].x, f[1].y - f[0].y, f[1].z - f[0].z};
      const BoxCorner v{f[2].x - f[0].x, f[2].y - f[0].y, f[2].z - f[0].z};
      const BoxCorner normal{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
      const BoxCorner outward{(f[0].x + f[1].x + f[2].x) / 3 - centre.x, (f[0].y + f[1].y + f[2].y) / 3 - centre.y,
                              (f[0].z + f[1].z + f[2].z) / 3 - centre.z};
      EXPECT_LT(normal.x * outward.x + normal.y * outward.y + normal.z * outward.z, 0);
    }
  }
}

TEST_F(DXFSelectionTest, TheFileNameKeepsAtMost255CharactersAndANullKeepsIt) {
  CDXFSelection selection;
  selection.SetFileName(m_path.c_str());
  EXPECT_EQ(selection.SetFileName(nullptr), 1);
  ASSERT_TRUE(selection.OpenSelection());
  selection.CloseSelection();
  EXPECT_TRUE(std::filesystem::exists(m_path));

  const std::string folder = m_folder.Path() + "/";
  const std::string name(255 - folder.size(), 'n');
  CDXFSelection longName;
  longName.SetFileName((folder + name + "-cut.dxf").c_str());
  ASSERT_TRUE(longName.OpenSelection());
  longName.CloseSelection();
  EXPECT_TRUE(std::filesystem::exists(folder + name));

  CDXFSelection unopened;
  unopened.SetFileName((folder + "no/such/folder.dxf").c_str());
  EXPECT_FALSE(unopened.OpenSelection());
  EXPECT_EQ(unopened.CloseSelection(), 1) << "closing an unopened file does nothing and succeeds";
}

}  // namespace
