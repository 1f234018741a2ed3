#include "platform/inifile/inifile.h"

// Narrow text passes through unconverted (CSimpleIniA); the header's own
// implementation is compiled here, so no conversion library is needed.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include <unistd.h>

#include <filesystem>
#include <memory>

#include "platform/files/file_lock.h"
#include "platform/files/files.h"
#include "platform/paths/paths.h"
#include "platform/text/text_file.h"

namespace fk {
namespace {

// Names compare ignoring case; narrow text kept as it is, one value per key (a later line wins), no
// multi-line values, "key=value" without blanks when written. With `quotes` a value between double
// quotes loses them; a write reads without, so that every other value goes back as it stood (a value
// read without its quotes and written back would lose a second pair at the next read).
std::unique_ptr<CSimpleIniA> NewIniFile(bool quotes) {
  auto ini = std::make_unique<CSimpleIniA>(false, false, false);
  ini->SetSpaces(false);
  ini->SetQuotes(quotes);
  return ini;
}

// A value with blanks at either end is stored between double quotes, which a read takes off.
std::string StoredValue(std::string_view value) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  const bool quoted = !value.empty() && value.find_first_of("\r\n") == std::string_view::npos &&
                      (blank(value.front()) || blank(value.back()));
  return quoted ? "\"" + std::string(value) + "\"" : std::string(value);
}

// Loads the file; a file that isn't there is an empty one. False when the
// file is there but can't be read.
bool Load(CSimpleIniA& ini, const std::string& nativePath) {
  std::error_code ec;
  if (!std::filesystem::exists(nativePath, ec)) return true;
  return ini.LoadFile(nativePath.c_str()) >= 0;
}

// The file's text, with the byte order mark it began with. A read takes a
// mark at the start of the file off, so a first key whose name begins with
// the mark (one that stood lower in the file before) gets a mark of its own
// before it, and keeps its name at the next read.
bool Text(const CSimpleIniA& ini, std::string& text) {
  if (ini.Save(text, true) < 0) return false;
  if (!ini.IsUnicode() && text.starts_with(SI_UTF8_SIGNATURE)) text.insert(0, SI_UTF8_SIGNATURE);
  return true;
}

// Writes the whole text beside the file and puts it in the file's place in
// one step, so that a writer stopped halfway leaves the old file whole.
bool Save(const CSimpleIniA& ini, const std::string& nativePath) {
  std::string text;
  if (!Text(ini, text)) return false;
  const std::string temporary = nativePath + ".~" + std::to_string(::getpid());
  TextWriter writer;
  if (!writer.Open(temporary)) return false;
  writer.Write(text);
  if (writer.Close() && ReplaceFile(temporary, nativePath)) return true;
  RemoveFile(temporary);
  return false;
}

}  // namespace

std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size, std::string_view file) {
  if (size == 0) return {};
  auto ini = NewIniFile(true);
  const char* found = nullptr;
  if (Load(*ini, Native(file)))
    found = ini->GetValue(std::string(section).c_str(), std::string(key).c_str(), nullptr);
  std::string value(found ? std::string_view(found) : defaultValue);
  if (value.size() > size - 1) value.resize(size - 1);
  return value;
}

bool WritePrivateProfileString(std::string_view section, std::optional<std::string_view> key,
                               std::optional<std::string_view> value, std::string_view file) {
  const std::string nativePath = Native(file);
  // Read, change and write back under the file's lock: two processes
  // writing at once each keep the other's values.
  const FileLock lock(nativePath);
  auto ini = NewIniFile(false);
  if (!lock.Held() || !Load(*ini, nativePath)) return false;
  const std::string sectionName(section);
  if (!key) {
    ini->Delete(sectionName.c_str(), nullptr);
  } else if (!value) {
    ini->Delete(sectionName.c_str(), std::string(*key).c_str());
  } else if (ini->SetValue(sectionName.c_str(), std::string(*key).c_str(), StoredValue(*value).c_str()) < 0) {
    return false;
  }
  return Save(*ini, nativePath);
}

}  // namespace fk
