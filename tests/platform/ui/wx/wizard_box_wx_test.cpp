// The wizards' box on screen over a host emulated in the process: it opens
// from the export with the collar table's holes, and the subset radio
// clicked on screen puts the subset suffix in and makes saving possible.
// (The host keeps the first ten characters of the Name, a Char (10).)
// Its rules and the wizards' whole road are tested headless
// (tests/wizards/).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include "formkit/formkit.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

namespace {

using WizardBoxWxTest = HostedToolkitTest;

TEST_F(WizardBoxWxTest, OpensWithTheHolesAndTheSubsetRadioSetsTheSuffix) {
  m_emulator.GetHost().Do("Metadata Table Pits SetKey \"\\Terravik\\xsects\\collar\\CH\" To \"1\"");
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "3D Drillhole Wizard");
    EXPECT_THAT(user::Entries(box, 1027), ::testing::ElementsAre("link:\\a.ps"));
    EXPECT_FALSE(user::Control(box, 1015).IsEnabled());
    user::Click(box, 1020);
    EXPECT_EQ(dynamic_cast<wxTextCtrl&>(user::Control(box, 1138)).GetValue(), "_subset");
    EXPECT_TRUE(user::Control(box, 1015).IsEnabled());
    EXPECT_TRUE(dynamic_cast<wxRadioButton&>(user::Control(box, 1020)).GetValue());
    EXPECT_FALSE(dynamic_cast<wxRadioButton&>(user::Control(box, 1019)).GetValue());
    user::Screenshot(box, "drillhole-wizard");
    user::Press(box, fk::ui::IDCANCEL);
  });
  EXPECT_EQ(DrillHoleWiz(m_registration.Handle(), "Pits", "", nullptr, nullptr, nullptr, nullptr, 0, nullptr, 1), 0);
  EXPECT_EQ(m_dialogs.Met(), 1);
}

}  // namespace
