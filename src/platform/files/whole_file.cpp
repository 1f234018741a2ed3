#include <cstdio>
#include <memory>

#include "platform/files/files.h"
#include "platform/paths/paths.h"

namespace fk {

std::optional<std::string> ReadWholeFile(std::string_view path, std::size_t maxBytes) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(Native(path).c_str(), "rb"), std::fclose);
  if (!file) return std::nullopt;
  std::string content;
  char chunk[8192];
  while (std::size_t got = std::fread(chunk, 1, sizeof chunk, file.get())) {
    if (content.size() + got > maxBytes) return std::nullopt;
    content.append(chunk, got);
  }
  if (std::ferror(file.get())) return std::nullopt;
  return content;
}

}  // namespace fk
