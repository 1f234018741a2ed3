// The dialog view on screen: what the dialog box's code sets shows in the
// toolkit's controls, what the user does there reads back and reaches the
// code, and faults of the code throw as they do without a screen; and a
// property sheet: a page for each dialog box under its template's title,
// each page's controls working for its own code, and the sheet's OK and
// Cancel asked of every page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/bookctrl.h>
#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/propdlg.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <stdexcept>
#include <thread>

#include "dialogs_met.h"
#include "platform/ui/probe_dialog.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

using ::testing::ElementsAre;
using fk::ui::DialogView;

namespace {

class DialogViewWxTest : public ToolkitTest {
 protected:
  int Run(ProbeDialog& dialog) { return Backend().RunModal(dialog, TestTemplate(9001)); }

  ProbeDialog m_dialog{9001};
  DialogsMet m_dialogs;
};

template <typename Kind>
Kind& Get(wxDialog& box, int id) {
  return dynamic_cast<Kind&>(user::Control(box, id));
}

// The code's own changes don't come back to it as the user's.
TEST_F(DialogViewWxTest, EveryControlShowsWhatTheCodeSetAndTheCodeReadsWhatTheUserDid) {
  m_dialog.onInit = [](DialogView& view) {
    view.SetTitle("Hole Options");
    view.SetText(EDIT, "DH-007");
    view.SetText(LABEL, "Collar table");
    view.SetCheck(TRISTATE, 2);
    view.SetCheck(RADIO_TWO, 1);
    view.Enable(ACT, false);
    view.Show(LABEL, false);
    for (const char* name : {"Au", "Ag", "Cu"}) view.ListSetData(LIST, view.ListAdd(LIST, name), name[1]);
    view.ListSelect(LIST, 0, true);
    view.ListSelect(LIST, 2, true);
    view.ListDelete(LIST, 1);
    view.ComboSetData(COMBO, view.ComboAdd(COMBO, "UTM 50S"), 50);
    view.ComboSetData(COMBO, view.ComboAdd(COMBO, "UTM 51S"), 51);
    view.ComboSetCurSel(COMBO, 1);
    view.ComboAdd(CHOICE, "Metres");
    view.ComboAdd(CHOICE, "Feet");
    view.ComboSetCurSel(CHOICE, 0);
    view.ListCtrlInsertColumn(REPORT, 0, "Table", 140);
    view.ListCtrlInsertColumn(REPORT, 1, "Rows", 60);
    for (int row = 0; row < 3; ++row) {
      const int at = view.ListCtrlInsertRow(REPORT, row, "Table " + std::to_string(row));
      view.ListCtrlSetText(REPORT, at, 1, std::to_string(100 * row));
      view.ListCtrlSetData(REPORT, at, 10 + row);
      view.ListCtrlSetCheck(REPORT, at, row == 1);
    }
    view.ListCtrlInsertRow(REPORT, 0, "First");
    view.ListCtrlSelect(REPORT, 2, true);
  };
  m_dialogs.Use([this](wxDialog& box) {
    EXPECT_EQ(box.GetTitle() + "|" + Get<wxTextCtrl>(box, EDIT).GetValue() + "|" +
                  Get<wxStaticText>(box, LABEL).GetLabel() + "|" + Get<wxComboBox>(box, COMBO).GetValue(),
              "Hole Options|DH-007|Collar table|UTM 51S");
    EXPECT_EQ(Get<wxCheckBox>(box, TRISTATE).Get3StateValue(), wxCHK_UNDETERMINED);
    EXPECT_FALSE(user::Control(box, ACT).IsEnabled() || user::Control(box, LABEL).IsShown());
    EXPECT_THROW(user::Press(box, ACT), std::logic_error) << "a disabled button can't be pressed";
    wxArrayInt selected;
    Get<wxListBox>(box, LIST).GetSelections(selected);
    EXPECT_THAT(user::Entries(box, LIST), ElementsAre("Au", "Cu"));
    EXPECT_THAT(std::vector<int>(selected.begin(), selected.end()), ElementsAre(0, 1));
    auto& report = Get<wxListCtrl>(box, REPORT);
    ASSERT_EQ(report.GetItemCount(), 4);
    EXPECT_EQ(report.GetColumnWidth(0), 140);
    EXPECT_EQ(report.GetItemText(0) + "|" + report.GetItemText(2, 1), "First|100");
    EXPECT_TRUE(report.IsItemChecked(2) && !report.IsItemChecked(3));
    EXPECT_EQ(report.GetItemState(2, wxLIST_STATE_SELECTED), wxLIST_STATE_SELECTED);
    user::Screenshot(box, "every-control");

    Get<wxTextCtrl>(box, EDIT).SetValue("DH-008");  // typed
    user::Click(box, TRISTATE);
    user::Click(box, RADIO_ONE);
    user::SelectEntries(box, LIST, {1});
    user::ChooseCombo(box, CHOICE, 1);
    report.CheckItem(3, true);
    DialogView& view = m_dialog.ItsView();
    EXPECT_EQ(view.Title() + "|" + view.Text(EDIT) + "|" + view.Text(CHOICE) + "|" + view.ListCtrlText(REPORT, 1, 0),
              "Hole Options|DH-008|Feet|Table 0");
    EXPECT_EQ(view.ListCtrlText(REPORT, 1, 5), "") << "a column the control lacks has no text";
    // A click on an undetermined box clears it, radio buttons of a group
    // exclude each other, a button keeps no check; then the states, data and
    // selections of the lists, as the code set them and the user changed them.
    const std::vector<std::intptr_t> read = {
        view.Check(TRISTATE),           view.Check(RADIO_ONE),        view.Check(RADIO_TWO),
        view.Check(ACT),                view.IsEnabled(ACT),          view.IsShown(LABEL),
        view.ListIsSelected(LIST, 0),   view.ListIsSelected(LIST, 1), view.ListData(LIST, 1),
        view.ComboData(COMBO, 0),       view.ComboCurSel(COMBO),      view.ComboCurSel(CHOICE),
        view.ListCtrlCheck(REPORT, 3),  view.ListCtrlData(REPORT, 3), view.ListCtrlColumnWidth(REPORT, 1),
        view.ListCtrlIsSelected(REPORT, 2)};
    EXPECT_THAT(read, ElementsAre(0, 1, 0, 0, false, false, false, true, 'u', 50, 1, 1, true, 12, 60, true));

    view.ComboSetCurSel(COMBO, -1);
    EXPECT_EQ(view.ComboCurSel(COMBO), -1);
    EXPECT_EQ(Get<wxComboBox>(box, COMBO).GetValue(), "") << "no current entry leaves the combo box empty";
    view.ListClear(LIST);
    EXPECT_EQ(view.ListCount(LIST), 0);
    view.ListCtrlDeleteRow(REPORT, 0);
    EXPECT_EQ(view.ListCtrlText(REPORT, 0, 0), "Table 0");
    view.ListCtrlDeleteAll(REPORT);
    EXPECT_EQ(view.ListCtrlRowCount(REPORT), 0);
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(Run(m_dialog), fk::ui::IDOK);
  EXPECT_THAT(m_dialog.calls, ElementsAre("init", "button 1102", "button 1103", "selection 1105", "selection 1107",
                                          "row 1108 3", "ok"));
}

TEST_F(DialogViewWxTest, FaultsOfTheDialogBoxCodeThrowAsWithoutAScreen) {
  m_dialog.onInit = [](DialogView& view) { view.SetText(1999, "x"); };
  EXPECT_THROW(Run(m_dialog), std::logic_error) << "no control 1999";
  m_dialog.onInit = [](DialogView& view) { view.ListAdd(ACT, "x"); };
  EXPECT_THROW(Run(m_dialog), std::logic_error) << "a button is no list";
  m_dialog.onInit = [](DialogView& view) { view.ComboText(COMBO, 0); };
  EXPECT_THROW(Run(m_dialog), std::logic_error) << "no entry 0 in an empty combo box";
  m_dialog.onInit = [](DialogView& view) { view.ListCtrlInsertRow(REPORT, 0, "x"); };
  EXPECT_THROW(Run(m_dialog), std::logic_error) << "a row needs a column";
  EXPECT_EQ(m_dialogs.Met(), 0) << "a box whose start failed is never shown";
  m_dialog.onInit = nullptr;
  std::thread([this] { EXPECT_THROW(Run(m_dialog), std::logic_error) << "another thread"; }).join();

  m_dialog.onButton = [](DialogView&, fk::ui::Prompter&, int) { throw std::runtime_error("table is gone"); };
  m_dialogs.Use([](wxDialog& box) {
    user::Press(box, ACT);
    EXPECT_FALSE(box.IsModal()) << "the fault closed the box";
  });
  EXPECT_THROW(Run(m_dialog), std::runtime_error) << "the fault comes out of the run";
}

TEST_F(DialogViewWxTest, AQuestionStandsOverTheBoxAndTheCloseBoxAndEscapeAreCancel) {
  int answer = 0;
  m_dialog.onInit = [](DialogView& view) { view.SetTitle("Reproject"); };
  m_dialog.onButton = [&](DialogView&, fk::ui::Prompter& prompter, int) {
    answer = prompter.MessageBox("Overwrite the tables?", fk::ui::MB_YESNO);
  };
  m_dialog.refuseCancel = 2;
  wxDialog* asking = nullptr;
  m_dialogs.Use([&](wxDialog& box) {
    asking = &box;
    user::Press(box, ACT);
    box.Close();  // the close box
    EXPECT_TRUE(box.IsModal()) << "the code refused";
    user::PressEscape(box);
    EXPECT_TRUE(box.IsModal());
    user::PressEscape(box);
  });
  m_dialogs.Answer([&](wxDialog& question) {
    EXPECT_EQ(question.GetParent(), asking);
    EXPECT_EQ(question.GetTitle(), "Reproject");
    return wxID_YES;
  });
  EXPECT_EQ(Run(m_dialog), fk::ui::IDCANCEL);
  EXPECT_EQ(answer, fk::ui::IDYES);
  EXPECT_THAT(m_dialog.calls, ElementsAre("init", "button 1109", "cancel", "cancel", "cancel"));

  ProbeDialog endsAtOnce(9001);
  endsAtOnce.onInit = [&](DialogView&) { endsAtOnce.ItsView().EndDialog(7); };
  EXPECT_EQ(Run(endsAtOnce), 7);
  EXPECT_EQ(m_dialogs.Met(), 2) << "a box ended as it started is never shown";
}

class PropertySheetWxTest : public ToolkitTest {
 protected:
  int Run() {
    return Backend().RunPropertySheet("Export Options", {&m_first, &m_second},
                                      {&TestTemplate(9101), &TestTemplate(9102)});
  }

  ProbeDialog m_first{9101};
  ProbeDialog m_second{9102};
  DialogsMet m_dialogs;
};

wxBookCtrlBase& Book(wxDialog& sheet) { return *dynamic_cast<wxPropertySheetDialog&>(sheet).GetBookCtrl(); }

TEST_F(PropertySheetWxTest, PagesWorkForTheirOwnCodeAndOKCancelAndTheCloseBoxAskEveryPage) {
  m_first.onInit = [](fk::ui::DialogView& view) { view.ListAdd(1201, "HoleID"); };
  m_first.onButton = [](fk::ui::DialogView& view, fk::ui::Prompter&, int) { view.ListAdd(1201, "Depth"); };
  m_second.onInit = [](fk::ui::DialogView& view) { view.SetText(1301, "/data/out"); };
  m_second.refuseOK = 1;
  m_dialogs.Use([this](wxDialog& sheet) {
    EXPECT_EQ(sheet.GetTitle(), "Export Options");
    ASSERT_EQ(Book(sheet).GetPageCount(), 2u);
    EXPECT_EQ(Book(sheet).GetPageText(0), "Columns");
    EXPECT_EQ(Book(sheet).GetPageText(1), "Output");
    EXPECT_EQ(m_second.ItsView().Title(), "Output") << "a page's title is its tab's";

    user::Press(sheet, 1202);
    EXPECT_THAT(user::Entries(sheet, 1201), ElementsAre("HoleID", "Depth"));
    user::Screenshot(sheet, "property-sheet");
    user::PressButton(*sheet.FindWindow(wxID_OK));
    EXPECT_TRUE(sheet.IsModal()) << "the second page refused";
    EXPECT_EQ(Book(sheet).GetSelection(), 1) << "the page that refused is shown";
    user::PressButton(*sheet.FindWindow(wxID_OK));
  });
  EXPECT_EQ(Run(), fk::ui::IDOK);
  EXPECT_THAT(m_first.calls, ElementsAre("init", "button 1202", "ok", "ok"));
  EXPECT_THAT(m_second.calls, ElementsAre("init", "ok", "ok"));

  m_first.calls.clear();
  m_second.calls.clear();
  m_dialogs.Use([](wxDialog& sheet) { sheet.Close(); });  // the close box
  EXPECT_EQ(Run(), fk::ui::IDCANCEL);
  EXPECT_THAT(m_first.calls, ElementsAre("init", "cancel"));
  EXPECT_THAT(m_second.calls, ElementsAre("init", "cancel"));

  m_first.onButton = [](fk::ui::DialogView& view, fk::ui::Prompter&, int) { view.EndDialog(fk::ui::IDOK); };
  m_dialogs.Use([](wxDialog& sheet) { user::Press(sheet, 1202); });
  EXPECT_EQ(Run(), fk::ui::IDOK) << "the page's own button ended the sheet";
}

}  // namespace
