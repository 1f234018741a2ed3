// The viewer's own preferences, kept in the current user's registry under
// "Software\Orvex\<product folder>" in three subkeys. The library edits
// them on the viewer's behalf; a missing value keeps its default.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct ViewerPreferences {
  // "Properties"
  std::uint32_t nXYZMode = 2;
  std::uint32_t nXYZPosition = 3;
  std::string strXLabel = "X", strYLabel = "Y", strZLabel = "Z";
  std::optional<std::uint32_t> nRasterWidth, nRasterHeight;
  // "GridOptions"
  std::uint32_t nMaxColumns = 2000, nMaxRows = 2000;
  std::uint32_t nMaxColumns3D = 400, nMaxRows3D = 400;
  // "TextureOptions": stored as a size choice plus 10
  std::uint32_t nNormalSize = 10, nMaximumSize = 10;
};

// "Software\Orvex\" and the product folder of `variant` (Terravik 3D when unknown).
std::string ViewerPreferencesKey(int variant);
ViewerPreferences ReadViewerPreferences(int variant);
// Every value but the raster size, which the display page writes.
void WriteViewerPreferences(int variant, const ViewerPreferences& preferences);
void WriteRasterSize(int variant, std::uint32_t width, std::uint32_t height);
