#include "platform/app/app_base.h"

#include <atomic>
#include <thread>

namespace fk {
namespace {
AppBase* g_currentApp = nullptr;
}

AppBase::AppBase(std::string appName) : m_pszAppName(appName), m_pszProfileName(std::move(appName)) {
  g_currentApp = this;
}

AppBase::~AppBase() {
  if (g_currentApp == this) g_currentApp = nullptr;
}

AppBase* AppBase::Current() { return g_currentApp; }

void AppBase::SetRegistryKey(std::string key) {
  m_pszRegistryKey = std::move(key);
  m_pszProfileName = m_pszAppName;
}

std::string AppBase::GetProfileString(std::string_view section, std::string_view entry,
                                      std::string_view defaultValue) const {
  return GetProfile().GetString(section, entry, defaultValue);
}

int AppBase::GetProfileInt(std::string_view section, std::string_view entry, int defaultValue) const {
  return GetProfile().GetInt(section, entry, defaultValue);
}

int CurrentProfileInt(std::string_view section, std::string_view entry, int defaultValue) {
  const AppBase* app = AppBase::Current();
  return app ? app->GetProfileInt(section, entry, defaultValue) : defaultValue;
}

bool AppBase::WriteProfileString(std::string_view section, std::string_view entry,
                                 std::optional<std::string_view> value) const {
  return GetProfile().WriteString(section, entry, value);
}

bool AppBase::WriteProfileInt(std::string_view section, std::string_view entry, int value) const {
  return GetProfile().WriteInt(section, entry, value);
}

namespace {
std::atomic<std::thread::id> g_apartmentThread{};
}

void InitializeApartment(unsigned /*flags*/) { g_apartmentThread = std::this_thread::get_id(); }

bool IsApartmentThread() { return g_apartmentThread.load() == std::this_thread::get_id(); }

}  // namespace fk
