// The Help button: the program, its parameters per product, and the
// message when it can't start.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "host/cartoma.h"
#include "services/help_launcher.h"
#include "support/session_fixture.h"
#include "support/host/scripted_host.h"

namespace {

class HelpLauncherTest : public HeadlessTest {
 protected:
  // A help program that writes its arguments to a file; the path of that file.
  std::string InstallRecorder(const std::string& name) {
    const std::string record = m_folder.Path() + "/arguments";
    m_folder.WriteProgram(name, "echo \"$#:$*\" > '" + record + ".tmp' && mv '" + record + ".tmp' '" + record + "'\n");
    return record;
  }
  // The program runs on its own; wait until its record appears.
  static std::string Recorded(const std::string& record) {
    EXPECT_TRUE(PumpUntil([&] { return std::filesystem::exists(record); }));
    return ReadFile(record);
  }
  ScopedFolder m_folder;
  const ScopedVariable m_path{"PATH", std::getenv("PATH") ? std::getenv("PATH") : ""};  // put back after the test
};

TEST_F(HelpLauncherTest, TheHelpProgramOnThePathGetsTheParametersOfTheProduct) {
  const std::string record = InstallRecorder("hh.exe");
  setenv("PATH", (m_folder.Path() + ":" + std::getenv("PATH")).c_str(), 1);
  ScriptedHost host;
  host.Emulator().SetGlobal("zelvar.cbx", "TerviDir", "/opt/zelvar");
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  LaunchHelp(m_ui.Prompts(), HELP_REPROJECT);
  EXPECT_EQ(Recorded(record), "3:-mapid 7085 ms-its:/opt/zelvar\\zelvar.chm\n");
  EXPECT_TRUE(m_ui.Prompts().Shown().empty());

  std::filesystem::remove(record);
  g_Cartoma.m_nProductVariant = 7;
  LaunchHelp(m_ui.Prompts(), HELP_CURPOS, true);
  EXPECT_EQ(Recorded(record), "0:\n") << "a variant outside the four: no parameters";
}

TEST_F(HelpLauncherTest, AConfiguredViewerGetsTheTopicAndTheFileAndAFailedStartIsReported) {
  const std::string record = InstallRecorder("help-viewer");
  const ScopedVariable help("FORMKIT_HELP", m_folder.Path() + "/help-viewer");
  setenv("PATH", "/usr/bin:/bin", 1);
  LaunchHelp(m_ui.Prompts(), HELP_OGB_IMPORT);
  EXPECT_EQ(Recorded(record), "2:601098 /Terravik.chm\n") << "an empty product folder leaves the file at the root";

  unsetenv("FORMKIT_HELP");
  LaunchHelp(m_ui.Prompts(), HELP_DATAMINE_EXPORT);
  ASSERT_EQ(m_ui.Prompts().Shown().size(), 1u);
  EXPECT_EQ(m_ui.Prompts().Shown()[0].text,
            "Error could not execute Help.\nCommand: hh.exe -mapid 7083 ms-its:\\Terravik.chm");
}

}  // namespace
