// The calling thread's message loop: the GLib main context that is the
// thread's default (a GTK or wx host already runs it). Timers run on it, and
// long waits keep it going by pumping it.
#pragma once

#include <functional>

namespace fk {

using TimerCallback = std::function<void()>;

// Starts a one-shot timer on the calling thread's main context: `callback`
// runs once, from that context, after `elapseMs`. `name` labels the timer
// for debuggers. The timer's id, never 0.
unsigned SetTimer(const char* name, unsigned elapseMs, TimerCallback callback);
// A timer that fires every `periodMs` until it is killed.
unsigned SetRepeatingTimer(const char* name, unsigned periodMs, TimerCallback callback);
// Stops a timer that hasn't fired yet (or a repeating one); false for an id that names none
// (already fired, already stopped, or never started).
bool KillTimer(unsigned id);

// Dispatches what is waiting on the calling thread's main context, without
// blocking, at most `limit` times; stops early when nothing is waiting.
// How many dispatches ran.
int PumpMessages(int limit);

}  // namespace fk
