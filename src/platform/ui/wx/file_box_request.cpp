#include "platform/ui/wx/file_box_request.h"

#include <algorithm>
#include <vector>

namespace fk::ui {
namespace {

std::vector<std::string> SplitAt(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, start)) {
    parts.push_back(text.substr(start, at - start));
    start = at + 1;
  }
  parts.push_back(text.substr(start));
  return parts;
}

// "*.*" within a pattern list such as "*.txt;*.*" becomes "*".
std::string EveryFileAsToolkitPattern(const std::string& patterns) {
  std::string result;
  for (const std::string& pattern : SplitAt(patterns, ';')) {
    if (!result.empty()) result += ';';
    result += pattern == "*.*" ? "*" : pattern;
  }
  return result;
}

}  // namespace

std::string WildcardFromFilter(const std::string& filter) {
  std::vector<std::string> parts = SplitAt(filter, '|');
  // The closing "||" leaves empty parts at the end; a name without a
  // pattern can't be an entry.
  while (!parts.empty() && parts.back().empty()) parts.pop_back();
  if (parts.size() % 2 != 0) parts.pop_back();
  std::string wildcard;
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    if (!wildcard.empty()) wildcard += '|';
    wildcard += parts[i] + '|' + EveryFileAsToolkitPattern(parts[i + 1]);
  }
  return wildcard;
}

int WildcardEntryCount(const std::string& wildcard) {
  if (wildcard.empty()) return 0;
  return static_cast<int>(std::count(wildcard.begin(), wildcard.end(), '|') + 1) / 2;
}

int WildcardIndex(const std::string& wildcard, int filterIndex) {
  const int entries = WildcardEntryCount(wildcard);
  return filterIndex >= 1 && filterIndex <= entries ? filterIndex - 1 : 0;
}

StartName SplitStartName(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {{}, path};
  return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

std::string WithDefaultExtension(const std::string& path, const std::string& defaultExt) {
  const std::string extension = defaultExt.substr(std::min(defaultExt.find_first_not_of("*."), defaultExt.size()));
  if (extension.empty() || path.empty()) return path;
  const std::string name = SplitStartName(path).name;
  if (name.empty() || name.find('.') != std::string::npos) return path;
  return path + '.' + extension;
}

}  // namespace fk::ui
