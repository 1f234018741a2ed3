#include "exchange/picture_size.h"

#include "platform/files/files.h"
#include "platform/image/picture_size.h"

int ReadPictureSize(const std::string& file, std::int32_t& width, std::int32_t& height) {
  if (!fk::FileExists(file)) return 0;
  std::optional<fk::PictureSize> size = fk::PlatformPictureSize(file);
  if (!size) size = fk::RasterPictureSize(file);
  if (!size) return 0;
  width = size->width;
  height = size->height;
  return 1;
}
