// The cartoma-sim program on a private session bus: the host session of
// the library connects to it by name, as to a host in another process.
#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include "host/cartoma.h"
#include "platform/automation/bus_classes.h"
#include "platform/automation/class_registry.h"
#include "platform/private_bus.h"
#include "support/session_fixture.h"

using ::testing::HasSubstr;

namespace {

class ProgramOnBus : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    if (!m_bus.IsUp()) GTEST_SKIP() << "dbus-daemon is not installed; the program needs a bus of its own";
    m_classes = fk::SessionBusClasses();
    ASSERT_TRUE(m_classes);
    fk::ClassRegistry::Instance().SetRemote(m_classes);
  }
  void TearDown() override {
    ResetSession();
    fk::ClassRegistry::Instance().SetRemote(nullptr);
    if (m_pid > 0) {
      kill(m_pid, SIGTERM);
      int status = 0;
      waitpid(m_pid, &status, 0);
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the program stops cleanly on SIGTERM";
    }
    SessionTest::TearDown();
  }

  // Starts the program and waits (a bounded number of rounds) until it owns its name.
  bool Start(std::vector<std::string> arguments) {
    std::vector<char*> argv{const_cast<char*>(CARTOMA_SIM_PATH)};
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    GError* error = nullptr;
    if (!g_spawn_async(nullptr, argv.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr, &m_pid, &error)) {
      ADD_FAILURE() << error->message;
      g_error_free(error);
      return false;
    }
    for (int round = 0; round < 500; ++round) {
      if (m_classes->GetActiveObject("Cartoma.Application")) return true;
      g_usleep(20000);
    }
    return false;
  }

  PrivateBus m_bus;
  std::shared_ptr<fk::RemoteClasses> m_classes;
  GPid m_pid = 0;
};

TEST_F(ProgramOnBus, TheSessionConnectsByNameAndRunsStatements) {
  ASSERT_TRUE(Start({"--script", "zelvar.cbx", "--global", "zelvar.cbx:TerviDir=/opt/zelvar", "--open",
                     std::string(SIM_SAMPLES_DIR) + "/collars.tab"}));
  ASSERT_EQ(g_Cartoma.Connect(0, 1), 1);
  EXPECT_EQ(g_Cartoma.m_nProductVariant, 1) << "zelvar.cbx found through the program's script objects";
  EXPECT_EQ(g_Cartoma.GetTerviDir(), "/opt/zelvar");
  EXPECT_EQ(g_Cartoma.GetTableRowCount("collars"), 5);

  EXPECT_TRUE(g_Cartoma.CreatePointVariable("p", 255120, 5925210));
  int error = 0;
  g_Cartoma.Do("Fetch Rec 9 From collars", 1, &error);
  EXPECT_EQ(error, 1);
  EXPECT_EQ(g_Cartoma.m_strLastError, "Table collars has 5 rows; there is no row 9");
  EXPECT_EQ(g_Cartoma.Eval("ObjectInfo(p, 1)"), "5") << "the program goes on after a failure";
}

}  // namespace
