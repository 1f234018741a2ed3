#include "raster_grid.h"

#include <gdal.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <memory>

#include "cli_errors.h"

namespace cli {
namespace {

struct DatasetCloser {
  void operator()(void* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, DatasetCloser>;

Dataset OpenRaster(const std::string& path) {
  if (!std::filesystem::exists(path)) throw UsageError("no such grid: " + path);
  GDALAllRegister();
  CPLPushErrorHandler(CPLQuietErrorHandler);
  Dataset dataset(GDALOpenEx(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr));
  CPLPopErrorHandler();
  if (!dataset) throw ToolFailure("cannot read grid " + path + ": " + CPLGetLastErrorMsg());
  return dataset;
}

std::vector<double> ReadBand(GDALRasterBandH band, int width, int height, const std::string& path) {
  std::vector<double> values(static_cast<std::size_t>(width) * height);
  if (GDALRasterIO(band, GF_Read, 0, 0, width, height, values.data(), width, height, GDT_Float64, 0, 0) != CE_None)
    throw ToolFailure("cannot read the values of grid " + path + ": " + CPLGetLastErrorMsg());
  return values;
}

int CountMissing(GDALRasterBandH band, const std::vector<double>& values) {
  int hasNoData = 0;
  const double noData = GDALGetRasterNoDataValue(band, &hasNoData);
  return static_cast<int>(std::count_if(values.begin(), values.end(), [&](double v) {
    return std::isnan(v) || (hasNoData && v == noData);
  }));
}

}  // namespace

std::vector<const double*> RasterGrid::Rows() const {
  std::vector<const double*> rows;
  for (const std::vector<double>& column : columns) rows.push_back(column.data());
  return rows;
}

RasterGrid ReadRasterGrid(const std::string& path) {
  Dataset dataset = OpenRaster(path);
  const int width = GDALGetRasterXSize(dataset.get()), height = GDALGetRasterYSize(dataset.get());
  if (GDALGetRasterCount(dataset.get()) < 1 || width < 2 || height < 2)
    throw ToolFailure("grid " + path + " has no band of at least 2 x 2 cells");
  std::array<double, 6> geo{0, 1, 0, 0, 0, -1};
  GDALGetGeoTransform(dataset.get(), geo.data());
  if (geo[2] != 0 || geo[4] != 0) throw ToolFailure("grid " + path + " is rotated; warp it north up first");
  GDALRasterBandH band = GDALGetRasterBand(dataset.get(), 1);
  const std::vector<double> values = ReadBand(band, width, height, path);
  if (const int missing = CountMissing(band, values))
    throw ToolFailure("grid " + path + " has " + std::to_string(missing) +
                      " cells without data; contouring needs a value in every cell (fill them first, for "
                      "example with gdal_fillnodata.py)");
  RasterGrid grid;
  grid.columns.assign(width, std::vector<double>(height));
  const bool northUp = geo[5] < 0;
  for (int j = 0; j < height; ++j) {
    const int row = northUp ? height - 1 - j : j;  // j counts from the south
    grid.y.push_back(geo[3] + (row + 0.5) * geo[5]);
    for (int i = 0; i < width; ++i) grid.columns[i][j] = values[static_cast<std::size_t>(row) * width + i];
  }
  for (int i = 0; i < width; ++i) grid.x.push_back(geo[0] + (i + 0.5) * geo[1]);
  const auto [low, high] = std::minmax_element(values.begin(), values.end());
  grid.minimum = *low;
  grid.maximum = *high;
  return grid;
}

}  // namespace cli
