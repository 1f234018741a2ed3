// The prompter's boxes on screen, met before they show: what the system's
// request makes of each box, and what the button pressed answers; and the
// field selection box on screen, through the export of a loaded libformkit.so
// that chose the toolkit itself (the box's own rules are tested without a
// screen in tests/services/script_boxes_test.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "dialogs_met.h"
#include "formkit/formkit.h"
#include "services/select_fields_dlg.h"
#include "support/formkit_library.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

using namespace fk::ui;
using ::testing::ElementsAre;
using SelectFieldsWxTest = ToolkitTest;

namespace {

class PrompterWxTest : public ToolkitTest {
 protected:
  Prompter& Prompts() { return Backend().GetPrompter(); }
  std::string Path(const std::string& name) const { return m_folder.Path() + "/" + name; }

  DialogsMet m_dialogs;
  ScopedFolder m_folder;
};

constexpr long kButtons = wxOK | wxCANCEL | wxYES_NO;

TEST_F(PrompterWxTest, MessageBoxesShowTheSystemsButtonsAndIconsAndAnswerItsIds) {
  struct Case {
    unsigned type;
    long style;
    int pressed;
    int answer;
  };
  const Case cases[] = {
      {MB_OK, wxOK | wxICON_NONE, wxID_OK, IDOK},
      {MB_OKCANCEL | MB_ICONQUESTION, wxOK | wxCANCEL | wxICON_QUESTION, wxID_CANCEL, IDCANCEL},
      {MB_YESNO | MB_ICONEXCLAMATION, wxYES_NO | wxICON_WARNING, wxID_NO, IDNO},
      {MB_YESNOCANCEL | MB_ICONSTOP, wxYES_NO | wxCANCEL | wxICON_ERROR, wxID_YES, IDYES},
      {MB_OK | MB_ICONINFORMATION, wxOK | wxICON_INFORMATION, wxID_CANCEL, IDOK},  // closed: its only way out
      {MB_YESNO, wxYES_NO | wxICON_NONE, wxID_CANCEL, IDNO},                      // closed: Yes/No has no Cancel
  };
  for (const Case& c : cases) {
    m_dialogs.Answer([&](wxDialog& box) {
      auto& message = dynamic_cast<wxMessageDialog&>(box);
      EXPECT_EQ(message.GetMessage(), "Table Holes is not open.");
      EXPECT_EQ(message.GetMessageDialogStyle() & (kButtons | wxICON_MASK), c.style) << "type " << c.type;
      return c.pressed;
    });
    EXPECT_EQ(Prompts().MessageBox("Table Holes is not open.", c.type), c.answer) << "type " << c.type;
  }
}

TEST_F(PrompterWxTest, TheFileBoxesTakeTheSystemsFilterAndStartNameAndAddTheExtension) {
  FileDialogRequest request;
  request.defaultExt = "tab";
  request.fileName = Path("holes.tab");
  request.filter = "Cartoma Table (*.tab)|*.tab|All Files (*.*)|*.*||";
  request.filterIndex = 2;
  request.flags = OFN_FILEMUSTEXIST | OFN_OVERWRITEPROMPT;
  m_dialogs.Answer([&](wxDialog& box) {
    auto& files = dynamic_cast<wxFileDialog&>(box);
    EXPECT_EQ(files.GetWildcard(), "Cartoma Table (*.tab)|*.tab|All Files (*.*)|*");
    EXPECT_EQ(files.GetFilterIndex(), 1);
    EXPECT_EQ(files.GetDirectory(), m_folder.Path());
    EXPECT_EQ(files.GetFilename(), "holes.tab");
    EXPECT_EQ(files.GetWindowStyle() & (wxFD_OPEN | wxFD_SAVE | wxFD_FILE_MUST_EXIST | wxFD_OVERWRITE_PROMPT),
              wxFD_OPEN | wxFD_FILE_MUST_EXIST)
        << "an open box never asks about replacing";
    files.SetPath(Path("collars"));
    return wxID_OK;
  });
  EXPECT_EQ(Prompts().FileDialog(request), Path("collars.tab"));

  m_dialogs.Answer([](wxDialog&) { return wxID_CANCEL; });
  EXPECT_EQ(Prompts().FileDialog(request), std::nullopt);

  // The save box asks before replacing the name with its extension.
  std::ofstream(Path("collars.tab")) << "!table\n";
  request.open = false;
  request.defaultExt = "*.tab";
  request.filter = "Cartoma Table (*.tab)|*.tab||";
  request.flags = OFN_OVERWRITEPROMPT;
  auto answerName = [this](const std::string& name) {
    m_dialogs.Answer([this, name](wxDialog& box) {
      EXPECT_TRUE(box.GetWindowStyle() & wxFD_SAVE);
      dynamic_cast<wxFileDialog&>(box).SetPath(Path(name));
      return wxID_OK;
    });
  };
  answerName("collars");
  m_dialogs.Answer([](wxDialog& box) {
    EXPECT_EQ(dynamic_cast<wxMessageDialog&>(box).GetMessage(),
              "collars.tab already exists.\nDo you want to replace it?");
    return wxID_NO;
  });
  answerName("assays");
  EXPECT_EQ(Prompts().FileDialog(request), Path("assays.tab"));
  EXPECT_EQ(m_dialogs.Met(), 5);
}

TEST_F(PrompterWxTest, TheFolderPickerHasTheTitleAndGivesTheChosenFolder) {
  std::filesystem::create_directory(Path("tables"));
  m_dialogs.Answer([this](wxDialog& box) {
    auto& folders = dynamic_cast<wxDirDialog&>(box);
    EXPECT_EQ(folders.GetMessage(), "Select permanent directory");
    folders.wxDirDialogBase::SetPath(Path("tables"));  // what the chooser keeps once the user chose
    return wxID_OK;
  });
  EXPECT_EQ(Prompts().BrowseFolder("Select permanent directory", m_folder.Path()), Path("tables"));
  m_dialogs.Answer([](wxDialog&) { return wxID_CANCEL; });
  EXPECT_EQ(Prompts().BrowseFolder("Select permanent directory", m_folder.Path()), std::nullopt);
}

constexpr int AVAILABLE = CSelectFieldsDlg::IDC_AVAILABLE;
constexpr int SELECTED = CSelectFieldsDlg::IDC_SELECTED;

TEST_F(SelectFieldsWxTest, TheExportChoosesTheToolkitAndMovesABlockInReverse) {
  const char* names[5] = {"HoleID", "From", "To", "Au_ppm", "holeid"};
  int32_t flags[5] = {0, 0, 0, 1, 0};
  DialogsMet dialogs;
  setenv("FORMKIT_UI", "wx", 1);
  FormkitLibrary library(false);  // the built library, beside libformkit-wx.so
  auto selectFields = FORMKIT_EXPORT(library, SelectFieldsDialog);
  dialogs.Use([](wxDialog& box) {
    EXPECT_THAT(user::Entries(box, AVAILABLE), ElementsAre("HoleID", "From", "To", "holeid"));
    user::SelectEntries(box, AVAILABLE, {1, 2});
    user::Press(box, CSelectFieldsDlg::IDC_ADD);
    EXPECT_THAT(user::Entries(box, SELECTED), ElementsAre("Au_ppm", "To", "From"));
    user::Screenshot(box, "select-fields");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(selectFields(names, flags, 5), 1);
  EXPECT_THAT(flags, ElementsAre(0, 1, 1, 1, 0));
  unsetenv("FORMKIT_UI");
}

}  // namespace
