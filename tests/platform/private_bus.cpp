#include "platform/private_bus.h"

#include <future>
#include <memory>

PrivateBus::PrivateBus() {
  char* daemon = g_find_program_in_path("dbus-daemon");
  if (!daemon) return;
  g_free(daemon);
  m_bus = g_test_dbus_new(G_TEST_DBUS_NONE);
  g_test_dbus_up(m_bus);
}

PrivateBus::~PrivateBus() {
  if (!m_bus) return;
  g_test_dbus_down(m_bus);
  g_object_unref(m_bus);
}

ServingThread::ServingThread()
    : m_context(g_main_context_new()), m_loop(g_main_loop_new(m_context, FALSE)), m_thread([this] {
        g_main_context_push_thread_default(m_context);
        g_main_loop_run(m_loop);
        g_main_context_pop_thread_default(m_context);
      }) {}

ServingThread::~ServingThread() {
  // Quitting from inside the loop: a quit before the loop runs would be lost.
  Run([this] { g_main_loop_quit(m_loop); });
  m_thread.join();
  g_main_loop_unref(m_loop);
  g_main_context_unref(m_context);
}

void ServingThread::Run(std::function<void()> work) {
  struct Job {
    std::function<void()> work;
    std::promise<void> done;
  };
  auto job = std::make_unique<Job>();
  job->work = std::move(work);
  std::future<void> done = job->done.get_future();
  g_main_context_invoke(
      m_context,
      [](gpointer data) -> gboolean {
        std::unique_ptr<Job> job(static_cast<Job*>(data));
        try {
          job->work();
          job->done.set_value();
        } catch (...) {
          job->done.set_exception(std::current_exception());
        }
        return G_SOURCE_REMOVE;
      },
      job.release());
  done.get();
}
