// The map tools' boxes on screen over a host emulated in the process: each
// opens from its export with its template's title, the window choosers show
// their rows with check boxes, and a tick made on screen comes back. Their
// rules are tested without a screen (tests/maptools/map_boxes_test.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>

#include "dialogs_met.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "sim/host/emulator.h"
#include "sim/host/linked_c_api.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

using ::testing::ElementsAre;

namespace {

class MapBoxesWxTest : public ToolkitTest {
 protected:
  ScopedFolder m_folder;
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
  DialogsMet m_dialogs;
};

TEST_F(MapBoxesWxTest, EachBoxOpensFromItsExportAndAChoosersTickComesBack) {
  // A table of objects, from its file as the user opens it.
  sim::Host& host = m_emulator.GetHost();
  host.Do("Set CoordSys NonEarth Units \"m\"");
  host.Do("Create Table Made (Name Char (10))");
  host.Do("Insert Into Made (Name) Values(\"East\")");
  host.Do("Dim p As Object");
  host.Do("Create Point Into Variable p (1500.25, 250.5)");
  host.Do("Update Made Set Obj = p Where RowID = 1");
  host.Do("Commit Table Made As \"" + m_folder.Path() + "/Pits.tab\"");
  host.Do("Close Table Made");
  host.Do("Open Table \"" + m_folder.Path() + "/Pits.tab\"");
  m_emulator.AddScript("terravik.cbx");
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
