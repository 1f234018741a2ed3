#include "text_util.h"

#include <cctype>
#include <charconv>
#include <cmath>

namespace sim {

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

std::string Upper(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return result;
}

std::string Lower(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return result;
}

std::string FormatNumber(double value) {
  if (std::isfinite(value) && value == std::trunc(value) && std::fabs(value) < 1e15) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, static_cast<long long>(value)).ptr;
    return std::string(buffer, end);
  }
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return std::string(buffer, end);
}

std::string Quote(std::string_view text) {
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

std::string TableNameFromPath(std::string_view path) {
  std::string base(path);
  const std::size_t slash = base.find_last_of("/\\");
  if (slash != std::string::npos) base = base.substr(slash + 1);
  const std::size_t dot = base.find_last_of('.');
  if (dot != std::string::npos) base = base.substr(0, dot);
  std::string name;
  for (char c : base) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0]))) name = "_" + name;
  return name;
}

}  // namespace sim
