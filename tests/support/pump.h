// Runs the calling thread's main loop for a test until something happened.
#pragma once

#include <functional>

// Pumps the loop until `done` holds; false when it still doesn't after a
// generous number of rounds (about a minute).
bool PumpUntil(const std::function<bool()>& done);
