// The news feed check's two values in the product's Setup key: the interval
// in whole days ("RSSDelay") and the date of the last check
// ("RSSAccessDate", a date text in the user's format).
#pragma once

#include <optional>
#include <string>

#include "platform/text/ole_date.h"

inline constexpr int DEFAULT_RSS_DELAY_DAYS = 7;

// The stored interval read as a number and truncated; 7 when none is
// stored, 0 for a variant out of range.
int GetRSSDelayDays();
// Writes the interval with "%ld": 1, or 0 for a variant out of range.
int SetRSSDelayDays(int days);

// The stored date text of the last check; nothing when none is stored.
std::optional<std::string> GetRSSAccessDateText();
// Writes `date` in the user's format.
void SetRSSAccessDate(fk::OleDate date);
