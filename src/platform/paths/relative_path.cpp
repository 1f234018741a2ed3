#include "platform/paths/relative_path.h"

#include <vector>

#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"

namespace fk {
namespace {

struct SplitForm {
  std::string root;  // "C:\", "C:", "\", "/" or empty, separators made alike
  std::vector<std::string> names;
};

SplitForm Split(std::string_view path) {
  SplitForm form;
  std::size_t at = 0;
  if (path.size() >= 2 && path[1] == ':') {
    form.root = ToUpper(path.substr(0, 2));
    at = 2;
  }
  if (at < path.size() && IsSeparator(path[at])) {
    form.root += '/';
    ++at;
  }
  std::string name;
  for (; at <= path.size(); ++at) {
    if (at == path.size() || IsSeparator(path[at])) {
      if (!name.empty()) form.names.push_back(name);
      name.clear();
    } else {
      name += path[at];
    }
  }
  return form;
}

}  // namespace

std::optional<std::string> RelativePathTo(std::string_view fromFile, std::string_view toPath) {
  SplitForm from = Split(fromFile);
  const SplitForm to = Split(toPath);
  if (!from.names.empty()) from.names.pop_back();  // the file's own name
  if (from.root != to.root) return std::nullopt;
  std::size_t common = 0;
  while (common < from.names.size() && common < to.names.size() && EqualsNoCase(from.names[common], to.names[common]))
    ++common;
  if (from.root.empty() && common == 0) return std::nullopt;
  const char separator = toPath.find('\\') != std::string_view::npos ? '\\' : '/';
  std::string relative;
  if (common == from.names.size()) relative = std::string(".") + separator;
  for (std::size_t i = common; i < from.names.size(); ++i) relative += std::string("..") + separator;
  for (std::size_t i = common; i < to.names.size(); ++i) {
    relative += to.names[i];
    if (i + 1 < to.names.size()) relative += separator;
  }
  return relative;
}

}  // namespace fk
