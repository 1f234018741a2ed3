// A raster read as the grid that the library's contouring takes: values
// d[i][j] at cell centres x[i] (west to east) and y[j] (south to north).
#pragma once

#include <string>
#include <vector>

namespace cli {

struct RasterGrid {
  std::vector<std::vector<double>> columns;  // columns[i][j]
  std::vector<double> x, y;
  double minimum = 0, maximum = 0;
  // The pointers to the columns, as the contouring takes them.
  std::vector<const double*> Rows() const;
};

// The first band of any raster that GDAL opens. ToolFailure when it can't be
// read, is rotated, is smaller than 2 x 2, or has cells without data.
RasterGrid ReadRasterGrid(const std::string& path);

}  // namespace cli
