// The application object's base: the application's name, the registry key
// and the profile name under which its settings live, and the profile
// services over them (HKEY_CURRENT_USER "Software\<key>\<profile>\<section>").
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/registry/profile.h"

namespace fk {

class AppBase {
 public:
  explicit AppBase(std::string appName);
  virtual ~AppBase();
  AppBase(const AppBase&) = delete;
  AppBase& operator=(const AppBase&) = delete;

  // The framework's own start: nothing to add on this platform.
  virtual bool InitInstance() { return true; }

  // Settings move under "Software\<key>"; the profile name becomes the
  // application's name.
  void SetRegistryKey(std::string key);
  void SetProfileName(std::string name) { m_pszProfileName = std::move(name); }

  // The module's application object, for the framework services that keep
  // settings in its profile; null when there is none.
  static AppBase* Current();

  const std::string& AppName() const { return m_pszAppName; }
  const std::string& RegistryKey() const { return m_pszRegistryKey; }
  const std::string& ProfileName() const { return m_pszProfileName; }
  Profile GetProfile() const { return Profile(m_pszRegistryKey, m_pszProfileName); }

  std::string GetProfileString(std::string_view section, std::string_view entry, std::string_view defaultValue = {}) const;
  int GetProfileInt(std::string_view section, std::string_view entry, int defaultValue) const;
  bool WriteProfileString(std::string_view section, std::string_view entry, std::optional<std::string_view> value) const;
  bool WriteProfileInt(std::string_view section, std::string_view entry, int value) const;

 protected:
  std::string m_pszAppName;
  std::string m_pszRegistryKey;
  std::string m_pszProfileName;
};

// A profile integer of the module's application object; the default when
// there is none (list column widths, window places).
int CurrentProfileInt(std::string_view section, std::string_view entry, int defaultValue);

// The module's apartment: calls into and out of the module are made on the
// thread that loaded it. Records that thread; the flags are the apartment
// kind the module asks for.
void InitializeApartment(unsigned flags);
bool IsApartmentThread();

}  // namespace fk
