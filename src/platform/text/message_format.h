// The system's message format: "%1" to "%99" insert the arguments, with an
// optional printf format between exclamation marks ("%1!s!", "%2!ld!",
// "%1!5.2f!"); "%%" is a percent sign, "%n" a line break, "%0" ends the
// message; "%.", "%!" and "% " stand for ".", "!" and " ".
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace fk {

using MessageArg = std::variant<std::string, long long, double>;

std::string FormatMessageText(std::string_view pattern, std::span<const MessageArg> args);

}  // namespace fk
