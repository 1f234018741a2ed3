// A property sheet on screen: a page for each dialog box under its
// template's title, each page's controls working for its own code, and
// the sheet's OK and Cancel asked of every page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/bookctrl.h>
#include <wx/dialog.h>
#include <wx/propdlg.h>

#include "probe_dialog.h"
#include "test_templates.h"
#include "dialogs_met.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

using ::testing::ElementsAre;

namespace {

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

void PressSheet(wxDialog& sheet, int id) {
  wxCommandEvent event(wxEVT_BUTTON, id);
  wxWindow* button = sheet.FindWindow(id);
  ASSERT_NE(button, nullptr);
  event.SetEventObject(button);
  button->HandleWindowEvent(event);
}

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
    PressSheet(sheet, wxID_OK);
    EXPECT_TRUE(sheet.IsModal()) << "the second page refused";
    EXPECT_EQ(Book(sheet).GetSelection(), 1) << "the page that refused is shown";
    PressSheet(sheet, wxID_OK);
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
