// The field selection box on screen, through the export of a loaded
// libformkit.so that chose the toolkit itself. The box's own rules are
// tested without a screen (tests/services/select_fields_test.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/listbox.h>

#include <cstdlib>

#include "formkit/formkit.h"
#include "services/select_fields_dlg.h"
#include "support/formkit_library.h"
#include "dialogs_met.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

using ::testing::ElementsAre;

namespace {

constexpr int AVAILABLE = CSelectFieldsDlg::IDC_AVAILABLE;
constexpr int SELECTED = CSelectFieldsDlg::IDC_SELECTED;

using SelectFieldsWxTest = ToolkitTest;

TEST_F(SelectFieldsWxTest, TheExportChoosesTheToolkitAndMovesABlockInReverse) {
  const char* names[5] = {"HoleID", "From", "To", "Au_ppm", "holeid"};
  int32_t flags[5] = {0, 0, 0, 1, 0};
  DialogsMet dialogs;
  setenv("FORMKIT_UI", "wx", 1);
  FormkitLibrary library(false);  // the built library, beside libformkit-wx.so
  auto selectFields = FORMKIT_EXPORT(library, SelectFieldsDialog);
  dialogs.Use([](wxDialog& box) {
    EXPECT_THAT(user::Entries(box, AVAILABLE), ElementsAre("HoleID", "From", "To", "holeid"));
    EXPECT_THAT(user::Entries(box, SELECTED), ElementsAre("Au_ppm"));
    user::SelectEntries(box, AVAILABLE, {1, 2});
    user::Press(box, CSelectFieldsDlg::IDC_ADD);
    EXPECT_THAT(user::Entries(box, SELECTED), ElementsAre("Au_ppm", "To", "From"));
    auto& selected = dynamic_cast<wxListBox&>(user::Control(box, SELECTED));
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(selected.GetClientData(1)), 2) << "an entry keeps its item data";
    user::Screenshot(box, "select-fields");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(selectFields(names, flags, 5), 1);
  EXPECT_THAT(flags, ElementsAre(0, 1, 1, 1, 0));
  unsetenv("FORMKIT_UI");
}

}  // namespace
