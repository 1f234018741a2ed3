#include "platform/files/directories.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/paths/paths.h"

namespace fk {

CreateDirectoryResult CreateDirectory(std::string_view path) {
  const std::string native = Native(path);
  if (native.empty()) return CreateDirectoryResult::Failed;
  if (mkdir(native.c_str(), 0777) == 0) return CreateDirectoryResult::Created;
  return errno == EEXIST ? CreateDirectoryResult::AlreadyExists : CreateDirectoryResult::Failed;
}

std::optional<std::vector<DirectoryEntry>> ListDirectory(std::string_view path) {
  const std::string folder = AddTrailingSeparator(Native(path));
  DIR* dir = opendir(folder.c_str());
  if (!dir) return std::nullopt;
  std::vector<DirectoryEntry> entries;
  while (const dirent* entry = readdir(dir)) {
    struct stat st;
    const bool isDirectory = stat((folder + entry->d_name).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
    entries.push_back({entry->d_name, isDirectory});
  }
  closedir(dir);
  return entries;
}

}  // namespace fk
