// The framework profile: settings of one application under
// HKEY_CURRENT_USER "Software\<registry key>\<profile name>\<section>".
// Strings are REG_SZ, ints REG_DWORD; a missing entry gives the default.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fk {

class Profile {
 public:
  Profile(std::string registryKey, std::string profileName)
      : m_strRegistryKey(std::move(registryKey)), m_strProfileName(std::move(profileName)) {}

  std::string GetString(std::string_view section, std::string_view entry, std::string_view defaultValue) const;
  // A value that is not a REG_DWORD gives the default.
  int GetInt(std::string_view section, std::string_view entry, int defaultValue) const;
  // No value deletes the entry.
  bool WriteString(std::string_view section, std::string_view entry, std::optional<std::string_view> value) const;
  bool WriteInt(std::string_view section, std::string_view entry, int value) const;
  bool DeleteSection(std::string_view section) const;

  // "Software\<registry key>\<profile name>\<section>"
  std::string SectionKey(std::string_view section) const;
  const std::string& RegistryKey() const { return m_strRegistryKey; }
  const std::string& ProfileName() const { return m_strProfileName; }

 private:
  std::string m_strRegistryKey;
  std::string m_strProfileName;
};

}  // namespace fk
