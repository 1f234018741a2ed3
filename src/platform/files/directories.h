// Folders: creating one, and listing one the way the system lists a folder
// with "*.*" (every entry, "." and ".." included, in the order the file
// system gives them). Paths go through Native().
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fk {

enum class CreateDirectoryResult { Created, AlreadyExists, Failed };

// Creates the folder `path`; its parent must exist. AlreadyExists when
// something of that name is there, folder or file.
CreateDirectoryResult CreateDirectory(std::string_view path);

struct DirectoryEntry {
  std::string name;
  bool isDirectory = false;  // a folder, or a link to one
};

// The entries of the folder; nothing when it can't be listed.
std::optional<std::vector<DirectoryEntry>> ListDirectory(std::string_view path);

}  // namespace fk
