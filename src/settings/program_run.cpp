#include "settings/program_run.h"

#include "platform/loop/loop.h"
#include "platform/process/process.h"
#include "platform/text/format.h"

namespace {

constexpr int kEventsPerRound = 50;
constexpr int kWaitPerRoundMs = 100;
constexpr int kPauseAfterExitMs = 500;
constexpr int kNotStarted = -1;
constexpr int kNoExitCode = -2;

}  // namespace

int RunProgramAndWait(const std::string& program, const std::string& arguments) {
  fk::ChildProcess child = fk::ChildProcess::Spawn(program, {fk::Format("\"%s\"", program), arguments});
  if (!child.Started()) return kNotStarted;
  int dispatched = 0;
  do {
    dispatched = fk::PumpMessages(kEventsPerRound);
  } while (!child.WaitForExit(kWaitPerRoundMs));
  const std::optional<int> exitCode = child.ExitCode();
  fk::PumpMessages(kEventsPerRound - dispatched);
  fk::PauseThread(kPauseAfterExitMs);
  return exitCode.value_or(kNoExitCode);
}
