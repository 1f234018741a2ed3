// A dbus-daemon of the test's own, as the session bus of the process
// (DBUS_SESSION_BUS_ADDRESS) while the object lives; it stays down when no
// dbus-daemon is installed. The display the process has is kept: GLib's
// test bus unsets DISPLAY when it goes up and again when it goes down.
#pragma once

#include <gio/gio.h>

#include <string>

class PrivateBus {
 public:
  PrivateBus() {
    if (gchar* daemon = g_find_program_in_path("dbus-daemon")) {
      g_free(daemon);
      m_bus = g_test_dbus_new(G_TEST_DBUS_NONE);
      KeepingDisplay([this] { g_test_dbus_up(m_bus); });
    }
  }
  ~PrivateBus() {
    if (!m_bus) return;
    KeepingDisplay([this] { g_test_dbus_down(m_bus); });
    g_object_unref(m_bus);
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  bool IsUp() const { return m_bus != nullptr; }

 private:
  template <typename Step>
  static void KeepingDisplay(Step step) {
    const char* now = g_getenv("DISPLAY");
    const std::string display = now ? now : "";
    step();
    if (!display.empty()) g_setenv("DISPLAY", display.c_str(), TRUE);
  }

  GTestDBus* m_bus = nullptr;
};
