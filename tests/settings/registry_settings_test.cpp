// The products' registry values: keys per variant, defaults and formats
// (writers in several processes at once are tested on the store itself, in
// tests/platform/registry_test.cpp); and the news feed check: when it is
// due, the one-shot timer, and what the timer does.
#include <gtest/gtest.h>

#include <filesystem>

#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "platform/loop/loop.h"
#include "platform/registry/registry.h"
#include "settings/last_version.h"
#include "settings/news_feed.h"
#include "settings/open_grids.h"
#include "support/host/scripted_host.h"
#include "support/session_fixture.h"

using RegistrySettingsTest = SessionTest;

namespace {

constexpr fk::Hive kUser = fk::Hive::CurrentUser;

std::optional<std::string> Stored(const char* key, const char* name) {
  return fk::Registry::QueryString(kUser, key, name);
}

TEST_F(RegistrySettingsTest, TheViewerVersionAndDirectoriesGoToTheKeysOfTheirProduct) {
  EXPECT_EQ(GetLastVersion(), "3.0");
  EXPECT_EQ(SetLastVersion("4.2.1"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Setup", "LastVersion"), "4.2.1");
  g_Cartoma.m_nProductVariant = 1;
  EXPECT_EQ(GetLastVersion(), "3.0") << "each product has its own key";
  g_Cartoma.m_nProductVariant = 4;
  EXPECT_EQ(SetLastVersion("5.0"), 0);
  EXPECT_EQ(GetLastVersion(), "3.0");

  g_Cartoma.m_nProductVariant = 7;
  EXPECT_EQ(SaveConfigDirInRegistry("/srv/config"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Setup", "ConfigDir"), "/srv/config") << "out of range counts as Terravik";

  g_Cartoma.m_nProductVariant = 0;
  EXPECT_EQ(SaveProjectDirectoryInRegistry("C:\\Projects\\Pit"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik 3D\\Settings", "PROJECT_FOLDER"), "C:\\Projects\\Pit\\");
  EXPECT_EQ(SaveProjectDirectoryInRegistry("/home/ana/pit/"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik 3D\\Settings", "PROJECT_FOLDER"), "/home/ana/pit/");

  ScriptedHost host;
  host.Emulator().AddScript("zelvar3d.cbx");
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  EXPECT_EQ(SaveProjectDirectoryInRegistry("D:\\Work"), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Zelvar3D\\Settings", "PROJECT_FOLDER"), "D:\\Work\\")
      << "the product whose script runs in the host";
}

TEST_F(RegistrySettingsTest, OpenGridsAreListedBesideTheirTables) {
  ScopedFolder folder;
  const std::string dem = folder.Write("maps/dem.tab", "  File \"rasters\\Dem.grd\"\n  RasterStyle 6 1\n");
  const std::string photo = folder.Write("maps/photo.tab", "  File \"photo.jpg\"\n");
  const std::string slope = folder.Write("slope.TAB", "  File \"slope.grd\"\n  RasterStyle 6 1\n");
  ScriptedHost host;
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  host.Answers().Answer({{"NumTables()", "3"}, {"TableInfo(1, 1)", "DEM"}, {"TableInfo(2, 1)", "Photo"},
                         {"TableInfo(3, 1)", "Slope"}, {"TableInfo(DEM, 19)", dem}, {"TableInfo(Photo, 19)", photo},
                         {"TableInfo(Slope, 19)", slope}});

  EXPECT_EQ(GetOpenGridList(), folder.Path() + "/maps/DEM.GRD|" + folder.Path() + "/SLOPE.GRD");
  EXPECT_EQ(SaveAllOpenGridsInRegistry(), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Messages", "GRID_LIST"), GetOpenGridList());
  EXPECT_EQ(ClearAllOpenGridsInRegistry(), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Messages", "GRID_LIST"), "");

  host.Answers().Answer("NumTables()", "0");
  fk::Registry::SetString(kUser, "Software\\Orvex\\Terravik\\Messages", "GRID_LIST", "stale");
  EXPECT_EQ(SaveAllOpenGridsInRegistry(), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Terravik\\Messages", "GRID_LIST"), "") << "no grid open: the empty text";
}

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

TEST_F(NewsFeedTest, TheCheckIsDueWhenTheIntervalOfWholeDaysPerProductHasPassed) {
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

  g_Cartoma.m_nProductVariant = 1;
  EXPECT_EQ(GetRSSRegistry(), 7) << "each product has its own key";
  fk::Registry::SetString(kUser, "Software\\Orvex\\Zelvar\\Setup", "RSSDelay", "3.9 days");
  EXPECT_EQ(GetRSSRegistry(), 3) << "read as a number and truncated";
  EXPECT_EQ(SetRSSRegistry(-2), 1);
  EXPECT_EQ(Stored("Software\\Orvex\\Zelvar\\Setup", "RSSDelay"), "-2");
  g_Cartoma.m_nProductVariant = 4;
  EXPECT_EQ(GetRSSRegistry(), 0);
  EXPECT_EQ(SetRSSRegistry(5), 0);
}

TEST_F(NewsFeedTest, TheTimerRecordsTheCheckThenStartsTheCompanionProgram) {
  ScopedFolder product;
  ScriptedHost host;
  host.Emulator().SetGlobal("terravik.cbx", "TerviDir", product.Path());
  ASSERT_EQ(g_Cartoma.Connect(host.Handle(), 0), 1);
  // Without the companion program the check still counts as made.
  ASSERT_TRUE(DisplayNewFeedsAfter(1));
  EXPECT_FALSE(fk::Registry::QueryString(fk::Hive::CurrentUser, kSetup, "RSSAccessDate")) << "nothing before it fires";
  ASSERT_TRUE(PumpUntil([] { return g_nFeedTimer == 0; }));
  EXPECT_TRUE(fk::Registry::QueryString(fk::Hive::CurrentUser, kSetup, "RSSAccessDate"));
  EXPECT_EQ(DisplayNewFeeds(), 1);
  EXPECT_EQ(g_nFeedTimer, 0u) << "just checked: not due";

  product.WriteProgram("OnlineKB.exe", "echo \"$#:$1\" > \"$(dirname \"$0\")/notified.tmp\"\n"
                                       "mv \"$(dirname \"$0\")/notified.tmp\" \"$(dirname \"$0\")/notified\"\n");
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
