#include <cstdlib>
#include <filesystem>

#include "platform/folders/folders.h"

namespace fk {
namespace {

constexpr std::size_t kMaxPath = 260;

std::filesystem::path NamedAppDataFolder() {
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg == '/') return xdg;
  if (const char* home = std::getenv("HOME"); home && *home) return std::filesystem::path(home) / ".config";
  return {};
}

}  // namespace

std::string AppDataFolder() {
  std::filesystem::path folder = NamedAppDataFolder();
  if (folder.empty()) return {};
  std::string text = folder.lexically_normal().string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  if (text.size() + 1 > kMaxPath) return {};
  std::error_code ec;
  std::filesystem::create_directories(text, ec);
  if (!std::filesystem::is_directory(text, ec)) return {};
  return text;
}

}  // namespace fk
