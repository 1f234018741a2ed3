#include "platform/folders/folders.h"

#include <cstdlib>

#include "platform/paths/paths.h"

namespace fk {

std::string TempDirectory() {
  const char* tmp = std::getenv("TMPDIR");
  std::string folder = AddTrailingSeparator(tmp && *tmp ? tmp : "/tmp");
  if (folder.size() + 1 > 260) return {};
  return folder;
}

}  // namespace fk
