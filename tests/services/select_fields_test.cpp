// The field selection box through its export, driven as a user would.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formkit/formkit.h"
#include "services/select_fields_dlg.h"
#include "support/headless_fixture.h"

using ::testing::ElementsAre;
using fk::ui::HeadlessDialog;

namespace {

constexpr int AVAILABLE = CSelectFieldsDlg::IDC_AVAILABLE;
constexpr int SELECTED = CSelectFieldsDlg::IDC_SELECTED;

class SelectFieldsTest : public HeadlessTest {
 protected:
  const char* m_names[5] = {"HoleID", "From", "To", "Au_ppm", "holeid"};
  int32_t m_flags[5] = {0, 0, 0, 1, 0};
};

TEST_F(SelectFieldsTest, NamesStartInTheirListAndMovesReverseABlock) {
  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    EXPECT_EQ(user.View().Title(), "Field Selection");
    EXPECT_EQ(user.View().Text(CSelectFieldsDlg::IDC_GROUP), "Select Fields to include");
    EXPECT_THAT(user.View().ListTexts(AVAILABLE), ElementsAre("HoleID", "From", "To", "holeid"));
    EXPECT_THAT(user.View().ListTexts(SELECTED), ElementsAre("Au_ppm"));

    user.SelectEntries(AVAILABLE, {1, 2});
    user.Press(CSelectFieldsDlg::IDC_ADD);
    EXPECT_THAT(user.View().ListTexts(SELECTED), ElementsAre("Au_ppm", "To", "From"));
    EXPECT_THAT(user.View().ListTexts(AVAILABLE), ElementsAre("HoleID", "holeid"));
    EXPECT_EQ(user.View().ListData(SELECTED, 1), 2) << "an entry keeps its item data";
    user.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(SelectFieldsDialog(m_names, m_flags, 5), 1);
  EXPECT_THAT(m_flags, ElementsAre(0, 1, 1, 1, 0));
}

TEST_F(SelectFieldsTest, AllAndBackRestoresTheOrderCancelLeavesTheFlagsAndNoNamesGiveAnEmptyBox) {
  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    user.Press(CSelectFieldsDlg::IDC_ADD_ALL);
    EXPECT_THAT(user.View().ListTexts(SELECTED), ElementsAre("Au_ppm", "holeid", "To", "From", "HoleID"));
    user.Press(CSelectFieldsDlg::IDC_REMOVE_ALL);
    EXPECT_THAT(user.View().ListTexts(AVAILABLE), ElementsAre("HoleID", "From", "To", "holeid", "Au_ppm"));
    user.SelectEntries(AVAILABLE, {0});
    user.Press(CSelectFieldsDlg::IDC_ADD);
    user.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(SelectFieldsDialog(m_names, m_flags, 5), 1);
  EXPECT_THAT(m_flags, ElementsAre(1, 0, 0, 0, 1)) << "names equal ignoring case are both marked";

  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    user.Press(CSelectFieldsDlg::IDC_ADD_ALL);
    user.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(SelectFieldsDialog(m_names, m_flags, 5), 0);
  EXPECT_EQ(SelectFieldsDialog(m_names, m_flags, 5), 0) << "a box nobody answers is closed as cancelled";
  EXPECT_THAT(m_flags, ElementsAre(1, 0, 0, 0, 1));
  EXPECT_EQ(m_ui.Ran().back().result, fk::ui::IDCANCEL);

  // No names: an empty box, decided by the button alone.
  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    EXPECT_EQ(user.View().ListCount(AVAILABLE), 0);
    user.Press(CSelectFieldsDlg::IDC_ADD);
    user.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(SelectFieldsDialog(nullptr, nullptr, 0), 1);
  EXPECT_EQ(SelectFieldsDialog(nullptr, nullptr, 3), 0) << "names missing: no box at all";
  EXPECT_EQ(m_ui.Ran().size(), 4u);
}

}  // namespace
