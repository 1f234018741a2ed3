#include "platform/process/input_idle.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/automation/class_registry.h"

namespace fk {

InputIdle WaitForInputIdle(ChildProcess& process, const std::string& progId, int timeoutMs) {
  constexpr auto kRound = std::chrono::milliseconds(50);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0));
  for (;;) {
    if (!process.Started()) return InputIdle::Failed;
    if (ClassRegistry::Instance().GetActiveObject(progId)) return InputIdle::Ready;
    if (process.WaitForExit(0)) return InputIdle::Failed;
    const auto now = std::chrono::steady_clock::now();
    if (now >= deadline) return InputIdle::TimedOut;
    std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(kRound, deadline - now));
  }
}

}  // namespace fk
