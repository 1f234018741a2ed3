// The viewer simulator started, found and stopped by the library, on a
// private session bus, with the viewer's location in a registry of the
// test's own. The simulator's record of calls is the wire the library
// spoke. Tests of this fixture run one at a time (their suite names begin
// with "ViewerProgram"), since the viewer's processes are found by name.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "frame/formkit_app.h"
#include "platform/automation/bus_classes.h"
#include "platform/automation/class_registry.h"
#include "platform/registry/registry.h"
#include "support/private_bus.h"
#include "support/session_fixture.h"

inline constexpr const char* kTerravikKey = "Software\\Orvex\\Terravik 3D";

// Every simulator program's process, found the way a person would: by the
// file the process runs.
inline std::vector<int> SimulatorProcesses() {
  std::vector<int> pids;
  const std::filesystem::path dir = std::filesystem::path(TV_SIM_PATH).parent_path();
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    std::error_code error;
    const auto exe = std::filesystem::read_symlink(entry.path() / "exe", error);
    if (!error && exe.parent_path() == dir) pids.push_back(std::stoi(entry.path().filename().string()));
  }
  return pids;
}

// Where the library finds the viewer simulator: a bus of the test's own, the
// installer's record in the test's registry, drive C: mapped to the
// simulator's folder, and the simulator's record of calls in a folder of
// the test's own. Stopping ends every simulator process and lets the
// library's link go.
class ViewerSimulatorPlace {
 protected:
  void Prepare() {
    ASSERT_THAT(SimulatorProcesses(), ::testing::IsEmpty()) << "a viewer simulator is already running";
    fk::ClassRegistry::Instance().SetRemote(fk::SessionBusClasses());
    // The installer's record, as a Windows path on a mapped drive.
    ASSERT_TRUE(fk::Registry::SetString(fk::Hive::LocalMachine, kTerravikKey, "ProgramPath", "C:\\Terravik3D.exe"));
    ASSERT_TRUE(fk::Registry::SetString(fk::Hive::LocalMachine, kTerravikKey, "Installation", "C:\\"));
  }
  void StopViewers() {
    for (int pid : SimulatorProcesses()) kill(pid, SIGTERM);
    for (int pid : SimulatorProcesses()) Ended(pid);
    // The linked library lets go of a viewer gone with the test's bus.
    theApp.m_Viewer.ReleaseAll();
    fk::ClassRegistry::Instance().SetRemote(nullptr);
  }
  // Waits (in bounded rounds) until `pid` no longer runs the simulator.
  static bool Ended(int pid) {
    for (int round = 0; round < 500; ++round, g_usleep(10000))
      if (std::ranges::count(SimulatorProcesses(), pid) == 0) return true;
    return false;
  }

  PrivateBus m_bus;
  ScopedFolder m_folder;
  ScopedVariable m_drive{"FORMKIT_DRIVE_C", std::filesystem::path(TV_SIM_PATH).parent_path().string()};
  std::string m_record = m_folder.Path() + "/calls.txt";
  ScopedVariable m_recordVariable{"TV_SIM_RECORD", m_record};
};

class ViewerProgram : public HeadlessTest, protected ViewerSimulatorPlace {
 protected:
  void SetUp() override {
    HeadlessTest::SetUp();
    if (!m_bus.IsUp()) GTEST_SKIP() << "dbus-daemon is not installed; the viewer needs a bus of its own";
    Prepare();
  }
  void TearDown() override {
    StopViewers();
    HeadlessTest::TearDown();
  }

  // The calls recorded so far, as "OBJECT DISPID" with the flags checked.
  std::vector<std::string> Calls() const {
    std::vector<std::string> calls;
    std::ifstream in(m_record);
    for (std::string line; std::getline(in, line);) {
      EXPECT_THAT(line, ::testing::HasSubstr(" flags=0")) << "every viewer call passes 0 as its flags";
      calls.push_back(line);
    }
    return calls;
  }
  static std::vector<std::string> Members(const std::vector<std::string>& calls) {
    std::vector<std::string> members;
    for (const std::string& call : calls) members.push_back(call.substr(0, call.find(" flags=")));
    return members;
  }
  // The simulator started by hand as the other product's viewer, with `arguments`.
  static GPid StartZelvarByHand(std::vector<const char*> arguments) {
    const std::string zelvar = (std::filesystem::path(TV_SIM_PATH).parent_path() / "Zelvar3D.exe").string();
    arguments.insert(arguments.begin(), zelvar.c_str());
    arguments.push_back(nullptr);
    GPid pid = 0;
    EXPECT_TRUE(g_spawn_async(nullptr, const_cast<char**>(arguments.data()), nullptr, G_SPAWN_DO_NOT_REAP_CHILD,
                              nullptr, nullptr, &pid, nullptr));
    return pid;
  }

  ScopedVariable m_headless{"FORMKIT_UI", "headless"};
};
