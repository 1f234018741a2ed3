// Exports of the news feed check.
#include "formkit/formkit.h"
#include "platform/app/module_guard.h"
#include "settings/feed_registry.h"
#include "settings/news_feed.h"

extern "C" int GetRSSRegistry(void) {
  return fk::GuardedCall("GetRSSRegistry", 0, [] { return GetRSSDelayDays(); });
}

extern "C" int SetRSSRegistry(int days) {
  return fk::GuardedCall("SetRSSRegistry", 0, [&] { return SetRSSDelayDays(days); });
}

extern "C" int DisplayNewFeeds(void) {
  return fk::GuardedCall("DisplayNewFeeds", 0, [] { return DisplayNewFeedsAfter(FEED_TIMER_DELAY_MS) ? 1 : 0; });
}
