#include "platform/text/format.h"

#include <fmt/args.h>
#include <fmt/printf.h>

namespace fk {
namespace {

using ArgStore = fmt::dynamic_format_arg_store<fmt::printf_context>;

// Each argument goes in with the type it came with: printf's conversions
// ("%u" of a negative int, "%c", "%x") depend on it.
void Add(ArgStore& store, const FormatArg& arg) {
  switch (arg.GetKind()) {
    case FormatArg::Kind::Char: store.push_back(static_cast<char>(arg.Int())); break;
    case FormatArg::Kind::Int: store.push_back(static_cast<int>(arg.Int())); break;
    case FormatArg::Kind::UInt: store.push_back(static_cast<unsigned>(arg.UInt())); break;
    case FormatArg::Kind::Long: store.push_back(static_cast<long>(arg.Int())); break;
    case FormatArg::Kind::ULong: store.push_back(static_cast<unsigned long>(arg.UInt())); break;
    case FormatArg::Kind::LongLong: store.push_back(arg.Int()); break;
    case FormatArg::Kind::ULongLong: store.push_back(arg.UInt()); break;
    case FormatArg::Kind::Double: store.push_back(arg.Double()); break;
    case FormatArg::Kind::Text: store.push_back(fmt::string_view(arg.Text().data(), arg.Text().size())); break;
  }
}

}  // namespace

std::string FormatList(std::string_view pattern, std::span<const FormatArg> args) {
  ArgStore store;
  store.reserve(args.size(), 0);
  for (const FormatArg& arg : args) Add(store, arg);
  return fmt::vsprintf(fmt::string_view(pattern.data(), pattern.size()), store);
}

}  // namespace fk
