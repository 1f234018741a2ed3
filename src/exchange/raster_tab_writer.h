// Raster registration tables: the small .tab text with which the host
// registers an image, tying pixels to world coordinates by control points
// and naming the coordinate system and its units.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A new table for the picture `imageName` stretched over the rectangle;
// the picture's size gives the pixels of its four corners. A bare image
// name is looked for beside the table, and written as given. A transparent
// colour of -1 means none. 1, or 0 when the picture can't be measured or
// the table can't be written.
int WriteRasterTabFile(const std::string& tabPath, const std::string& imageName, double left, double bottom,
                       double right, double top, std::string_view coordSys, std::int32_t transparentColor);

// A table from explicit control points, one for each pixel x. With
// `keptLines` (the lines of the old table, line ends included), its head
// and its other lines stay, while its control points and coordinate system
// are replaced and its units line follows the new units. 1, or 0 when the
// table can't be written or the arrays are shorter than the pixel x array.
int RewriteRasterTabFile(const std::string& tabPath, const std::string& imageName,
                         const std::vector<std::int32_t>& pixelX, const std::vector<std::int32_t>& pixelY,
                         const std::vector<double>& worldX, const std::vector<double>& worldY,
                         std::string_view coordSys, const std::vector<std::string>& keptLines);
