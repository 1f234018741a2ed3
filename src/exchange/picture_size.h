// A picture's width and height in pixels: the platform's image loader
// first, the raster library only for what the first can't read.
#pragma once

#include <cstdint>
#include <string>

// 1 with both sizes stored; 0 for a missing file or one that neither
// library reads, with both outputs left as they were.
int ReadPictureSize(const std::string& file, std::int32_t& width, std::int32_t& height);
