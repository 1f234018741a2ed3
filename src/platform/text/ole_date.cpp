#include "platform/text/ole_date.h"

#include <locale.h>
#include <time.h>

#include <array>
#include <chrono>
#include <cmath>
#include <ctime>

namespace fk {
namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = sys_days{year{1899} / December / 30};
constexpr long long kSecondsPerDay = 86400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
// Beyond any date of the range, so that rounding to seconds can't overflow.
constexpr double kFarOutside = 4e6;

const char* const kDateAndTime = "%x %X";
const char* const kDateOnly = "%x";
const char* const kTimeOnly = "%X";

bool InRange(const year_month_day& date) {
  return date.ok() && date.year() >= year{kFirstYear} && date.year() <= year{kLastYear};
}

OleDate OleDateFromLinear(double linear) {
  if (linear >= 0) return linear;
  const double day = std::floor(linear);
  return day - (linear - day);
}

// The user's LC_TIME for the life of the object, on this thread only; the
// "C" one when the user's can't be had.
class UserTimeLocale {
 public:
  UserTimeLocale() {
    locale_t base = duplocale(uselocale(static_cast<locale_t>(nullptr)));
    if (!base) return;
    locale_t user = newlocale(LC_TIME_MASK, "", base);
    if (!user) user = newlocale(LC_TIME_MASK, "C", base);
    if (!user) {
      freelocale(base);
      return;
    }
    m_locale = user;
    m_previous = uselocale(user);
  }
  ~UserTimeLocale() {
    if (!m_locale) return;
    uselocale(m_previous);
    freelocale(m_locale);
  }
  UserTimeLocale(const UserTimeLocale&) = delete;
  UserTimeLocale& operator=(const UserTimeLocale&) = delete;

 private:
  locale_t m_locale = nullptr;
  locale_t m_previous = nullptr;
};

std::tm TmFromParts(const DateTimeParts& parts) {
  const year_month_day date{year{parts.year}, month{static_cast<unsigned>(parts.month)},
                            day{static_cast<unsigned>(parts.day)}};
  std::tm tm{};
  tm.tm_year = parts.year - 1900;
  tm.tm_mon = parts.month - 1;
  tm.tm_mday = parts.day;
  tm.tm_hour = parts.hour;
  tm.tm_min = parts.minute;
  tm.tm_sec = parts.second;
  tm.tm_wday = static_cast<int>(weekday{sys_days{date}}.c_encoding());
  tm.tm_yday = static_cast<int>((sys_days{date} - sys_days{date.year() / January / 1}).count());
  tm.tm_isdst = -1;
  return tm;
}

DateTimeParts PartsFromTm(const std::tm& tm) {
  return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

// The whole text read by `format`, blanks after it allowed.
bool ParseAll(const std::string& text, const char* format, std::tm& tm) {
  const char* rest = strptime(text.c_str(), format, &tm);
  if (!rest) return false;
  while (*rest == ' ' || *rest == '\t') ++rest;
  return *rest == '\0';
}

}  // namespace

std::optional<OleDate> OleDateFromParts(const DateTimeParts& parts) {
  if (parts.month < 1 || parts.month > 12 || parts.day < 1 || parts.day > 31) return std::nullopt;
  if (parts.hour < 0 || parts.hour > 23 || parts.minute < 0 || parts.minute > 59 || parts.second < 0 ||
      parts.second > 59)
    return std::nullopt;
  const year_month_day date{year{parts.year}, month{static_cast<unsigned>(parts.month)},
                            day{static_cast<unsigned>(parts.day)}};
  if (!InRange(date)) return std::nullopt;
  const double days = static_cast<double>((sys_days{date} - kDayZero).count());
  const double time = (parts.hour * 3600 + parts.minute * 60 + parts.second) / static_cast<double>(kSecondsPerDay);
  return OleDateFromLinear(days + time);
}

std::optional<DateTimeParts> PartsFromOleDate(OleDate date) {
  const double linear = OleDateToLinear(date);
  if (!std::isfinite(linear) || std::fabs(linear) > kFarOutside) return std::nullopt;
  const long long seconds = std::llround(linear * kSecondsPerDay);
  long long days = seconds / kSecondsPerDay;
  long long secondOfDay = seconds % kSecondsPerDay;
  if (secondOfDay < 0) {
    secondOfDay += kSecondsPerDay;
    --days;
  }
  const year_month_day ymd{kDayZero + std::chrono::days{days}};
  if (!InRange(ymd)) return std::nullopt;
  return DateTimeParts{static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
                       static_cast<int>(static_cast<unsigned>(ymd.day())), static_cast<int>(secondOfDay / 3600),
                       static_cast<int>(secondOfDay / 60 % 60), static_cast<int>(secondOfDay % 60)};
}

double OleDateToLinear(OleDate date) {
  if (date >= 0) return date;
  const double day = std::ceil(date);
  return day - (date - day);
}

OleDate CurrentOleDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return OleDateFromParts(PartsFromTm(local)).value_or(0.0);
}

std::string FormatOleDate(OleDate date) {
  const std::optional<DateTimeParts> parts = PartsFromOleDate(date);
  if (!parts) return {};
  const bool midnight = parts->hour == 0 && parts->minute == 0 && parts->second == 0;
  const bool dayZero = parts->year == 1899 && parts->month == 12 && parts->day == 30;
  const char* format = dayZero ? kTimeOnly : midnight ? kDateOnly : kDateAndTime;
  const std::tm tm = TmFromParts(*parts);
  UserTimeLocale locale;
  std::array<char, 256> text{};
  return std::string(text.data(), std::strftime(text.data(), text.size(), format, &tm));
}

std::optional<OleDate> ParseOleDate(std::string_view text) {
  const std::string copy(text);
  UserTimeLocale locale;
  for (const char* format : {kDateAndTime, kDateOnly, kTimeOnly}) {
    std::tm tm = TmFromParts(DateTimeParts{});
    if (ParseAll(copy, format, tm)) return OleDateFromParts(PartsFromTm(tm));
  }
  return std::nullopt;
}

}  // namespace fk
