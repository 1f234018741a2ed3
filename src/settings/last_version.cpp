#include "settings/last_version.h"

#include "host/cartoma.h"
#include "settings/registry_values.h"

namespace {
constexpr const char* kDefaultVersion = "3.0";
}

std::string GetLastVersion() {
  return ReadVariantValue(VariantKey::Setup, g_Cartoma.m_nProductVariant, REG_LAST_VERSION).value_or(kDefaultVersion);
}

int SetLastVersion(const std::string& version) {
  if (!GetVariantKey(VariantKey::Setup, g_Cartoma.m_nProductVariant)) return 0;
  WriteVariantValue(VariantKey::Setup, g_Cartoma.m_nProductVariant, REG_LAST_VERSION, version);
  return 1;
}
