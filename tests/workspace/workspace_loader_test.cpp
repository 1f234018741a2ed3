// The workspace loader over the host emulator, driven on the headless
// backend with the thread's main loop pumped, as a host's loop would run
// the step timer: a run that skips a hidden table, pauses on a refused
// statement, takes it mended, skips another and reaches the end; then a
// run stepped one statement per press.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "support/host/emulated_host.h"
#include "support/session_fixture.h"

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::StartsWith;
using fk::ui::HeadlessDialog;

namespace {

// Control ids as the system's description gives them.
enum { RUN = 1004, SKIP = 1006, STEP_BY_LINE = 1016, STATUS = 1105, LOAD_HIDDEN = 1107, EDITOR = 1108 };

class WorkspaceLoaderTest : public HeadlessTest {
 protected:
  void SetUp() override {
    HeadlessTest::SetUp();
    m_emulator.AddScript("terravik.cbx");
    m_collars = CopySample(m_folder, "collars");
    m_workspace = m_folder.Write("field.wor", "!Workspace\r\n!Version 1000\r\n"
                                              "Open Table \"" + m_collars + "\" As collars Interactive\r\n"
                                              "Open Table \"" + m_collars + "\" As hidden Hide\r\n"
                                              "Map From colars\r\n"
                                              "  Position (0.1,0.1) Units \"in\"\r\n"
                                              "Browse * From nowhere\r\n"
                                              "Set Window FrontWindow() Printer\r\n"
                                              "  Copies 1\r\n"
                                              "Browse * From collars\r\n");
  }
  static std::vector<std::string> Entries(const HeadlessDialog& box) {
    std::vector<std::string> entries;
    for (int i = 0; i < box.View().ListCount(STATUS); ++i) entries.push_back(box.View().ListText(STATUS, i));
    return entries;
  }
  int Load() { return WorkspaceCustomLoad(m_registration.Handle(), m_workspace.c_str()); }

  ScopedFolder m_folder;
  std::string m_collars, m_workspace;
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
};

TEST_F(WorkspaceLoaderTest, RunsOnItsTimerPausesOnErrorTakesTheMendedStatementAndStepsByPress) {
  m_ui.OnDialog(1022, [&](HeadlessDialog& box) {
    box.SetCheck(LOAD_HIDDEN, 0);
    box.Press(RUN);
    EXPECT_EQ(box.View().Text(RUN), "Pause");
    ASSERT_TRUE(PumpUntil([&] { return box.View().Text(RUN) == "Continue"; }));
    EXPECT_EQ(box.View().Text(EDITOR), "Map From colars  Position (0.1,0.1) Units \"in\" ");
    box.Type(EDITOR, "Map From collars");
    box.Press(RUN);
    ASSERT_TRUE(PumpUntil([&] { return Entries(box).size() == 5; }));
    box.Press(SKIP);
    EXPECT_EQ(box.View().Text(EDITOR), "Set Window FrontWindow() Printer  Copies 1 ");
    box.Press(RUN);
    ASSERT_TRUE(PumpUntil([&] { return !box.View().IsShown(RUN); }));
    // The last statement keeps its line end, as read.
    EXPECT_THAT(Entries(box),
                ElementsAre("OK\t- Open Table \"" + m_collars + "\" As collars Interactive ",
                            "SKIPPED\t- Open Table \"" + m_collars + "\" As hidden Hide ",
                            AllOf(StartsWith("ERROR\t["),
                                  EndsWith("] - Map From colars  Position (0.1,0.1) Units \"in\" ")),
                            "OK\t- Map From collars", EndsWith("] - Browse * From nowhere "),
                            "OK\t- Set Window FrontWindow() Printer  Copies 1 ", "OK\t- Browse * From collars\n",
                            "- End of Workspace file - "));
    EXPECT_EQ(box.View().ListIsSelected(STATUS, 7), true);
    box.Press(fk::ui::IDOK);
  });
  ASSERT_EQ(Load(), 1);

  // Stepping in a later run: the first press fills the look-ahead, then
  // each press runs the statement shown and shows the next.
  m_ui.OnDialog(1022, [&](HeadlessDialog& box) {
    box.SetCheck(STEP_BY_LINE, 1);
    for (int press = 0; press < 4; ++press) box.Press(RUN);
    EXPECT_EQ(box.View().Text(EDITOR), "Open Table \"" + m_collars + "\" As collars Interactive ");
    EXPECT_TRUE(Entries(box).empty()) << "header lines leave no entry";
    box.Press(RUN);
    EXPECT_THAT(Entries(box), ElementsAre(StartsWith("OK\t- Open Table")));
    EXPECT_THAT(box.View().Text(EDITOR), EndsWith("As hidden Hide "));
    box.Press(fk::ui::IDOK);
  });
  EXPECT_EQ(Load(), 1);
}

}  // namespace
