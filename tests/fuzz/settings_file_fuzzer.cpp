// The scripts' settings files on any bytes, under the sanitizers. The bytes
// after the first are a settings file; the first byte picks whether the
// user's file starts as a copy of it, whether the write goes to a key the
// file names or to a new one, and whether it writes or deletes. A value
// written reads back as written; a deleted one falls back to the script's
// file; and the other keys the file names read as they did before.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "platform/inifile/inifile.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "settings/app_settings.h"

namespace {

using fuzz::Require;

constexpr std::size_t kKeysChecked = 3;

const std::string& Folder() {
  static const std::string folder = [] {
    const std::string made = fuzz::ScratchFolder("settings");
    setenv("XDG_CONFIG_HOME", (made + "/config").c_str(), 1);
    return made;
  }();
  return folder;
}

struct Setting {
  std::string section, key;
};

// Blanks trimmed, and cut at a NUL as a caller's C text would be.
std::string Trimmed(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

// The "[section]" and "key=value" lines of the text, the first few.
std::vector<Setting> NamedSettings(const std::string& text) {
  std::vector<Setting> named;
  std::string section;
  for (std::size_t start = 0; start < text.size() && named.size() < kKeysChecked;) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    const std::string line = Trimmed(std::string_view(text).substr(start, end - start));
    start = end + 1;
    const std::size_t equals = line.find('=');
    if (line.starts_with('[') && line.find(']') != std::string::npos)
      section = Trimmed(line.substr(1, line.find(']') - 1));
    else if (equals != std::string::npos && equals > 0)
      named.push_back({section, Trimmed(line.substr(0, equals))});
  }
  return named;
}

// Names a settings file can hold as they are: letters, digits and a few marks.
bool IsPlainName(const std::string& name) {
  if (name.empty() || name.size() > 64) return false;
  for (char c : name)
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_' && c != '.' && c != '-') return false;
  return true;
}

// A value from the file's last bytes: visible characters but the double quote.
std::string ValueOf(const std::string& text) {
  std::string value;
  for (std::size_t i = text.size() > 32 ? text.size() - 32 : 0; i < text.size(); ++i)
    if (text[i] > ' ' && text[i] < 127 && text[i] != '"') value += text[i];
  return value.empty() ? "1" : value;
}

std::optional<std::string> ScriptValue(const Setting& setting, const std::string& script) {
  std::string value = fk::GetPrivateProfileString(setting.section, setting.key, "", APP_SETTING_SIZE, script);
  if (value.empty()) return std::nullopt;
  return value;
}

// The user's file that shadows `script`, with its folders made.
std::string UserFile(const std::string& script) {
  const std::string user = fk::Native(GetUserSettingsFile(script, "", 0));
  Require(!user.empty());
  std::filesystem::create_directories(std::filesystem::path(user).parent_path());
  return user;
}

bool SameSetting(const Setting& a, const Setting& b) {
  return fk::EqualsNoCase(a.section, b.section) && fk::EqualsNoCase(a.key, b.key);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::uint8_t choice = data[0];
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::string script = Folder() + "/script.ini";
  static const std::string user = UserFile(script);
  fuzz::WriteFile(script, text.data(), text.size());
  if (choice & 1)
    fuzz::WriteFile(user, text.data(), text.size());
  else
    std::filesystem::remove(user);

  const std::vector<Setting> named = NamedSettings(text);
  std::vector<std::optional<std::string>> before;
  for (const Setting& setting : named) before.push_back(ReadAppSetting(setting.section, setting.key, script, "", 0));

  Setting written{"Fuzz", "Written"};
  if ((choice & 2) && !named.empty() && IsPlainName(named[0].section) && IsPlainName(named[0].key))
    written = named[0];
  const std::optional<std::string> value = (choice & 4) ? std::nullopt : std::optional(ValueOf(text));
  Require(WriteAppSetting(written.section, written.key, value, script, "", 0) == 1);

  const std::optional<std::string> read = ReadAppSetting(written.section, written.key, script, "", 0);
  Require(read == (value ? value : ScriptValue(written, script)));
  for (std::size_t i = 0; i < named.size(); ++i)
    if (!SameSetting(named[i], written))
      Require(ReadAppSetting(named[i].section, named[i].key, script, "", 0) == before[i]);
  return 0;
}
