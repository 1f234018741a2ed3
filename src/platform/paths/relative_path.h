// A path relative to a file's folder, as the system's shell makes one: the
// common folders left out, a ".." for each folder of the file's own that
// remains, "." when none does. Folder names compare ignoring case; "\" and
// "/" both separate, and the answer uses the separator that the target uses.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fk {

// Nothing when no relative path exists: different drives or roots, or two
// relative paths with no folder in common.
std::optional<std::string> RelativePathTo(std::string_view fromFile, std::string_view toPath);

}  // namespace fk
