// libformkit-gdal.so: the raster library, which knows the formats of the GIS
// world. What it can't open is an ordinary answer here, so its complaints
// are kept off standard error.
#include <cpl_error.h>
#include <gdal.h>

#include <mutex>

#include "platform/image/picture_decoder.h"

extern "C" __attribute__((visibility("default"))) int fk_picture_size(const char* path, std::int32_t* width,
                                                                     std::int32_t* height) {
  static std::once_flag registered;
  std::call_once(registered, [] { GDALAllRegister(); });
  CPLPushErrorHandler(CPLQuietErrorHandler);
  GDALDatasetH dataset = GDALOpenEx(path, GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
  CPLPopErrorHandler();
  if (!dataset) return 0;
  const int w = GDALGetRasterXSize(dataset), h = GDALGetRasterYSize(dataset);
  GDALClose(dataset);
  if (w <= 0 || h <= 0) return 0;
  *width = w;
  *height = h;
  return 1;
}
