// printf-compatible formatting that never follows the user's locale: a point
// is always the decimal separator. Used for every number the system writes.
#pragma once

#include <fmt/printf.h>

#include <string>
#include <string_view>

namespace fk {

template <typename... Args>
std::string Format(std::string_view pattern, const Args&... args) {
  return fmt::sprintf(pattern, args...);
}

}  // namespace fk
