#include "platform/text/message_format.h"

#include <fmt/format.h>

#include <cctype>

#include "platform/text/format.h"

namespace fk {
namespace {

// One argument through a printf format such as "s", "ld" or "5.2f".
// A format that doesn't suit the argument shows the argument plainly.
std::string FormatOneArg(const MessageArg& arg, const std::string& spec) {
  const std::string pattern = "%" + spec;
  return std::visit(
      [&](const auto& value) -> std::string {
        try {
          return Format(pattern, value);
        } catch (const fmt::format_error&) {
          // Not "%s": printf formats refuse a number there.
          return fmt::format("{}", value);
        }
      },
      arg);
}

}  // namespace

std::string FormatMessageText(std::string_view pattern, std::span<const MessageArg> args) {
  std::string out;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c != '%' || i + 1 >= pattern.size()) {
      out += c;
      continue;
    }
    const char next = pattern[++i];
    if (next == '0') break;
    if (next == 'n') { out += "\r\n"; continue; }
    if (next == '%' || next == '.' || next == '!' || next == ' ') { out += next; continue; }
    if (!std::isdigit(static_cast<unsigned char>(next))) {
      out += '%';
      out += next;
      continue;
    }
    std::size_t number = static_cast<std::size_t>(next - '0');
    if (i + 1 < pattern.size() && std::isdigit(static_cast<unsigned char>(pattern[i + 1])))
      number = number * 10 + static_cast<std::size_t>(pattern[++i] - '0');
    std::string spec = "s";
    if (i + 1 < pattern.size() && pattern[i + 1] == '!') {
      const std::size_t close = pattern.find('!', i + 2);
      if (close != std::string_view::npos) {
        spec = std::string(pattern.substr(i + 2, close - i - 2));
        i = close;
      }
    }
    if (number >= 1 && number <= args.size()) out += FormatOneArg(args[number - 1], spec);
  }
  return out;
}

}  // namespace fk
