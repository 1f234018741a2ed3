#include "support/pump.h"

#include <chrono>
#include <thread>

#include "platform/loop/loop.h"

bool PumpUntil(const std::function<bool()>& done) {
  constexpr int kRounds = 60000;
  for (int round = 0; round < kRounds && !done(); ++round)
    if (fk::PumpMessages(50) == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return done();
}
