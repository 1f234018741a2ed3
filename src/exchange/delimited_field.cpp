#include "exchange/delimited_field.h"

#include <optional>

#include "platform/text/number_parse.h"

namespace {

// What follows the `index`th delimiter; nothing when there are fewer.
std::optional<std::string_view> FieldStart(std::string_view text, char delimiter, int index) {
  std::size_t at = 0;
  for (int i = 0; i < index; ++i) {
    at = text.find(delimiter, at);
    if (at == std::string_view::npos) return std::nullopt;
    ++at;
  }
  return text.substr(at);
}

template <typename Number, typename Scan>
bool ScanField(std::string_view text, char delimiter, int index, Number& value, Scan scan) {
  const std::optional<std::string_view> field = FieldStart(text, delimiter, index);
  if (!field) return false;
  const auto scanned = scan(*field);
  if (!scanned) return false;
  value = *scanned;
  return true;
}

}  // namespace

bool GetDelimitedField(std::string_view text, char delimiter, int index, double& value) {
  return ScanField(text, delimiter, index, value, fk::ScanDouble);
}

bool GetDelimitedField(std::string_view text, char delimiter, int index, std::int32_t& value) {
  return ScanField(text, delimiter, index, value, fk::ScanInteger);
}
