// The workspace boxes on screen: the editor lists a workspace's tables with
// their status, and the loader's step timer runs in the toolkit's own loop
// until the end of the file. Their rules are tested without a screen
// (tests/workspace/).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>

#include <chrono>
#include <thread>

#include "formkit/formkit.h"
#include "hosted_toolkit_test.h"
#include "toolkit_user.h"

namespace {

using WorkspaceBoxesWxTest = HostedToolkitTest;

TEST_F(WorkspaceBoxesWxTest, TheEditorListsTheTablesAndTheLoadersTimerRunsInTheToolkitsLoop) {
  const std::string workspace = m_folder.Write(
      "pits.wor", "!Workspace\r\nOpen Table \"" + m_folder.Path() + "/Pits.tab\" As Pits\r\nBrowse * From Pits\r\n");
  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Workspace Editor");
    auto& list = dynamic_cast<wxListCtrl&>(user::Control(box, 1073));
    EXPECT_EQ(list.GetItemText(0, 1), "- OK -");
    user::Screenshot(box, "workspace-editor");
    user::Press(box, fk::ui::IDCANCEL);
  });
  int32_t flags[4] = {};
  EXPECT_EQ(WorkspaceEditor(m_registration.Handle(), workspace.c_str(), 0, 0, &flags[0], &flags[1], &flags[2], &flags[3]),
            0);

  m_dialogs.Use([&](wxDialog& box) {
    EXPECT_EQ(box.GetTitle(), "Workspace Loader");
    user::Press(box, 1004);
    wxWindow& run = user::Control(box, 1004);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (run.IsShown() && std::chrono::steady_clock::now() < deadline) {
      wxTheApp->Yield(true);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_FALSE(run.IsShown()) << "the end of the file was reached";
    EXPECT_EQ(dynamic_cast<wxListBox&>(user::Control(box, 1105)).GetCount(), 3u);
    user::Screenshot(box, "workspace-loader");
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(WorkspaceCustomLoad(m_registration.Handle(), workspace.c_str()), 1);
}

}  // namespace
