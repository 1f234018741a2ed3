// Timers and pumping on the calling thread's main context.
#include <gtest/gtest.h>

#include "platform/loop/loop.h"
#include "support/pump.h"

namespace {

TEST(LoopTest, TimersFireOnceWhenTheLoopIsPumpedUnlessKilled) {
  int fired = 0;
  bool killedFired = false, last = false;
  const unsigned id = fk::SetTimer("once", 1, [&] { ++fired; });
  const unsigned killed = fk::SetTimer("killed", 1, [&] { killedFired = true; });
  ASSERT_NE(id, 0u);
  EXPECT_TRUE(fk::KillTimer(killed));
  EXPECT_FALSE(fk::KillTimer(killed));
  EXPECT_EQ(fired, 0) << "nothing runs before the loop is pumped";
  ASSERT_TRUE(PumpUntil([&] { return fired > 0; }));
  fk::SetTimer("last", 5, [&] { last = true; });
  ASSERT_TRUE(PumpUntil([&] { return last; }));
  EXPECT_EQ(fired, 1);
  EXPECT_FALSE(killedFired);
  EXPECT_FALSE(fk::KillTimer(id)) << "a fired timer is gone";
}

}  // namespace
