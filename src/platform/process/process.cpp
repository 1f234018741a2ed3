#include "platform/process/process.h"

#include <glib.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/paths/paths.h"

extern char** environ;

namespace fk {

int CurrentProcessId() { return static_cast<int>(getpid()); }

void PauseThread(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
namespace {

constexpr auto kPollStep = std::chrono::milliseconds(10);

// Whether the process has ended, without collecting it. A process that
// can't be waited for counts as ended.
bool HasEnded(int pid) {
  for (;;) {
    siginfo_t info{};
    if (waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) == 0) return info.si_pid != 0;
    if (errno != EINTR) return true;
  }
}

// GLib has collected the process by the time this runs.
void Collected(GPid, gint, gpointer) {}

}  // namespace

ChildProcess ChildProcess::Spawn(std::string_view program, const std::vector<std::string>& argv,
                                 std::string_view folder) {
  const std::string path = Native(program);
  const std::string workFolder = folder.empty() ? std::string() : Native(folder);
  std::vector<char*> args;
  for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!workFolder.empty()) posix_spawn_file_actions_addchdir_np(&actions, workFolder.c_str());
  pid_t pid = -1;
  const int failed = posix_spawn(&pid, path.c_str(), &actions, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return ChildProcess(failed ? -1 : pid);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : m_pid(other.m_pid), m_bSettled(other.m_bSettled) {
  other.m_bSettled = true;
}

ChildProcess::~ChildProcess() {
  if (Started() && !m_bSettled) Detach();
}

bool ChildProcess::WaitForExit(int timeoutMs) {
  if (!Started() || m_bSettled) return true;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0));
  for (;;) {
    if (HasEnded(m_pid)) return true;
    const auto now = std::chrono::steady_clock::now();
    if (now >= deadline) return false;
    std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(kPollStep, deadline - now));
  }
}

std::optional<int> ChildProcess::ExitCode() {
  if (!Started() || m_bSettled) return std::nullopt;
  m_bSettled = true;
  int status = 0;
  pid_t collected;
  do {
    collected = waitpid(m_pid, &status, 0);
  } while (collected < 0 && errno == EINTR);
  if (collected != m_pid) return std::nullopt;
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
  return std::nullopt;
}

void ChildProcess::Detach() {
  if (!Started() || m_bSettled) return;
  m_bSettled = true;
  GSource* watch = g_child_watch_source_new(m_pid);
  g_source_set_callback(watch, G_SOURCE_FUNC(Collected), nullptr, nullptr);
  GMainContext* context = g_main_context_ref_thread_default();
  g_source_attach(watch, context);
  g_main_context_unref(context);
  g_source_unref(watch);
}

}  // namespace fk
