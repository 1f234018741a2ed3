// Trimming a set of characters from both ends of a text.
#pragma once

#include <string>
#include <string_view>

namespace fk {

inline std::string TrimCharacters(std::string_view text, std::string_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(characters) - first + 1));
}

}  // namespace fk
