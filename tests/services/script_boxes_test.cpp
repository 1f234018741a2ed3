// The boxes and windows the scripts open, driven as a user would: the
// file-open box, the folder picker, "Select Table", the field selection box,
// and the progress window of long loops (its percentage title, cancelling,
// and the position it remembers).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "services/file_boxes.h"
#include "services/progress_wnd.h"
#include "services/select_fields_dlg.h"
#include "services/select_file.h"
#include "support/session_fixture.h"

using FileBoxesTest = HeadlessTest;
using ::testing::ElementsAre;
using fk::ui::HeadlessDialog;
using ProgressWndTest = HeadlessTest;
using SelectFieldsTest = HeadlessTest;

namespace {

TEST_F(FileBoxesTest, TheFileOpenBoxStartsAtTheExtensionsFilterAndTheFolderPickerInTheGivenFolder) {
  const std::string filter = "Cartoma Table (*.tab)|*.tab|Text|*.TXT|Datamine (*.dm)|*.dm|All Files (*.*)|*.*||";
  EXPECT_THAT((std::vector{FilterIndexOf(filter, "dm"), FilterIndexOf(filter, "txt"), FilterIndexOf(filter, "shp")}),
              ElementsAre(3, 2, 1));

  m_ui.Prompts().AnswerPath("/data/holes.dm");
  char path[260] = "untouched";
  EXPECT_EQ(OpenFileDlg(path, "dm", "holes", filter.c_str()), 0);
  EXPECT_STREQ(path, "/data/holes.dm");
  const fk::ui::ShownPrompt& shown = m_ui.Prompts().Shown().back();
  EXPECT_TRUE(shown.kind == fk::ui::ShownPrompt::FileOpen && shown.request.filterIndex == 3);
  EXPECT_EQ(shown.request.fileName, "holes");
  EXPECT_EQ(shown.request.flags, 0x1006u) << "hide read-only, overwrite prompt, file must exist";

  EXPECT_EQ(OpenFileDlg(path, "", "", ""), 0);
  EXPECT_STREQ(path, "") << "cancel empties the buffer";

  // The folder picker starts in the given folder and leaves the buffer on cancel.
  ScopedFolder folder;
  const auto before = std::filesystem::current_path();
  char folderPath[4096];
  std::snprintf(folderPath, sizeof folderPath, "%s", folder.Path().c_str());
  m_ui.Prompts().AnswerPath(std::nullopt);
  EXPECT_EQ(BrowseForFolder(0, nullptr, folderPath), 0);
  EXPECT_EQ(std::string(folderPath), folder.Path());
  EXPECT_EQ(m_ui.Prompts().Shown().back().text, "Select permanent directory");
  EXPECT_EQ(std::filesystem::path(m_ui.Prompts().Shown().back().start), std::filesystem::canonical(folder.Path()));

  m_ui.Prompts().AnswerPath("/data/project");
  EXPECT_EQ(BrowseForFolder(0, "Where?", folderPath), 1);
  EXPECT_STREQ(folderPath, "/data/project");
  EXPECT_EQ(m_ui.Prompts().Shown().back().text, "Where?");
  std::filesystem::current_path(before);
}

TEST_F(FileBoxesTest, SelectTableTakesATypedOrPickedPath) {
  m_ui.Prompts().AnswerPath("/data/picked.tab");
  m_ui.OnDialog(CSelectFile::IDD, [](fk::ui::HeadlessDialog& user) {
    EXPECT_EQ(user.View().Title(), "Select Table");
    user.Press(CSelectFile::IDC_BROWSE);
    EXPECT_EQ(user.View().Text(CSelectFile::IDC_PATH), "/data/picked.tab");
    user.Type(CSelectFile::IDC_PATH, "/data/typed.tab");
    user.Press(fk::ui::IDOK);
  });
  CSelectFile box;
  EXPECT_EQ(box.DoModal(), fk::ui::IDOK);
  EXPECT_EQ(box.m_strPath, "/data/typed.tab");
  const fk::ui::FileDialogRequest& request = m_ui.Prompts().Shown().front().request;
  EXPECT_EQ(request.defaultExt, "*.tab");
  EXPECT_EQ(request.filter, "Cartoma Table (*.tab)|*.tab|All Files (*.*)|*.*||");
}

constexpr int AVAILABLE = CSelectFieldsDlg::IDC_AVAILABLE;
constexpr int SELECTED = CSelectFieldsDlg::IDC_SELECTED;

TEST_F(SelectFieldsTest, NamesStartInTheirListMovesReverseABlockAndAllAndBackRestoresTheOrder) {
  const char* names[5] = {"HoleID", "From", "To", "Au_ppm", "holeid"};
  int32_t moved[5] = {0, 0, 0, 1, 0}, flags[5] = {0, 0, 0, 1, 0};
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
  EXPECT_EQ(SelectFieldsDialog(names, moved, 5), 1);
  EXPECT_THAT(moved, ElementsAre(0, 1, 1, 1, 0));

  // All and back again; then Cancel leaves the flags, and no names give an empty box.
  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    user.Press(CSelectFieldsDlg::IDC_ADD_ALL);
    EXPECT_THAT(user.View().ListTexts(SELECTED), ElementsAre("Au_ppm", "holeid", "To", "From", "HoleID"));
    user.Press(CSelectFieldsDlg::IDC_REMOVE_ALL);
    EXPECT_THAT(user.View().ListTexts(AVAILABLE), ElementsAre("HoleID", "From", "To", "holeid", "Au_ppm"));
    user.SelectEntries(AVAILABLE, {0});
    user.Press(CSelectFieldsDlg::IDC_ADD);
    user.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(SelectFieldsDialog(names, flags, 5), 1);
  EXPECT_THAT(flags, ElementsAre(1, 0, 0, 0, 1)) << "names equal ignoring case are both marked";

  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    user.Press(CSelectFieldsDlg::IDC_ADD_ALL);
    user.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(SelectFieldsDialog(names, flags, 5), 0);
  EXPECT_EQ(SelectFieldsDialog(names, flags, 5), 0) << "a box nobody answers is closed as cancelled";
  EXPECT_THAT(flags, ElementsAre(1, 0, 0, 0, 1));
  EXPECT_EQ(m_ui.Ran().back().result, fk::ui::IDCANCEL);

  // No names: an empty box, decided by the button alone.
  m_ui.OnDialog(CSelectFieldsDlg::IDD, [](HeadlessDialog& user) {
    EXPECT_EQ(user.View().ListCount(AVAILABLE), 0);
    user.Press(CSelectFieldsDlg::IDC_ADD);
    user.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(SelectFieldsDialog(nullptr, nullptr, 0), 1);
  EXPECT_EQ(SelectFieldsDialog(nullptr, nullptr, 3), 0) << "names missing: no box at all";
  EXPECT_EQ(m_ui.Ran().size(), 5u);
}

TEST_F(ProgressWndTest, TheTitleChangesOnlyWithTheRoundedPercentageOfARange) {
  {
    CProgressWnd progress("Export Progress");
    progress.SetText("Exporting %s: %d rows", "Holes", 200000);
    progress.SetRange(0, 200000, 1);
    for (int i = 0; i < 200000; ++i) progress.StepIt();
  }
  const fk::ui::ProgressRecord& record = *m_ui.Progress().back();
  EXPECT_EQ(record.title + "|" + record.text, "Export Progress [100%]|Exporting Holes: 200000 rows");
  EXPECT_EQ(record.pos, 200000);
  EXPECT_EQ(record.titleChanges, 1 + 100) << "the first title, then one change per percent";

  CProgressWnd empty;
  empty.SetRange(0, 0, 1);
  empty.StepIt();
  empty.StepIt();
  EXPECT_EQ(m_ui.Progress().back()->title, "Progress") << "an empty range keeps the title";
  EXPECT_EQ(m_ui.Progress().back()->titleChanges, 1);
}

TEST_F(ProgressWndTest, CancelStopsTheLoopAndRemembersWhereTheWindowStood) {
  m_ui.CancelProgressAfter(3);
  int done = 0;
  {
    CProgressWnd progress("Import Progress");
    progress.SetRange(0, 10, 1);
    for (int i = 0; i < 10; ++i) {
      progress.StepIt();
      progress.PeekAndPump(true);
      if (progress.Cancelled()) break;
      ++done;
    }
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_FALSE(m_ui.Progress().back()->shown);
  }
  EXPECT_EQ(done, 2);
  // Headless windows stand centred on a 1024 by 768 screen.
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1), (1024 - 390) / 2);
  EXPECT_GE(theApp.GetProfileInt("Settings", "Y", -1), 0);

  // A stored position off the screen falls back to the centre.
  theApp.WriteProfileInt("Settings", "X", 5000);
  theApp.WriteProfileInt("Settings", "Y", 10);
  { CProgressWnd progress; }
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1), (1024 - 390) / 2);

  theApp.WriteProfileInt("Settings", "X", 40);
  theApp.WriteProfileInt("Settings", "Y", 30);
  { CProgressWnd progress; }
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1) * 1000 + theApp.GetProfileInt("Settings", "Y", -1), 40030);
}

}  // namespace
