// Letter case of narrow host text: the system searches an upper-cased copy
// and compares names ignoring case. Letters outside A to Z are left as they are.
#pragma once

#include <string>
#include <string_view>

namespace fk {

std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);

}  // namespace fk
