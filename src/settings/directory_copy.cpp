#include "settings/directory_copy.h"

#include "platform/files/directories.h"
#include "platform/files/files.h"
#include "platform/text/format.h"

namespace {

// The paths are held in buffers of this many characters, terminator included.
constexpr std::size_t kMaxPath = 260;

std::string WithBackslash(std::string path) {
  if (path.empty() || path.back() != '\\') path += '\\';
  return path;
}

bool Fits(const std::string& path) { return path.size() < kMaxPath; }

bool CopyEntries(const std::string& source, const std::string& target);

// One entry of `source` (a folder path ending in "\"), copied into `target`.
bool CopyEntry(const fk::DirectoryEntry& entry, const std::string& source, const std::string& target) {
  if (!entry.isDirectory) {
    const std::string from = fk::Format("%s\\%s", source, entry.name);
    const std::string to = fk::Format("%s\\%s", target, entry.name);
    return Fits(from) && Fits(to) && fk::CopyFileOver(from, to);
  }
  if (entry.name == "." || entry.name == "..") return true;
  const std::string from = fk::Format("%s%s\\", source, entry.name);
  const std::string to = fk::Format("%s%s\\", target, entry.name);
  if (!Fits(from) || !Fits(to)) return false;
  fk::CreateDirectory(to);
  return CopyEntries(from, to);
}

bool CopyEntries(const std::string& source, const std::string& target) {
  const auto entries = fk::ListDirectory(source);
  if (!entries) return false;
  bool copied = true;
  for (const fk::DirectoryEntry& entry : *entries) copied = CopyEntry(entry, source, target) && copied;
  return copied;
}

}  // namespace

int CopyDirectoryTree(std::string source, std::string target) {
  source = WithBackslash(std::move(source));
  target = WithBackslash(std::move(target));
  fk::CreateDirectory(target);
  return CopyEntries(source, target) ? 1 : 0;
}
