// The workspace editor on the sample workspaces: the rewrite rules together
// on one file, and the box over the host emulator as a user drives it, with
// Windows drive paths found through the drive table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "support/host/emulated_host.h"
#include "support/session_fixture.h"
#include "workspace/workspace_text.h"

using ::testing::ElementsAre;
using fk::ui::HeadlessDialog;

namespace {

namespace fs = std::filesystem;

// Control ids as the system's description gives them.
enum { TABLES = 1073, SET_RELATIVE = 1004, INTERACTIVE = 1068, NO_EDITABLE = 1067 };

std::string CrLf(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

class WorkspaceEditorTest : public HeadlessTest {
 protected:
  // The sample workspace `name` and the sample tables in <folder>/Samples,
  // with the drive C: standing for the folder.
  std::string Sample(const std::string& name) {
    const fs::path samples = fs::path(m_folder.Path()) / "Samples";
    fs::create_directories(samples);
    for (const char* file : {"collars.tab", "collars.gpkg", "lithology.tab", "lithology.gpkg", "sites.tab"})
      fs::copy_file(fs::path(SIM_SAMPLES_DIR) / file, samples / file);
    fs::copy_file(fs::path(SIM_SAMPLES_DIR) / (name + ".wor"), samples / (name + ".wor"));
    fk::SetDriveRoot('C', m_folder.Path());
    return (samples / (name + ".wor")).string();
  }
  void TearDown() override {
    fk::SetDriveRoot('C', "/");
    HeadlessTest::TearDown();
  }

  ScopedFolder m_folder;
};

TEST_F(WorkspaceEditorTest, TheRewriteKeepsWhatItMustAndMendsTheRest) {
  const std::string workspace = Sample("bendigo_printer");
  const std::string original = ReadFile(workspace);
  // Its last line, of some 300 characters, passes through whole.
  const std::string title = original.substr(original.find("Set Window FrontWindow() Title"));
  EXPECT_THAT(ScanWorkspaceTables(workspace), ElementsAre("C:\\Samples\\collars.tab", "C:\\Samples\\sites.tab"));

  // Every row unticked: exactly the two table lines go.
  ASSERT_EQ(RewriteWorkspace(workspace, {"", ""}, {}), 1);
  EXPECT_EQ(ReadFile(workspace), CrLf({"!Workspace", "!Version 1000", "!Charset Neutral", "Map From collars, sites",
                                       "Set Map Layer 1 Editable On", "  Set Map Layer 2 Editable",
                                       "Set Window FrontWindow() Printer", "  Name \"Plotter A0\" Orientation Landscape",
                                       "  Copies 1"}) + title);

  // New paths and the three repairs; the long line stays whole.
  std::ofstream(workspace, std::ios::binary) << original;
  ASSERT_EQ(RewriteWorkspace(workspace, {"collars.tab", "D:\\Sites\\sites.tab"}, {true, true, true}), 1);
  EXPECT_EQ(ReadFile(workspace),
            CrLf({"!Workspace", "!Version 1000", "!Charset Neutral", "open table \"collars.tab\" As collars Interactive",
                  "Open Table \"D:\\Sites\\sites.tab\" As sites Interactive", "Map From collars, sites",
                  "Set Map Layer 1 editable off", "  Set Map Layer 2 Editable"}) + title);
  EXPECT_FALSE(fs::exists(WorkspaceTemporaryPath(fk::Native(workspace))));

  // Where the new text can't be written the workspace stays as it was.
  const std::string before = ReadFile(workspace);
  fs::create_directory(fk::Native(WorkspaceTemporaryPath(workspace)));
  EXPECT_EQ(RewriteWorkspace(workspace, {"", ""}, {}), 1);
  EXPECT_EQ(ReadFile(workspace), before);
  EXPECT_EQ(WorkspaceTemporaryPath("/data/notes.txt"), "/data/notes.txt__temp.WOR");
  EXPECT_EQ(WorkspaceTemporaryPath("C:\\Pits.wor\\a.wor"), "C:\\PITS__temp.WOR\\A__temp.WOR");
}

TEST_F(WorkspaceEditorTest, TheBoxShowsStatusesMakesPathsRelativeAndRewritesOnOk) {
  sim::Emulator emulator;
  emulator.AddScript("terravik.cbx");
  sim::CApiRegistration registration{sim::LinkedHostCApi(), emulator.Application()};
  const std::string native = Sample("bendigo_missing");
  const std::string original = ReadFile(native);
  const std::string workspace = "C:\\SAMPLES\\Bendigo_Missing.WOR";  // as a Windows script names it
  const auto rows = [](const HeadlessDialog& box) {
    std::vector<std::string> texts;
    for (int row = 0; row < box.View().ListCtrlRowCount(TABLES); ++row)
      texts.push_back(box.View().ListCtrlText(TABLES, row, 0) + " | " + box.View().ListCtrlText(TABLES, row, 1));
    return texts;
  };
  int32_t flags[4] = {7, 7, 7, 7};
  m_ui.OnDialog(1008, [&](HeadlessDialog& box) {
    EXPECT_THAT(rows(box), ElementsAre("C:\\Samples\\collars.tab | - OK -",
                                       "C:\\Samples\\Old\\drillholes_2019.tab | Missing",
                                       "C:\\Samples\\lithology.tab | Unused"));
    // A double click edits one path in the Select Table box.
    m_ui.OnDialog(1009, [](HeadlessDialog& select) {
      select.Type(1074, "C:\\Samples\\Old\\drillholes.tab");
      select.Press(fk::ui::IDOK);
    });
    box.ActivateRow(TABLES, 1);
    EXPECT_EQ(box.View().ListCtrlText(TABLES, 1, 0), "C:\\Samples\\Old\\drillholes.tab");
    box.Press(SET_RELATIVE);
    EXPECT_THAT(rows(box), ElementsAre(".\\collars.tab | Missing", ".\\Old\\drillholes.tab | Missing",
                                       ".\\lithology.tab | Missing, Unused"));
    box.CheckRow(TABLES, 1, false);
    box.SetCheck(INTERACTIVE, 1);
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(WorkspaceEditor(registration.Handle(), workspace.c_str(), 0, 0, &flags[0], &flags[1], &flags[2], &flags[3]),
            1);
  EXPECT_THAT(flags, ElementsAre(0, 1, 0, 0));
  EXPECT_EQ(ReadFile(fk::Native(workspace + ".bak")), original);
  EXPECT_EQ(ReadFile(native), CrLf({"!Workspace", "!Version 1000", "!Charset Neutral",
                                    "Open Table \".\\collars.tab\" As collars Interactive",
                                    "Open Table \".\\lithology.tab\" As lithology Interactive",
                                    "Map From collars, drillholes_2019"}));

  // Cancel: nothing written, through the pointers or to the file.
  const std::string rewritten = ReadFile(native);
  m_ui.OnDialog(1008, [&](HeadlessDialog& box) {
    box.SetCheck(NO_EDITABLE, 1);
    box.Press(fk::ui::IDCANCEL);
  });
  EXPECT_EQ(WorkspaceEditor(registration.Handle(), workspace.c_str(), 0, 0, &flags[0], &flags[1], &flags[2], &flags[3]),
            0);
  EXPECT_THAT(flags, ElementsAre(0, 1, 0, 0));
  EXPECT_EQ(ReadFile(native), rewritten);
}

}  // namespace
