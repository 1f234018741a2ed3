#include "settings/open_grids.h"

#include <vector>

#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "settings/registry_values.h"

namespace {

constexpr const char* kSeparator = "|";

// The raster that the .TAB names, in the folder of the .TAB.
std::string GridPath(const std::string& tabPath) {
  const fk::PathParts tab = fk::SplitPath(tabPath);
  const fk::PathParts raster = fk::SplitPath(g_Cartoma.GetRasterFileName(tabPath));
  return fk::MakePath(tab.drive, tab.dir, raster.fname, raster.ext);
}

void WriteGridList(const std::string& list) {
  WriteVariantValue(VariantKey::Messages, g_Cartoma.m_nProductVariant, REG_GRID_LIST, list);
}

}  // namespace

std::string GetOpenGridList() {
  std::vector<std::string> tables;
  g_Cartoma.GetTableNames(tables);
  std::string list;
  bool first = true;
  for (const std::string& table : tables) {
    if (!g_Cartoma.IsGridRasterTab(table)) continue;
    if (!first) list += kSeparator;
    list += GridPath(g_Cartoma.GetTablePath(table));
    first = false;
  }
  return list;
}

void ClearOpenGridsInRegistry() { WriteGridList(""); }

void SaveOpenGridsInRegistry() { WriteGridList(GetOpenGridList()); }
