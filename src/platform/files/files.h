// Whole-file services, each through Native(): the system's copy, delete
// and existence tests, and the head of a binary file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace fk {

bool FileExists(std::string_view path);
// Whether `path` names a folder.
bool FolderExists(std::string_view path);
// Copies `source` over `target`, replacing it; false when either side fails.
bool CopyFileOver(std::string_view source, std::string_view target);
bool RemoveFile(std::string_view path);
// Puts `source` in the place of `target` in one step, once its contents are
// on disk: `target` is either as it was or wholly the new file. False when
// it can't be done, with both left as they were.
bool ReplaceFile(std::string_view source, std::string_view target);
// The process's current folder, and changing it; false when it can't be changed.
std::string CurrentFolder();
bool SetCurrentFolder(std::string_view path);
// Up to `count` bytes from the start of the file; nothing when it can't be opened.
std::optional<std::string> ReadHead(std::string_view path, std::size_t count);
// The whole file, read at once; nothing when it can't be read or is larger
// than `maxBytes`.
std::optional<std::string> ReadWholeFile(std::string_view path, std::size_t maxBytes);

}  // namespace fk
