// The map tools' dialog boxes over the host emulator, each driven on the
// headless backend as a user would: the section plane box and the two
// window choosers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "support/host/emulated_host.h"
#include "support/session_fixture.h"

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using fk::ui::HeadlessDialog;

namespace {

// Control ids and key names as the system's description gives them.
enum { LAYER = 1122, X = 1118, Y = 1119, Z = 1120, BEARING = 1121 };
enum { WINDOWS = 1000, FIXED_EXTENTS = 1001, FIXED_SCALE = 1002, UNSELECT_ALL = 1004, EXTENTS_TEXT = 1033,
       SCALE_TEXT = 1034, PAN = 1025, SYMBOL = 1042 };

class MapBoxesOnEmulator : public EmulatorSessionTest {
 protected:
  // The lines of the table file's metadata block.
  static std::vector<std::string> MetadataBlock(const std::string& tabPath) {
    const std::string text = ReadFile(tabPath);
    std::vector<std::string> lines;
    for (std::size_t start = text.find("begin_metadata"), end; start != std::string::npos; start = end + 1) {
      if ((end = text.find('\n', start)) == std::string::npos) break;
      lines.push_back(text.substr(start, end - start - (text[end - 1] == '\r')));
    }
    return lines;
  }
  std::vector<std::string> Plane(const HeadlessDialog& box) {
    return {box.View().Text(X), box.View().Text(Y), box.View().Text(Z), box.View().Text(BEARING)};
  }
  int ChooseTable(HeadlessDialog& box, const std::string& name) {
    for (int i = 0; i < box.View().ComboCount(LAYER); ++i)
      if (box.View().ComboText(LAYER, i) == name) box.ChooseCombo(LAYER, i);
    return box.View().ComboCurSel(LAYER);
  }
};

TEST_F(MapBoxesOnEmulator, ASectionPlaneIsWrittenInBothKeyFamiliesAndReadFromTheMapperLayer) {
  const std::string collars = Open("collars", "collars");
  Open("objects", "objects");
  g_Cartoma.Do("Map From objects, collars");
  const std::string before = ReadFile(collars);

  // No layer is a section yet: the box offers the first layer with zeros.
  // Cancel writes nothing.
  m_ui.OnDialog(1023, [&](HeadlessDialog& box) {
    EXPECT_EQ(box.View().ComboText(LAYER, box.View().ComboCurSel(LAYER)), "objects");
    EXPECT_THAT(Plane(box), ElementsAre("0", "0", "0", "0"));
    box.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(SetLayerSectionPlane(m_registration.Handle()), 0);
  EXPECT_EQ(ReadFile(collars), before);

  m_ui.OnDialog(1023, [&](HeadlessDialog& box) {
    ASSERT_GE(ChooseTable(box, "collars"), 0);
    box.Type(X, "255120.5");
    box.Type(Y, "5925210");
    box.Type(Z, "not a number");
    box.Type(BEARING, "90");
    box.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(SetLayerSectionPlane(m_registration.Handle()), 1);
  std::vector<std::string> expected = {"begin_metadata"};
  for (const char* family : {"\"\\Terravik\\xsects\\", "\"\\Zelvar3D\\xsects\\"})
    for (const char* entry : {"type\" = \"Section\"", "xs_n\" = \"5925210.000000\"", "xs_e\" = \"255120.500000\"",
                              "xs_r\" = \"0.000000\"", "xs_o\" = \"1.570796\"", "xs_l\" = \"10000\"",
                              "xs_vr\" = \"10000\"", "xs_xs\" = \"0\"", "xs_v\" = \"1\""})
      expected.push_back(family + std::string(entry));
  EXPECT_THAT(MetadataBlock(collars), IsSupersetOf(expected));
  EXPECT_EQ(MetadataBlock(collars).size(), expected.size() + 2) << "the two hole id keys of the sample stay";

  // The mapper's section layer is found; the second family is read first.
  g_Cartoma.Do("Metadata Table collars SetKey \"\\Zelvar3D\\xsects\\xs_e\" To \"7.25\"");
  m_ui.OnDialog(1023, [&](HeadlessDialog& box) {
    EXPECT_EQ(box.View().ComboText(LAYER, box.View().ComboCurSel(LAYER)), "collars");
    EXPECT_THAT(Plane(box), ElementsAre("7.2", "5925210.0", "0.0", "90.0"));
    ChooseTable(box, "objects");
    EXPECT_THAT(Plane(box), ElementsAre("0.0", "0.0", "0.0", "0.0"));
    box.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(SetLayerSectionPlane(m_registration.Handle()), 0);
}

TEST_F(MapBoxesOnEmulator, TheWindowChoosersGiveBackTicksMethodPanAndSymbolOnOkOnly) {
  const char* items[] = {"Map1\tLongitude / Latitude", "Map2", "Map3\tA\tB"};
  int32_t ticks[] = {1, 0, 5};
  int32_t method = 0;
  m_ui.OnDialog(1000, [&](HeadlessDialog& box) {
    const auto row = [&](int r) {
      return box.View().ListCtrlText(WINDOWS, r, 0) + "|" + box.View().ListCtrlText(WINDOWS, r, 1) + "|" +
             (box.View().ListCtrlCheck(WINDOWS, r) ? "x" : "");
    };
    EXPECT_THAT((std::vector<std::string>{row(0), row(1), row(2)}),
                ElementsAre("  Map1|Longitude / Latitude|x", "  Map2||", "  Map3|A\tB|x"));
    EXPECT_TRUE(box.View().IsShown(EXTENTS_TEXT));
    EXPECT_FALSE(box.View().IsShown(SCALE_TEXT));
    box.SetCheck(FIXED_SCALE, 1);
    EXPECT_TRUE(box.View().IsShown(SCALE_TEXT));
    EXPECT_FALSE(box.View().IsShown(EXTENTS_TEXT));
    EXPECT_EQ(box.View().Check(FIXED_EXTENTS), 0);
    box.Press(UNSELECT_ALL);
    box.CheckRow(WINDOWS, 1, true);
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(LinkWinodowListDialog(items, ticks, 3, &method, m_registration.Handle()), 1);
  EXPECT_THAT(ticks, ElementsAre(0, 1, 0));
  EXPECT_EQ(method, 1);
  EXPECT_EQ(theApp.GetProfileInt("LinkedWindows", "MapColSize", 0), 235);
  EXPECT_EQ(theApp.GetProfileInt("LinkedWindows", "ProjColSize", 0), 121);

  // Cancel gives nothing back.
  int32_t pan = 0;
  char symbol[64] = "Symbol (34,255,12)";
  m_emulator.GetHost().QueueSymbol("Symbol (35,16711680,18)");
  m_ui.OnDialog(1002, [&](HeadlessDialog& box) {
    box.Press(SYMBOL);
    box.SetCheck(PAN, 1);
    box.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(CurPosWinodowListDialog(items, ticks, 3, &pan, symbol), 0);
  EXPECT_THAT(ticks, ElementsAre(0, 1, 0));
  EXPECT_EQ(pan, 0);
  EXPECT_STREQ(symbol, "Symbol (34,255,12)");

  m_emulator.GetHost().QueueSymbol("Symbol (35,16711680,18)");
  m_ui.OnDialog(1002, [&](HeadlessDialog& box) {
    box.Press(SYMBOL);
    box.SetCheck(PAN, 1);
    box.CheckRow(WINDOWS, 2, true);
    box.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(CurPosWinodowListDialog(items, ticks, 3, &pan, symbol), 1);
  EXPECT_THAT(ticks, ElementsAre(0, 1, 1));
  EXPECT_EQ(pan, 1);
  EXPECT_STREQ(symbol, "Symbol (35,16711680,18)");
}

}  // namespace
