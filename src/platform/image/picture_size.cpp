#include "platform/image/picture_size.h"

#include <gdal.h>
#include <cpl_error.h>
#include <gdk-pixbuf/gdk-pixbuf.h>

#include <mutex>
#include <string>

#include "platform/paths/paths.h"

namespace fk {
namespace {

std::optional<PictureSize> Positive(int width, int height) {
  if (width <= 0 || height <= 0) return std::nullopt;
  return PictureSize{width, height};
}

void RegisterRasterDrivers() {
  static std::once_flag once;
  std::call_once(once, [] { GDALAllRegister(); });
}

// The raster library reports what it can't open on standard error; a file
// it does not know is an ordinary answer here.
class QuietRasterErrors {
 public:
  QuietRasterErrors() { CPLPushErrorHandler(CPLQuietErrorHandler); }
  ~QuietRasterErrors() { CPLPopErrorHandler(); }
  QuietRasterErrors(const QuietRasterErrors&) = delete;
  QuietRasterErrors& operator=(const QuietRasterErrors&) = delete;
};

}  // namespace

std::optional<PictureSize> PlatformPictureSize(std::string_view path) {
  int width = 0, height = 0;
  if (!gdk_pixbuf_get_file_info(Native(path).c_str(), &width, &height)) return std::nullopt;
  return Positive(width, height);
}

std::optional<PictureSize> RasterPictureSize(std::string_view path) {
  RegisterRasterDrivers();
  QuietRasterErrors quiet;
  const std::string native = Native(path);
  GDALDatasetH dataset = GDALOpenEx(native.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
  if (!dataset) return std::nullopt;
  const std::optional<PictureSize> size = Positive(GDALGetRasterXSize(dataset), GDALGetRasterYSize(dataset));
  GDALClose(dataset);
  return size;
}

}  // namespace fk
