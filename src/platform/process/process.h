// Programs started from the library, not waited for at the start: the caller
// either waits for the program in rounds while it keeps its loop going, or
// lets it run on.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fk {

// This process's id.
int CurrentProcessId();
// Lets the calling thread wait, doing nothing, for `milliseconds`.
void PauseThread(int milliseconds);

class ChildProcess {
 public:
  // Starts `program` (a path as the system writes it, through Native()) with
  // exactly `argv` as its argument vector, first entry included, and the
  // library's environment, in `folder` (through Native()) when one is given,
  // else in the library's working folder. Started() is false when it
  // couldn't be started.
  static ChildProcess Spawn(std::string_view program, const std::vector<std::string>& argv,
                            std::string_view folder = {});

  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  // A process neither collected nor let go is let go (see Detach).
  ~ChildProcess();

  bool Started() const { return m_pid > 0; }
  int Pid() const { return m_pid; }

  // Waits up to `timeoutMs` for the process to end; true when it has ended
  // (or can no longer be waited for). The exit code stays to be read.
  bool WaitForExit(int timeoutMs);
  // Collects the process, waiting for its end if need be: its exit code,
  // 128 plus the signal number when a signal ended it; nothing when the code
  // can't be read (someone else collected it).
  std::optional<int> ExitCode();
  // Lets the process run on; the calling thread's main loop collects it
  // when it ends, so that it leaves nothing behind.
  void Detach();

 private:
  explicit ChildProcess(int pid) : m_pid(pid) {}
  int m_pid = -1;
  bool m_bSettled = false;  // collected or let go
};

}  // namespace fk
