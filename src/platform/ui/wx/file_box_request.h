// A file box request of the system in the toolkit's terms. The system
// writes its filter as "Name|pattern|Name|pattern||", counts the starting
// entry from 1, gives the start name as a path, and adds the default
// extension to a name typed without one; the toolkit wants a wildcard
// without the closing bars, an entry counted from 0, a folder and a name
// apart, and adds nothing.
#pragma once

#include <string>

namespace fk::ui {

// The wildcard for `filter`. The system's "*.*" means every file, while
// the toolkit's would ask for a point in the name, so it becomes "*". An
// empty filter gives an empty wildcard (every file).
std::string WildcardFromFilter(const std::string& filter);

// The number of name and pattern pairs in a wildcard.
int WildcardEntryCount(const std::string& wildcard);

// The toolkit's entry, counted from 0, for the system's entry counted from
// 1; an entry outside the wildcard gives the first one.
int WildcardIndex(const std::string& wildcard, int filterIndex);

// A start name split at its last '/': the folder (empty when the name has
// none) and the file name.
struct StartName {
  std::string folder;
  std::string name;
};
StartName SplitStartName(const std::string& path);

// `path` with ".<extension>" added when its file name has no point;
// `defaultExt` may be written "tab", ".tab" or "*.tab".
std::string WithDefaultExtension(const std::string& path, const std::string& defaultExt);

}  // namespace fk::ui
