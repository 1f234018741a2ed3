#include "platform/files/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "platform/paths/paths.h"

namespace fk {

bool FileExists(std::string_view path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(Native(path), ec);
}

bool FolderExists(std::string_view path) {
  std::error_code ec;
  return std::filesystem::is_directory(Native(path), ec);
}

bool CopyFileOver(std::string_view source, std::string_view target) {
  std::error_code ec;
  return std::filesystem::copy_file(Native(source), Native(target),
                                    std::filesystem::copy_options::overwrite_existing, ec);
}

bool RemoveFile(std::string_view path) {
  std::error_code ec;
  return std::filesystem::remove(Native(path), ec);
}

bool ReplaceFile(std::string_view source, std::string_view target) {
  const std::string from = Native(source);
  const int fd = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  const bool synced = ::fsync(fd) == 0;
  ::close(fd);
  return synced && ::rename(from.c_str(), Native(target).c_str()) == 0;
}

std::string CurrentFolder() {
  std::error_code ec;
  return std::filesystem::current_path(ec).string();
}

bool SetCurrentFolder(std::string_view path) {
  std::error_code ec;
  std::filesystem::current_path(Native(path), ec);
  return !ec;
}

std::optional<std::string> ReadHead(std::string_view path, std::size_t count) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(Native(path).c_str(), "rb"), std::fclose);
  if (!file) return std::nullopt;
  // In blocks, so that a small file costs what it holds, not `count`.
  std::string head;
  char block[8192];
  while (head.size() < count) {
    const std::size_t read = std::fread(block, 1, std::min(sizeof block, count - head.size()), file.get());
    head.append(block, read);
    if (read == 0) break;
  }
  return head;
}

}  // namespace fk
