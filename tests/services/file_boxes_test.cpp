// The file-open box of the scripts, the folder picker and "Select Table".
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "services/file_boxes.h"
#include "services/select_file.h"
#include "support/headless_fixture.h"

namespace {

using FileBoxesTest = HeadlessTest;

TEST_F(FileBoxesTest, TheStartingFilterEntryIsFoundByTheExtension) {
  const std::string filter = "Cartoma Table (*.tab)|*.tab|Text|*.TXT|Datamine (*.dm)|*.dm|All Files (*.*)|*.*||";
  EXPECT_EQ(FilterIndexOf(filter, "dm"), 3);
  EXPECT_EQ(FilterIndexOf(filter, "txt"), 2);
  EXPECT_EQ(FilterIndexOf(filter, "shp"), 1);

  m_ui.Prompts().AnswerPath("/data/holes.dm");
  char path[260] = "untouched";
  EXPECT_EQ(OpenFileDlg(path, "dm", "holes", filter.c_str()), 0);
  EXPECT_STREQ(path, "/data/holes.dm");
  const fk::ui::ShownPrompt& shown = m_ui.Prompts().Shown().back();
  EXPECT_EQ(shown.kind, fk::ui::ShownPrompt::FileOpen);
  EXPECT_EQ(shown.request.filterIndex, 3);
  EXPECT_EQ(shown.request.fileName, "holes");
  EXPECT_EQ(shown.request.flags, 0x1006u) << "hide read-only, overwrite prompt, file must exist";

  EXPECT_EQ(OpenFileDlg(path, "", "", ""), 0);
  EXPECT_STREQ(path, "") << "cancel empties the buffer";
}

TEST_F(FileBoxesTest, TheFolderPickerStartsInTheGivenFolderAndLeavesTheBufferOnCancel) {
  ScopedFolder folder;
  const auto before = std::filesystem::current_path();
  char path[4096];
  std::snprintf(path, sizeof path, "%s", folder.Path().c_str());
  m_ui.Prompts().AnswerPath(std::nullopt);
  EXPECT_EQ(BrowseForFolder(0, nullptr, path), 0);
  EXPECT_EQ(std::string(path), folder.Path());
  const fk::ui::ShownPrompt& shown = m_ui.Prompts().Shown().back();
  EXPECT_EQ(shown.text, "Select permanent directory");
  EXPECT_EQ(std::filesystem::path(shown.start), std::filesystem::canonical(folder.Path()));

  m_ui.Prompts().AnswerPath("/data/project");
  EXPECT_EQ(BrowseForFolder(0, "Where?", path), 1);
  EXPECT_STREQ(path, "/data/project");
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

}  // namespace
