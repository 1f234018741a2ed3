// Sectioned settings files: "[section]" lines, each followed by "key=value"
// lines. They are read and written the way the system's profile-file calls
// do it: section and key names compare ignoring case; a missing file,
// section or key gives the default; a value is cut to the caller's buffer;
// a value between double quotes loses them; a write creates the file but
// never a folder, and keeps the rest of the file. Lines end in CR LF on
// disk. Paths go through Native().
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace fk {

// The value of `key` in `section` of `file`, or `defaultValue`; at most
// `size` - 1 characters of either, like a buffer of `size` characters.
std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size, std::string_view file);

// Writes `value` under `key` in `section` of `file`. No value deletes the
// key; no key deletes the section. False when the file can't be read or
// written, such as when its folder doesn't exist.
bool WritePrivateProfileString(std::string_view section, std::optional<std::string_view> key,
                               std::optional<std::string_view> value, std::string_view file);

}  // namespace fk
