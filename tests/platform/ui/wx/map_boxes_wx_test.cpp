// The map tools' boxes on screen over a host emulated in the process: each
// opens from its export with its template's title, the window choosers show
// their rows with check boxes, and a tick made on screen comes back. Their
// rules are tested without a screen (tests/maptools/map_boxes_test.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

using ::testing::ElementsAre;

namespace {

using MapBoxesWxTest = HostedToolkitTest;

TEST_F(MapBoxesWxTest, EachBoxOpensFromItsExportAndAChoosersTickComesBack) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Window in Plain");
    EXPECT_THAT(user::Entries(box, 1122), ElementsAre("Pits"));
    user::Screenshot(box, "section-plane");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(SetLayerSectionPlane(m_registration.Handle()), 0);

  const char* items[] = {"Map1\tLongitude / Latitude", "Map2"};
  int32_t ticks[] = {1, 0};
  int32_t method = 1;
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Map Linking");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1000));
    EXPECT_EQ(list.GetItemText(0, 1), "Longitude / Latitude");
    EXPECT_TRUE(list.IsItemChecked(0));
    list.CheckItem(1, true);
    user::Screenshot(box, "map-linking");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(LinkWinodowListDialog(items, ticks, 2, &method, m_registration.Handle()), 1);
  EXPECT_THAT(ticks, ElementsAre(1, 1));
  EXPECT_EQ(method, 1);

  int32_t pan = 1;
  char symbol[64] = "";
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Cursor Position");
    user::Screenshot(box, "cursor-position");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(CurPosWinodowListDialog(items, ticks, 2, &pan, symbol), 0);
  EXPECT_EQ(m_dialogs.Met(), 3);
}

}  // namespace
