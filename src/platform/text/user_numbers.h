// Numbers in the fields of dialog boxes follow the user's locale (the
// environment's LC_NUMERIC), as the user types them; files never do. The
// rules are the framework's for a field of a 64-bit float.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fk {

// The value as a field shows it: "%.15g" with the user's decimal separator.
std::string UserNumberText(double value);
// The field's text as one number in the user's locale: white space may
// stand in front, nothing behind; nothing when the text is not a number.
std::optional<double> ParseUserNumber(std::string_view text);

}  // namespace fk
