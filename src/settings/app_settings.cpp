#include "settings/app_settings.h"

#include "host/product_variant.h"
#include "platform/folders/folders.h"
#include "platform/inifile/inifile.h"
#include "platform/paths/paths.h"
#include "platform/text/format.h"

namespace {

// The value, or nothing for a missing or empty one.
std::optional<std::string> ReadValue(const std::string& section, const std::string& key, const std::string& file) {
  std::string value = fk::GetPrivateProfileString(section, key, "", APP_SETTING_SIZE, file);
  if (value.empty()) return std::nullopt;
  return value;
}

}  // namespace

std::string GetUserSettingsFile(const std::string& file, const std::string& installationId, int variant) {
  const ProductVariantInfo* info = GetProductVariantInfo(variant);
  const std::string appData = fk::AppDataFolder();
  if (!info || appData.empty()) return {};
  std::string folder = info->pszAppDataFolder;
  if (!installationId.empty()) folder += fk::Format("\\%s", installationId);
  const fk::PathParts parts = fk::SplitPath(file);
  return fk::Format("%s\\%s\\%s%s", appData, folder, parts.fname, parts.ext);
}

std::optional<std::string> ReadAppSetting(const std::string& section, const std::string& key,
                                          const std::string& file, const std::string& installationId,
                                          int variant) {
  std::optional<std::string> value = ReadValue(section, key, file);
  const std::string userFile = GetUserSettingsFile(file, installationId, variant);
  if (userFile.empty()) return value;
  if (std::optional<std::string> user = ReadValue(section, key, userFile)) value = std::move(user);
  return value;
}

int WriteAppSetting(const std::string& section, const std::string& key, const std::optional<std::string>& value,
                    const std::string& file, const std::string& installationId, int variant) {
  const std::string userFile = GetUserSettingsFile(file, installationId, variant);
  if (userFile.empty()) return 0;
  const std::optional<std::string_view> text = value ? std::optional<std::string_view>(*value) : std::nullopt;
  return fk::WritePrivateProfileString(section, key, text, userFile) ? 1 : 0;
}
