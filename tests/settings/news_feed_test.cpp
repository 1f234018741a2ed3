// The news feed check: when it is due, the one-shot timer, and what the
// timer does.
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "platform/loop/loop.h"
#include "platform/registry/registry.h"
#include "settings/news_feed.h"
#include "support/pump.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

namespace {

constexpr const char* kSetup = "Software\\Orvex\\Terravik\\Setup";
constexpr double kHour = 1.0 / 24;
constexpr double kSecond = 1.0 / 86400;

void StoreLastCheck(const std::string& text) {
  fk::Registry::SetString(fk::Hive::CurrentUser, kSetup, "RSSAccessDate", text);
}

class NewsFeedTest : public SessionTest {
 protected:
  void TearDown() override {
    CheckStarted();
    SessionTest::TearDown();
  }
  // Whether a check was started (its timer is stopped here).
  static bool CheckStarted() {
    const bool started = g_nFeedTimer != 0;
    if (started) fk::KillTimer(g_nFeedTimer);
    g_nFeedTimer = 0;
    return started;
  }
};

TEST(FeedDaysTest, SpansAreRoundedByHalfASecondThenCut) {
  const fk::OleDate now = 45000.5;
  EXPECT_EQ(GetDaysBetween(now, now - 6 - 23 * kHour), 6);
  EXPECT_EQ(GetDaysBetween(now, now - 7 + 0.4 * kSecond), 7) << "6 days 23:59:59.6 count as 7";
  EXPECT_EQ(GetDaysBetween(now, now - 7 + 0.6 * kSecond), 6);
  EXPECT_EQ(GetDaysBetween(now - 7 + 0.4 * kSecond, now), -7) << "negative spans round away from zero too";
  EXPECT_EQ(GetDaysBetween(1.0, -1.25), 1) << "a date before 1900 is unfolded first: -1.25 lies at -0.75";
  EXPECT_EQ(GetDaysBetween(now, 0.0), 45000) << "an unparsed date, day 0";
}

TEST_F(NewsFeedTest, TheIntervalIsWholeDaysPerProduct) {
  EXPECT_EQ(GetRSSRegistry(), 7);
  EXPECT_EQ(SetRSSRegistry(14), 1);
  g_Cartoma.m_nProductVariant = 1;
  EXPECT_EQ(GetRSSRegistry(), 7) << "each product has its own key";
  fk::Registry::SetString(fk::Hive::CurrentUser, "Software\\Orvex\\Zelvar\\Setup", "RSSDelay", "3.9 days");
  EXPECT_EQ(GetRSSRegistry(), 3) << "read as a number and truncated";
  EXPECT_EQ(SetRSSRegistry(-2), 1);
  EXPECT_EQ(fk::Registry::QueryString(fk::Hive::CurrentUser, "Software\\Orvex\\Zelvar\\Setup", "RSSDelay"), "-2");
  g_Cartoma.m_nProductVariant = 4;
  EXPECT_EQ(GetRSSRegistry(), 0);
  EXPECT_EQ(SetRSSRegistry(5), 0);
}

TEST_F(NewsFeedTest, TheCheckIsDueWhenTheIntervalHasPassed) {
  EXPECT_EQ(DisplayNewFeedsAfter(FEED_TIMER_DELAY_MS), true);
  EXPECT_TRUE(CheckStarted()) << "never checked: due";
  const struct {
    std::string lastCheck;
    bool due;
  } cases[] = {
      {fk::FormatOleDate(fk::CurrentOleDate() - 6 - 23 * kHour), false},  // interval 7
      {fk::FormatOleDate(fk::CurrentOleDate() - 7 - kHour), true},
      {"last Tuesday", true},  // a date that doesn't parse: due at once
  };
  for (const auto& c : cases) {
    StoreLastCheck(c.lastCheck);
    EXPECT_EQ(DisplayNewFeeds(), 1);
    EXPECT_EQ(CheckStarted(), c.due) << c.lastCheck;
  }
  ASSERT_EQ(SetRSSRegistry(0), 1);
  EXPECT_EQ(DisplayNewFeeds(), 0) << "an interval of 0 turns the check off";
  EXPECT_FALSE(CheckStarted());
}

TEST_F(NewsFeedTest, TheTimerRecordsTheCheckThenStartsTheCompanionProgram) {
  ScopedFolder product;
  ScriptedHost host;
  host.AddScript("terravik.cbx").SetGlobal("TerviDir", product.Path());
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  // Without the companion program the check still counts as made.
  ASSERT_TRUE(DisplayNewFeedsAfter(1));
  EXPECT_FALSE(fk::Registry::QueryString(fk::Hive::CurrentUser, kSetup, "RSSAccessDate")) << "nothing before it fires";
  ASSERT_TRUE(PumpUntil([] { return g_nFeedTimer == 0; }));
  EXPECT_TRUE(fk::Registry::QueryString(fk::Hive::CurrentUser, kSetup, "RSSAccessDate"));
  EXPECT_EQ(DisplayNewFeeds(), 1);
  EXPECT_EQ(g_nFeedTimer, 0u) << "just checked: not due";

  const std::string program =
      product.Write("OnlineKB.exe", "#!/bin/sh\necho \"$#:$1\" > \"$(dirname \"$0\")/notified.tmp\"\n"
                                    "mv \"$(dirname \"$0\")/notified.tmp\" \"$(dirname \"$0\")/notified\"\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  StoreLastCheck("");
  ASSERT_TRUE(DisplayNewFeedsAfter(1));
  ASSERT_TRUE(PumpUntil([&] { return std::filesystem::exists(product.Path() + "/notified"); }));
  EXPECT_EQ(ReadFile(product.Path() + "/notified"), "1:NOTIFY\n") << "\"NOTIFY\" is the one argument";
  EXPECT_EQ(g_nFeedTimer, 0u);
  const auto stored = fk::Registry::QueryString(fk::Hive::CurrentUser, kSetup, "RSSAccessDate");
  ASSERT_TRUE(stored);
  const auto checked = fk::ParseOleDate(*stored);
  ASSERT_TRUE(checked) << *stored;
  EXPECT_EQ(GetDaysBetween(fk::CurrentOleDate(), *checked), 0);
}

}  // namespace
