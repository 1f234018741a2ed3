// The size of a picture in pixels, from the two image libraries the system
// leans on: the platform's own loader, which reads only the file's header,
// and the raster library, which knows the formats of the GIS world. Paths go
// through Native(). Each decoder is a library of its own, loaded on its
// first use; one that can't be loaded knows no picture.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace fk {

struct PictureSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// Nothing when the loader does not know the file or finds no size in it.
std::optional<PictureSize> PlatformPictureSize(std::string_view path);
std::optional<PictureSize> RasterPictureSize(std::string_view path);

}  // namespace fk
