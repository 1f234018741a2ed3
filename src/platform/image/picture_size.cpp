#include "platform/image/picture_size.h"

#include <string>

#include "platform/image/picture_decoder.h"
#include "platform/paths/paths.h"
#include "platform/plugins/service_library.h"

namespace fk {
namespace {

std::optional<PictureSize> SizeBy(const char* decoderLibrary, std::string_view path) {
  auto decoder = reinterpret_cast<fk_picture_size_fn>(ServiceEntry(decoderLibrary, kPictureSizeEntry));
  PictureSize size;
  if (!decoder || !decoder(Native(path).c_str(), &size.width, &size.height)) return std::nullopt;
  return size;
}

}  // namespace

std::optional<PictureSize> PlatformPictureSize(std::string_view path) { return SizeBy("libformkit-pixbuf.so", path); }

std::optional<PictureSize> RasterPictureSize(std::string_view path) { return SizeBy("libformkit-gdal.so", path); }

}  // namespace fk
