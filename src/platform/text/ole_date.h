// Dates the way the system keeps them: a double counting days since
// 30 December 1899 at midnight, with the time of day as the fraction. Before
// that day the whole part counts back while the fraction still counts
// forward, so -1.25 is 29 December 1899 at 6:00. Dates run from the year 100
// to 9999.
//
// Dates shown to the user, or stored as text for the user, use the user's
// own date and time format: the LC_TIME of the user's environment (LC_ALL,
// LC_TIME, LANG), taken for the one call, never the process-wide locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fk {

using OleDate = double;

struct DateTimeParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
};

// Nothing for a date or time that doesn't exist or lies outside the range.
std::optional<OleDate> OleDateFromParts(const DateTimeParts& parts);
// The parts, to the nearest second; nothing outside the range.
std::optional<DateTimeParts> PartsFromOleDate(OleDate date);

// The date on a straight time line, where subtraction gives spans: a
// negative date unfolded as its whole part minus its fraction.
double OleDateToLinear(OleDate date);

// The present local time, in whole seconds.
OleDate CurrentOleDate();

// The date as text in the user's format: date and time; the date alone at
// midnight; the time alone on day 0 (30 December 1899). Empty outside the
// range.
std::string FormatOleDate(OleDate date);
// A text in one of those three forms back as a date; nothing when the text
// is none of them.
std::optional<OleDate> ParseOleDate(std::string_view text);

}  // namespace fk
