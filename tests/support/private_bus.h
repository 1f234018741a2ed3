// A dbus-daemon of the test's own, as the session bus of the process
// (DBUS_SESSION_BUS_ADDRESS) while the object lives; it stays down when no
// dbus-daemon is installed.
#pragma once

#include <gio/gio.h>

class PrivateBus {
 public:
  PrivateBus() {
    if (gchar* daemon = g_find_program_in_path("dbus-daemon")) {
      g_free(daemon);
      m_bus = g_test_dbus_new(G_TEST_DBUS_NONE);
      g_test_dbus_up(m_bus);
    }
  }
  ~PrivateBus() {
    if (!m_bus) return;
    g_test_dbus_down(m_bus);
    g_object_unref(m_bus);
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  bool IsUp() const { return m_bus != nullptr; }

 private:
  GTestDBus* m_bus = nullptr;
};
