#include "settings/directory_registry.h"

#include "host/cartoma.h"
#include "host/product_variant.h"
#include "platform/paths/paths.h"
#include "platform/registry/registry.h"
#include "settings/registry_values.h"

bool SaveConfigDir(const std::string& directory) {
  int variant = g_Cartoma.m_nProductVariant;
  if (!GetProductVariantInfo(variant)) variant = VARIANT_TERRAVIK;
  const char* key = GetVariantKey(VariantKey::Setup, variant);
  if (!fk::Registry::CreateKey(fk::Hive::CurrentUser, key)) return false;
  WriteVariantValue(VariantKey::Setup, variant, REG_CONFIG_DIR, directory);
  return true;
}

int SaveProjectDirectory(std::string directory) {
  // A path that already ends in a separator, "\" or "/", keeps it.
  if (directory.empty() || !fk::IsSeparator(directory.back())) directory += '\\';
  g_Cartoma.FindApplicationScript();
  WriteVariantValue(VariantKey::Settings, g_Cartoma.m_nProductVariant, REG_PROJECT_FOLDER, directory);
  return 1;
}
