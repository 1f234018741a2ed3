// "Reproject multiple tables" on screen: it opens from its export over the
// emulated host, and a tick made on screen reaches the box, which shows the
// missing target. Its rules are tested headless (tests/maptools/).
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>

#include "formkit/formkit.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

namespace {

using ReprojectBoxWxTest = HostedToolkitTest;

TEST_F(ReprojectBoxWxTest, OpensFromItsExportAndATickOnScreenShowsTheMissingTarget) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Reproject multiple tables");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1038));
    ASSERT_EQ(list.GetItemText(0, 0), "Pits");
    list.CheckItem(0, true);
    EXPECT_EQ(list.GetItemText(0, 1), "* Not Selected *");
    user::Screenshot(box, "reproject-tables");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(MultiReProject(m_registration.Handle()), 0);
}

}  // namespace
