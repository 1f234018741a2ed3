#include "platform/text/user_numbers.h"

#include <locale.h>

#include <cfloat>
#include <cstdio>
#include <cstdlib>

namespace fk {
namespace {

// The user's numeric locale, made once; the "C" one when the environment
// names none that is installed.
locale_t UserNumericLocale() {
  static const locale_t locale = [] {
    locale_t user = newlocale(LC_NUMERIC_MASK, "", static_cast<locale_t>(nullptr));
    return user ? user : newlocale(LC_NUMERIC_MASK, "C", static_cast<locale_t>(nullptr));
  }();
  return locale;
}

// The user's numeric locale on this thread for the life of the object.
class UserNumericScope {
 public:
  UserNumericScope() : m_previous(uselocale(UserNumericLocale())) {}
  ~UserNumericScope() { uselocale(m_previous); }
  UserNumericScope(const UserNumericScope&) = delete;
  UserNumericScope& operator=(const UserNumericScope&) = delete;

 private:
  locale_t m_previous;
};

}  // namespace

std::string UserNumberText(double value) {
  UserNumericScope scope;
  char text[64];
  std::snprintf(text, sizeof text, "%.*g", DBL_DIG, value);
  return text;
}

std::optional<double> ParseUserNumber(std::string_view text) {
  const std::string copy(text);
  char* end = nullptr;
  const double value = strtod_l(copy.c_str(), &end, UserNumericLocale());
  if (end == copy.c_str() || *end != '\0') return std::nullopt;
  return value;
}

}  // namespace fk
