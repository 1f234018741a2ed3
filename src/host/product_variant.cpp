#include "host/product_variant.h"

#include "platform/text/letter_case.h"

namespace {

const ProductVariantInfo kVariants[] = {
    {"Terravik", "terravik.cbx", "Software\\Orvex\\Terravik\\Setup", "Software\\Orvex\\Terravik\\Messages",
     "Software\\Orvex\\Terravik 3D\\Settings", "Orvex\\Terravik", "Terravik",
     "-mapid %d ms-its:%s\\Terravik.chm", "-mapid %d ms-its:%s\\Terravik.chm"},
    {"Zelvar", "zelvar.cbx", "Software\\Orvex\\Zelvar\\Setup", "Software\\Orvex\\Zelvar\\Messages",
     "Software\\Orvex\\Zelvar\\Settings", "Orvex\\Zelvar", "Zelvar", "-mapid %d ms-its:%s\\zelvar.chm",
     "-mapid %d ms-its:%s\\zelvar.chm"},
    {"Zelvar3D", "zelvar3d.cbx", "Software\\Orvex\\Zelvar3D\\Setup", "Software\\Orvex\\Zelvar3D\\Messages",
     "Software\\Orvex\\Zelvar3D\\Settings", "Orvex\\Zelvar3D", "Zelvar3D", "-mapid %d ms-its:%s\\zelvar3D.chm",
     "-mapid %d ms-its:%s\\zelvar3D.chm"},
    {"Vigilprofiler", "utilities.cbx", "Software\\Orvex\\Vigilprofiler\\Setup",
     "Software\\Orvex\\Vigilprofiler\\Messages", "Software\\Orvex\\Vigilprofiler\\Settings",
     "Orvex\\Vigilprofiler", "Vigilprofiler", "-mapid %d ms-its:%s\\Vigilprofiler.chm",
     "-mapid %d ms-its:%s\\vigilprofiler.chm"},
};

}  // namespace

const ProductVariantInfo* GetProductVariantInfo(int variant) {
  if (variant < VARIANT_TERRAVIK || variant > VARIANT_VIGILPROFILER) return nullptr;
  return &kVariants[variant];
}

int ProductVariantFromName(const char* name) {
  static const int kOrder[] = {VARIANT_TERRAVIK, VARIANT_ZELVAR3D, VARIANT_ZELVAR, VARIANT_VIGILPROFILER};
  if (!name) return -1;
  for (int variant : kOrder)
    if (fk::EqualsNoCase(name, kVariants[variant].pszName)) return variant;
  return -1;
}
