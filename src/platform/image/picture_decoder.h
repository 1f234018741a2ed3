// The entry point that each picture decoder library gives: the size of the
// picture at a file system path, 1 and both sizes, or 0 when the decoder
// does not know the file or finds no size in it.
#pragma once

#include <cstdint>

extern "C" {
using fk_picture_size_fn = int (*)(const char* path, std::int32_t* width, std::int32_t* height);
}

// The name of the entry point in every decoder library.
inline constexpr const char* kPictureSizeEntry = "fk_picture_size";
