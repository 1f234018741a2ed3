#include "settings/news_feed.h"

#include <string>

#include "host/cartoma.h"
#include "platform/app/module_guard.h"
#include "platform/loop/loop.h"
#include "platform/process/process.h"
#include "platform/text/format.h"
#include "settings/feed_registry.h"

unsigned g_nFeedTimer = 0;

namespace {

// Half a second in days: spans are rounded by it before they are cut to days.
constexpr double kHalfSecond = 5.787037037037037e-06;
// 1 January 1900, 00:00:00.
constexpr fk::OleDate kNeverChecked = 2.0;
// What a failed parse leaves in a date.
constexpr fk::OleDate kUnparsedDate = 0.0;

void StartCompanionProgram() {
  const std::string program = fk::Format("%s\\OnlineKB.exe", g_Cartoma.GetTerviDir());
  fk::ChildProcess::Spawn(program, {fk::Format("\"%s\"", program), "NOTIFY"}).Detach();
}

}  // namespace

long GetDaysBetween(fk::OleDate now, fk::OleDate then) {
  const double span = fk::OleDateToLinear(now) - fk::OleDateToLinear(then);
  return static_cast<long>(span + (span < 0 ? -kHalfSecond : kHalfSecond));
}

fk::OleDate GetLastFeedCheck() {
  const std::optional<std::string> stored = GetRSSAccessDateText();
  if (!stored) return kNeverChecked;
  return fk::ParseOleDate(*stored).value_or(kUnparsedDate);
}

bool DisplayNewFeedsAfter(unsigned delayMs) {
  const int interval = GetRSSDelayDays();
  const fk::OleDate now = fk::CurrentOleDate();
  if (interval == 0) return false;
  if (interval > GetDaysBetween(now, GetLastFeedCheck())) return true;
  const std::string name = fk::Format("news feed timer %u", FEED_TIMER_ID);
  g_nFeedTimer = fk::SetTimer(name.c_str(), delayMs, [] {
    fk::GuardedCall("DisplayNewFeeds", 0, [] {
      OnFeedTimer();
      return 0;
    });
  });
  return g_nFeedTimer != 0;
}

void OnFeedTimer() {
  if (g_nFeedTimer) {
    fk::KillTimer(g_nFeedTimer);
    g_nFeedTimer = 0;
  }
  SetRSSAccessDate(fk::CurrentOleDate());
  StartCompanionProgram();
}
