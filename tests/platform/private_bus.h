// For the tests of automation on the bus: a private session bus, and a
// thread that serves objects on it from a main context of its own.
#pragma once

#include <gio/gio.h>

#include <functional>
#include <thread>

// A dbus-daemon of the test's own, as the session bus of the process
// (DBUS_SESSION_BUS_ADDRESS) while the object lives.
class PrivateBus {
 public:
  PrivateBus();  // stays down when no dbus-daemon is installed
  ~PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  bool IsUp() const { return m_bus != nullptr; }

 private:
  GTestDBus* m_bus = nullptr;
};

// A thread running a GMainLoop on its own GMainContext, pushed as the
// thread's default: what a server publishes from there is served there.
class ServingThread {
 public:
  ServingThread();
  ~ServingThread();
  ServingThread(const ServingThread&) = delete;
  ServingThread& operator=(const ServingThread&) = delete;

  // Runs `work` on the thread, inside its loop, and waits until it is done;
  // an exception it throws comes back here.
  void Run(std::function<void()> work);

 private:
  GMainContext* m_context;
  GMainLoop* m_loop;
  std::thread m_thread;
};
