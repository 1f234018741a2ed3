// The module's state around exports, and timers and pumping on the calling
// thread's main context.
#include <gtest/gtest.h>
#include <langinfo.h>
#include <locale.h>

#include <stdexcept>
#include <string>

#include "platform/app/module_guard.h"
#include "platform/loop/loop.h"
#include "support/comma_locale.h"
#include "support/session_fixture.h"

using fk::ModuleGuard;

namespace {

std::string Radix() { return nl_langinfo(RADIXCHAR); }

TEST(ModuleGuardTest, InsideIsAPointAndTheCallersLocaleComesBackOnEveryWayOut) {
  const std::string comma = CommaLocaleName();
  if (comma.empty()) GTEST_SKIP() << "no locale with a decimal comma is installed or can be compiled";
  locale_t callers = newlocale(LC_NUMERIC_MASK, comma.c_str(), static_cast<locale_t>(nullptr));
  ASSERT_NE(callers, static_cast<locale_t>(nullptr));
  uselocale(callers);
  ASSERT_EQ(Radix(), ",");

  {
    ModuleGuard outer;
    EXPECT_EQ(Radix() + std::to_string(ModuleGuard::Depth()), ".1");
    {
      ModuleGuard inner;
      EXPECT_EQ(Radix() + std::to_string(ModuleGuard::Depth()), ".2");
    }
    EXPECT_EQ(Radix(), ".") << "leaving a nested export stays in the module";

    // The module calls out to the host, which works in its own locale and
    // calls an export from there.
    const locale_t module = uselocale(callers);
    {
      ModuleGuard nested;
      EXPECT_EQ(Radix(), ".") << "an export called back from the host";
    }
    EXPECT_EQ(Radix(), ",") << "the host gets its locale back";
    uselocale(module);
  }
  EXPECT_EQ(Radix(), ",");
  EXPECT_EQ(uselocale(static_cast<locale_t>(nullptr)), callers);

  // GuardedCall turns whatever escapes into the failure result, and the
  // guard leaves on the way out of an exception too.
  EXPECT_EQ(fk::GuardedCall("Test", -1, []() -> int {
              EXPECT_EQ(Radix(), ".");
              throw std::runtime_error("boom");
            }), -1);
  EXPECT_EQ(fk::GuardedCall("Test", -1, []() -> int { throw 42; }), -1);
  EXPECT_EQ(fk::GuardedCall("Test", -1, [] { return 5; }), 5);
  EXPECT_EQ(Radix() + std::to_string(ModuleGuard::Depth()), ",0");

  // A caller on the process's global locale gets that back.
  uselocale(LC_GLOBAL_LOCALE);
  freelocale(callers);
  ASSERT_NE(std::setlocale(LC_NUMERIC, comma.c_str()), nullptr);
  {
    ModuleGuard guard;
    EXPECT_EQ(Radix(), ".");
  }
  EXPECT_EQ(uselocale(static_cast<locale_t>(nullptr)), LC_GLOBAL_LOCALE);
  EXPECT_EQ(Radix(), ",");
  std::setlocale(LC_NUMERIC, "C");
}

TEST(LoopTest, TimersFireOnceWhenTheLoopIsPumpedUnlessKilled) {
  int fired = 0;
  bool killedFired = false, last = false;
  const unsigned id = fk::SetTimer("once", 1, [&] { ++fired; });
  const unsigned killed = fk::SetTimer("killed", 1, [&] { killedFired = true; });
  ASSERT_NE(id, 0u);
  EXPECT_TRUE(fk::KillTimer(killed) && !fk::KillTimer(killed)) << "a timer is killed once";
  EXPECT_EQ(fired, 0) << "nothing runs before the loop is pumped";
  ASSERT_TRUE(PumpUntil([&] { return fired > 0; }));
  fk::SetTimer("last", 5, [&] { last = true; });
  ASSERT_TRUE(PumpUntil([&] { return last; }));
  EXPECT_EQ(fired, 1);
  EXPECT_FALSE(killedFired);
  EXPECT_FALSE(fk::KillTimer(id)) << "a fired timer is gone";
}

}  // namespace
