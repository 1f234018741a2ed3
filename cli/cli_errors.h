// How a command of the command line ends when it can't do its work: bad
// usage (exit code 2) or a tool that failed or was cancelled (exit code 1).
// Each carries the one line that names the problem.
#pragma once

#include <stdexcept>
#include <string>

namespace cli {

enum ExitCode { kDone = 0, kFailed = 1, kBadUsage = 2 };

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct ToolFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace cli
