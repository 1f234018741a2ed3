#include "viewer/viewer_preferences.h"

#include "host/product_variant.h"
#include "platform/registry/registry.h"

namespace {

using fk::Hive;
using fk::Registry;

std::string Subkey(int variant, const char* name) { return ViewerPreferencesKey(variant) + "\\" + name; }

void ReadDword(const std::string& key, const char* name, std::uint32_t& value) {
  if (const auto stored = Registry::QueryDword(Hive::CurrentUser, key, name)) value = *stored;
}

void ReadString(const std::string& key, const char* name, std::string& value) {
  if (const auto stored = Registry::QueryString(Hive::CurrentUser, key, name)) value = *stored;
}

}  // namespace

std::string ViewerPreferencesKey(int variant) {
  // The 3D settings key of each product sits in the viewer's folder.
  const ProductVariantInfo* info = GetProductVariantInfo(variant);
  const std::string settings = (info ? info : GetProductVariantInfo(0))->pszSettingsKey;
  return settings.substr(0, settings.rfind('\\'));
}

ViewerPreferences ReadViewerPreferences(int variant) {
  ViewerPreferences p;
  const std::string properties = Subkey(variant, "Properties");
  ReadDword(properties, "XYZMODE", p.nXYZMode);
  ReadDword(properties, "XYZPOSITION", p.nXYZPosition);
  ReadString(properties, "XLABEL", p.strXLabel);
  ReadString(properties, "YLABEL", p.strYLabel);
  ReadString(properties, "ZLABEL", p.strZLabel);
  p.nRasterWidth = Registry::QueryDword(Hive::CurrentUser, properties, "RASTERWIDTH");
  p.nRasterHeight = Registry::QueryDword(Hive::CurrentUser, properties, "RASTERHEIGHT");
  const std::string grid = Subkey(variant, "GridOptions");
  ReadDword(grid, "MAX_COLUMNS", p.nMaxColumns);
  ReadDword(grid, "MAX_ROWS", p.nMaxRows);
  ReadDword(grid, "MAX_COLUMNS_3D", p.nMaxColumns3D);
  ReadDword(grid, "MAX_ROWS_3D", p.nMaxRows3D);
  const std::string texture = Subkey(variant, "TextureOptions");
  ReadDword(texture, "NORMAL_SIZE", p.nNormalSize);
  ReadDword(texture, "MAXIMUM_SIZE", p.nMaximumSize);
  return p;
}

void WriteViewerPreferences(int variant, const ViewerPreferences& p) {
  const std::string properties = Subkey(variant, "Properties");
  Registry::SetDword(Hive::CurrentUser, properties, "XYZMODE", p.nXYZMode);
  Registry::SetDword(Hive::CurrentUser, properties, "XYZPOSITION", p.nXYZPosition);
  Registry::SetString(Hive::CurrentUser, properties, "XLABEL", p.strXLabel);
  Registry::SetString(Hive::CurrentUser, properties, "YLABEL", p.strYLabel);
  Registry::SetString(Hive::CurrentUser, properties, "ZLABEL", p.strZLabel);
  const std::string grid = Subkey(variant, "GridOptions");
  Registry::SetDword(Hive::CurrentUser, grid, "MAX_COLUMNS", p.nMaxColumns);
  Registry::SetDword(Hive::CurrentUser, grid, "MAX_ROWS", p.nMaxRows);
  Registry::SetDword(Hive::CurrentUser, grid, "MAX_COLUMNS_3D", p.nMaxColumns3D);
  Registry::SetDword(Hive::CurrentUser, grid, "MAX_ROWS_3D", p.nMaxRows3D);
  const std::string texture = Subkey(variant, "TextureOptions");
  Registry::SetDword(Hive::CurrentUser, texture, "NORMAL_SIZE", p.nNormalSize);
  Registry::SetDword(Hive::CurrentUser, texture, "MAXIMUM_SIZE", p.nMaximumSize);
}

void WriteRasterSize(int variant, std::uint32_t width, std::uint32_t height) {
  const std::string properties = Subkey(variant, "Properties");
  Registry::SetDword(Hive::CurrentUser, properties, "RASTERWIDTH", width);
  Registry::SetDword(Hive::CurrentUser, properties, "RASTERHEIGHT", height);
}
