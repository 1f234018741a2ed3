// The scripts' settings files. A script names a sectioned text file; the
// user has a file of the same name and extension under the user's
// application data folder, in the product's folder (one folder deeper when
// an installation id is set), which shadows it: values are read from both,
// the user's winning, and written only to the user's.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

// The longest value read, with its terminator.
inline constexpr std::size_t APP_SETTING_SIZE = 1024;

// The user's file that shadows `file`, made with "%s\%s\%s%s" from the
// application data folder, the product's folder (with "\" and the
// installation id behind it when there is one), and the name and extension
// of `file`. Empty when the application data folder isn't known or the
// variant is out of range.
std::string GetUserSettingsFile(const std::string& file, const std::string& installationId, int variant);

// The value of `key` in `section`: the user's when it has one, else the
// given file's; nothing when neither holds a value that isn't empty.
std::optional<std::string> ReadAppSetting(const std::string& section, const std::string& key,
                                          const std::string& file, const std::string& installationId,
                                          int variant);

// Writes `value` to the user's file only (no value deletes the key); its
// folders aren't created, so the write fails while they are missing. 1 when
// written, else 0.
int WriteAppSetting(const std::string& section, const std::string& key, const std::optional<std::string>& value,
                    const std::string& file, const std::string& installationId, int variant);
