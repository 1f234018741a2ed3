// The test program's private surroundings, made before anything else in
// the process starts: given FORMKIT_TEST_HOME, a registry and configuration
// folder of its own beneath it, temporary files there, and a session bus
// address where no bus answers, so that nothing reads or writes the user's
// settings and no program of the user's answers. (The test runner gives a
// discovered test one environment variable whole; the rest are made here.)
#include <cstdlib>
#include <string>

namespace {

struct TestHome {
  TestHome() {
    const char* home = std::getenv("FORMKIT_TEST_HOME");
    if (!home || !*home) return;
    const std::string folder(home);
    setenv("FORMKIT_REGISTRY_DIR", (folder + "/registry").c_str(), 0);
    setenv("XDG_CONFIG_HOME", (folder + "/config").c_str(), 0);
    setenv("TMPDIR", folder.c_str(), 0);
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + folder + "/no-session-bus").c_str(), 0);
  }
} s_testHome __attribute__((init_priority(101)));

}  // namespace
