#include "settings/registry_values.h"

#include "host/product_variant.h"
#include "platform/registry/registry.h"

namespace {
constexpr fk::Hive kUser = fk::Hive::CurrentUser;
}

const char* GetVariantKey(VariantKey which, int variant) {
  const ProductVariantInfo* info = GetProductVariantInfo(variant);
  if (!info) return nullptr;
  switch (which) {
    case VariantKey::Setup:
      return info->pszSetupKey;
    case VariantKey::Messages:
      return info->pszMessagesKey;
    case VariantKey::Settings:
      return info->pszSettingsKey;
  }
  return nullptr;
}

std::optional<std::string> ReadVariantValue(VariantKey which, int variant, const char* name) {
  const char* key = GetVariantKey(which, variant);
  if (!key) return std::nullopt;
  return fk::Registry::QueryString(kUser, key, name);
}

bool WriteVariantValue(VariantKey which, int variant, const char* name, std::string_view value) {
  const char* key = GetVariantKey(which, variant);
  return key && fk::Registry::SetString(kUser, key, name, value);
}
