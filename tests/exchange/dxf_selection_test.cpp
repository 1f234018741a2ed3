// The selection file byte for byte: its fixed header, faces at two decimals
// in the face colour, and its file name. The corners and winding of turned
// boxes are read back by another program in dxf_peer_test.cpp.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

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

TEST_F(DXFSelectionTest, TheFixedHeaderThenTwelveFacesABoxAtTwoDecimals) {
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
  std::size_t faces = 0;
  for (std::size_t at = text.find("3DFACE"); at != std::string::npos; at = text.find("3DFACE", at + 1)) ++faces;
  EXPECT_EQ(faces, 12u);
}

TEST_F(DXFSelectionTest, ANullFileNameKeepsTheNameAndAnUnopenedFileClosesQuietly) {
  CDXFSelection selection;
  selection.SetFileName(m_path.c_str());
  EXPECT_EQ(selection.SetFileName(nullptr), 1);
  ASSERT_TRUE(selection.OpenSelection());
  selection.CloseSelection();
  EXPECT_TRUE(std::filesystem::exists(m_path));

  CDXFSelection unopened;
  unopened.SetFileName((m_folder.Path() + "/no/such/folder.dxf").c_str());
  EXPECT_FALSE(unopened.OpenSelection());
  EXPECT_EQ(unopened.CloseSelection(), 1) << "closing an unopened file does nothing and succeeds";
}

}  // namespace
