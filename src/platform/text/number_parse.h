// Numbers read from text by the C runtime's rules, whatever the user's locale:
// leading white space is skipped, the longest valid prefix is taken, and text
// with no number in front reads as 0. The decimal separator is always a point.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace fk {

double Atof(std::string_view text);
// atoi and atol (a 32-bit long): out-of-range values are clamped.
std::int32_t Atoi(std::string_view text);
std::int32_t Atol(std::string_view text);

// The number at the start of the text as sscanf's "%lf" and "%d" read it:
// white space skipped, the longest valid prefix taken (an integer clamped
// to 32 bits); nothing when no number stands there.
std::optional<double> ScanDouble(std::string_view text);
std::optional<std::int32_t> ScanInteger(std::string_view text);

// The whole text, blanks around it allowed, as one number; nothing otherwise.
std::optional<double> ParseWholeNumber(std::string_view text);

}  // namespace fk
