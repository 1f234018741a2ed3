// Waiting for a program that was just started to be ready for calls: the
// program is ready once the automation class it serves has a running object
// (its bus name has an owner).
#pragma once

#include <string>

#include "platform/process/process.h"

namespace fk {

enum class InputIdle { Ready, TimedOut, Failed };

// Waits up to `timeoutMs` (0: one look) for `progId` to have a running object.
// Failed when the process ended first or was never started.
InputIdle WaitForInputIdle(ChildProcess& process, const std::string& progId, int timeoutMs);

}  // namespace fk
