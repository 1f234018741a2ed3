// "3D Options" on screen: the sheet opens from its export with its two
// pages built from their templates, and OK hands the directory back. Its
// rules are tested headless (tests/viewer/).
#include <gtest/gtest.h>
#include <wx/bookctrl.h>
#include <wx/propdlg.h>

#include "formkit/formkit.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

namespace {

using OptionsSheetWxTest = HostedToolkitTest;

TEST_F(OptionsSheetWxTest, BothPagesShowAndOkHandsTheDirectoryBack) {
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "3D Options");
    auto& sheet = dynamic_cast<wxPropertySheetDialog&>(box);
    ASSERT_EQ(sheet.GetBookCtrl()->GetPageCount(), 2u);
    EXPECT_EQ(sheet.GetBookCtrl()->GetPageText(0), "System");
    user::Screenshot(box, "3d-options-system");
    sheet.GetBookCtrl()->SetSelection(1);
    EXPECT_EQ(sheet.GetBookCtrl()->GetPageText(1), "Display");
    user::Screenshot(box, "3d-options-display");
    user::PressButton(*box.FindWindow(wxID_OK));
  });
  char directory[260] = "/tmp/formkit-3d/";
  int deleteOnExit = 1;
  EXPECT_EQ(Tvik3DOptions(directory, &deleteOnExit), 1);
  EXPECT_STREQ(directory, "/tmp/formkit-3d/");
  EXPECT_EQ(deleteOnExit, 1);
}

}  // namespace
