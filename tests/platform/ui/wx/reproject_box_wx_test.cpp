// "Reproject multiple tables" on screen over a host emulated in the
// process: it opens from its export, lists the open table with a check box,
// and a tick made on screen reaches the box, which shows the missing
// target and offers the table's folder. Its rules are tested without a
// screen (tests/maptools/reproject_test.cpp).
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>
#include <wx/textctrl.h>

#include "formkit/formkit.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

namespace {

using ReprojectBoxWxTest = HostedToolkitTest;

TEST_F(ReprojectBoxWxTest, OpensFromItsExportAndATickOnScreenShowsTheMissingTarget) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Reproject multiple tables");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1038));
    ASSERT_EQ(list.GetItemCount(), 1);
    EXPECT_EQ(list.GetItemText(0, 0), "Pits");
    EXPECT_FALSE(list.IsItemChecked(0));
    list.CheckItem(0, true);
    EXPECT_EQ(list.GetItemText(0, 1), "* Not Selected *");
    EXPECT_EQ(dynamic_cast<wxTextCtrl&>(user::Control(box, 1043)).GetValue(), m_folder.Path() + "/");
    EXPECT_FALSE(user::Control(box, 1043).IsEnabled()) << "until \"In specific directory\" is ticked";
    user::Screenshot(box, "reproject-tables");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(MultiReProject(m_registration.Handle()), 0);
  EXPECT_EQ(m_dialogs.Met(), 1);
}

}  // namespace
