#include "platform/text/number_parse.h"

#include <locale.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

namespace fk {
namespace {

// The "C" locale, made once: strtod_l and strtol_l then read a point as the
// decimal separator even when the process runs under another LC_NUMERIC.
locale_t CLocale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  return locale;
}

// strtod and strtol need a terminated string; string_views need not be.
struct Terminated {
  explicit Terminated(std::string_view text) : copy(text) {}
  std::string copy;
};

}  // namespace

double Atof(std::string_view text) {
  Terminated t(text);
  return strtod_l(t.copy.c_str(), nullptr, CLocale());
}

std::int32_t Atoi(std::string_view text) {
  Terminated t(text);
  errno = 0;
  const long long value = strtoll_l(t.copy.c_str(), nullptr, 10, CLocale());
  if (value > INT32_MAX) return INT32_MAX;
  if (value < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(value);
}

std::int32_t Atol(std::string_view text) { return Atoi(text); }

std::optional<double> ScanDouble(std::string_view text) {
  Terminated t(text);
  char* end = nullptr;
  const double value = strtod_l(t.copy.c_str(), &end, CLocale());
  if (end == t.copy.c_str()) return std::nullopt;
  return value;
}

std::optional<std::int32_t> ScanInteger(std::string_view text) {
  Terminated t(text);
  char* end = nullptr;
  const long long value = strtoll_l(t.copy.c_str(), &end, 10, CLocale());
  if (end == t.copy.c_str()) return std::nullopt;
  if (value > INT32_MAX) return INT32_MAX;
  if (value < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(value);
}

std::optional<double> ParseWholeNumber(std::string_view text) {
  Terminated t(text);
  const char* begin = t.copy.c_str();
  char* end = nullptr;
  const double value = strtod_l(begin, &end, CLocale());
  if (end == begin) return std::nullopt;
  // strtod also takes hexadecimal numbers, "inf" and "nan": no numbers as
  // the system writes them.
  for (const char* p = begin; p != end; ++p)
    if (!std::strchr("0123456789+-.eE \t\n\v\f\r", *p)) return std::nullopt;
  // Blanks may stand behind the number as in front of it.
  while (*end != '\0' && std::strchr(" \t\n\v\f\r", *end)) ++end;
  if (*end != '\0') return std::nullopt;
  return value;
}

}  // namespace fk
