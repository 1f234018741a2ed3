#include "settings/preference_file.h"

#include <cstring>

#include "platform/files/files.h"
#include "platform/folders/folders.h"
#include "platform/text/format.h"

PreferenceBlock g_PreferenceBlock{};
int g_bPreferencesRead = 0;

namespace {

constexpr int kLastIndex = 13;
constexpr int kFirstFarIndex = 3;
constexpr std::size_t kFarStart = 0x1402;
constexpr std::size_t kDirectorySpacing = 0x100;
// A larger file is no preference file of the host.
constexpr std::size_t kMaxFileSize = 16 * 1024 * 1024;

bool ReadPreferencesOnce() {
  if (g_bPreferencesRead) return true;
  const std::string path = GetPreferenceFilePath();
  if (path.empty()) return false;
  const std::optional<std::string> file = fk::ReadWholeFile(path, kMaxFileSize);
  if (!file || !ReadPreferenceBlock(*file, g_PreferenceBlock)) return false;
  g_bPreferencesRead = 1;
  return true;
}

}  // namespace

std::string GetPreferenceFilePath() {
  const std::string appData = fk::AppDataFolder();
  if (appData.empty()) return {};
  return fk::Format("%s\\Cartoma\\Cartoma\\CARTOMAW.PRF", appData);
}

std::optional<std::size_t> GetPreferenceDirectoryOffset(int index) {
  if (index < 0 || index > kLastIndex) return std::nullopt;
  if (index < kFirstFarIndex) return static_cast<std::size_t>(index) * kDirectorySpacing;
  return kFarStart + static_cast<std::size_t>(index - kFirstFarIndex) * kDirectorySpacing;
}

std::optional<std::string> GetPreferenceDirectoryText(int index) {
  if (!ReadPreferencesOnce()) return std::nullopt;
  const std::optional<std::size_t> offset = GetPreferenceDirectoryOffset(index);
  if (!offset) return std::nullopt;
  // The last text may fill the block to its end without a terminator.
  const char* text = reinterpret_cast<const char*>(g_PreferenceBlock.data()) + *offset;
  return std::string(text, strnlen(text, g_PreferenceBlock.size() - *offset));
}
