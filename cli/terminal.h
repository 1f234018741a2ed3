// The library's user interface on a terminal: dialog boxes run headless,
// what a message box would show is printed on standard error, and progress
// windows draw a bar there (or nothing, when quiet).
#pragma once

#include "global_options.h"

namespace cli {

void UseTerminal(const GlobalOptions& options);

}  // namespace cli
