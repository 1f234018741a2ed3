// The news feed check. When the interval ("RSSDelay", in days) has passed
// since the last check ("RSSAccessDate"), a one-shot timer on the calling
// thread's loop waits a minute, then records the check and starts the
// product's companion program "OnlineKB.exe" with "NOTIFY". The module reads
// no feed itself: it decides when, and records when.
#pragma once

#include "platform/text/ole_date.h"

inline constexpr unsigned FEED_TIMER_ID = 801;
inline constexpr unsigned FEED_TIMER_DELAY_MS = 60000;

// The id of the pending feed timer; 0 when none is pending.
extern unsigned g_nFeedTimer;

// Whole days from `then` to `now`, as the date type counts them: the span
// rounded away from zero by half a second, then truncated.
long GetDaysBetween(fk::OleDate now, fk::OleDate then);

// The date of the last check: the stored text parsed in the user's format;
// 1 January 1900 when none is stored; 0 (30 December 1899) when the text
// doesn't parse, so that the check is due at once.
fk::OleDate GetLastFeedCheck();

// False when the check is off (an interval of 0). When it is due, starts the
// timer with `delayMs` and gives whether it started; otherwise true.
bool DisplayNewFeedsAfter(unsigned delayMs);

// The timer's work: stops the pending timer, records the present time as
// the last check, then starts "OnlineKB.exe" from the product's directory
// without waiting for it or looking at how the start went.
void OnFeedTimer();
