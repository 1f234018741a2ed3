// The headless backend holds dialog boxes to their templates: a control the
// template lacks, a control used as what it is not, or a button the user
// couldn't press is a fault of the dialog box's code.
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/ui/dialog_template.h"
#include "platform/ui/headless/headless_ui.h"
#include "platform/ui/probe_dialog.h"
#include "support/session_fixture.h"

namespace {

using HeadlessUiTest = HeadlessTest;

TEST_F(HeadlessUiTest, UnknownOrMisusedControlsBoxesOutOfOrderAndPressesTheUserCantMakeAreFaults) {
  ProbeDialog dialog(1003);  // over the field selection template
  dialog.onInit = [](fk::ui::DialogView& view) { view.SetText(1099, "x"); };
  EXPECT_THROW(dialog.DoModal(), std::logic_error);
  dialog.onInit = [](fk::ui::DialogView& view) { view.ListAdd(1030, "x"); };
  EXPECT_THROW(dialog.DoModal(), std::logic_error);
  dialog.onInit = [](fk::ui::DialogView& view) { view.ListText(1027, 0); };
  EXPECT_THROW(dialog.DoModal(), std::logic_error) << "no entry 0 in an empty list";
  EXPECT_THROW(fk::ui::GetDialogTemplate(4242), std::out_of_range) << "a template the library lacks";
  dialog.onInit = nullptr;
  m_ui.OnDialog(1009, [](fk::ui::HeadlessDialog& user) { user.Press(fk::ui::IDOK); });
  EXPECT_THROW(dialog.DoModal(), std::logic_error) << "box 1003 opened where 1009 was expected";

  // The user can only press a button that is shown and enabled.
  dialog.onInit = [](fk::ui::DialogView& view) {
    view.Enable(1030, false);
    view.Show(1031, false);
  };
  m_ui.OnDialog(1003, [](fk::ui::HeadlessDialog& user) { EXPECT_THROW(user.Press(1030), std::logic_error); });
  m_ui.OnDialog(1003, [](fk::ui::HeadlessDialog& user) { EXPECT_THROW(user.Press(1031), std::logic_error); });
  m_ui.OnDialog(1003, [](fk::ui::HeadlessDialog& user) { EXPECT_THROW(user.Press(1027), std::logic_error); });
  for (int i = 0; i < 3; ++i) EXPECT_EQ(dialog.DoModal(), fk::ui::IDCANCEL);
}

}  // namespace
