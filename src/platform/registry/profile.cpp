#include "platform/registry/profile.h"

#include "platform/registry/registry.h"

namespace fk {

std::string Profile::SectionKey(std::string_view section) const {
  std::string key = "Software\\" + m_strRegistryKey + "\\" + m_strProfileName;
  key += '\\';
  key.append(section);
  return key;
}

std::string Profile::GetString(std::string_view section, std::string_view entry,
                               std::string_view defaultValue) const {
  auto value = Registry::QueryString(Hive::CurrentUser, SectionKey(section), entry);
  return value ? *value : std::string(defaultValue);
}

int Profile::GetInt(std::string_view section, std::string_view entry, int defaultValue) const {
  auto value = Registry::QueryDword(Hive::CurrentUser, SectionKey(section), entry);
  return value ? static_cast<int>(*value) : defaultValue;
}

bool Profile::WriteString(std::string_view section, std::string_view entry,
                          std::optional<std::string_view> value) const {
  if (!value) return Registry::DeleteValue(Hive::CurrentUser, SectionKey(section), entry);
  return Registry::SetString(Hive::CurrentUser, SectionKey(section), entry, *value);
}

bool Profile::WriteInt(std::string_view section, std::string_view entry, int value) const {
  return Registry::SetDword(Hive::CurrentUser, SectionKey(section), entry, static_cast<std::uint32_t>(value));
}

bool Profile::DeleteSection(std::string_view section) const {
  return Registry::DeleteTree(Hive::CurrentUser, SectionKey(section));
}

}  // namespace fk
