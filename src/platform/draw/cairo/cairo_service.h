// The entry point of libformkit-cairo.so: pictures drawn with Cairo and text
// measured with Pango, behind one table of C functions. The core loads the
// library on first use and never links Cairo or Pango itself.
#pragma once

#include <cstdint>

extern "C" {

struct fk_cairo_service {
  // A white picture of width × height device units at `dpi` dots per inch,
  // a PNG, SVG or PDF file by the path's extension; null when it can't be made.
  void* (*open_picture)(const char* path, std::int32_t width, std::int32_t height, std::int32_t dpi);
  // Finishes and writes the picture, and frees it; 1 when the file was written.
  int (*close_picture)(void* picture);
  // A polyline of `count` points (x, y pairs) with flat ends and mitred corners.
  void (*stroke)(void* picture, const std::int32_t* xy, std::int32_t count, std::int32_t width,
                 std::uint32_t colour);
  // A closed area filled with `fill`, outlined with a pen of `width` and `colour`.
  void (*fill)(void* picture, const std::int32_t* xy, std::int32_t count, std::uint32_t fill, std::int32_t width,
               std::uint32_t colour);
  // `text` with its top left corner at (x, y), in `font` of `points` size.
  void (*text)(void* picture, std::int32_t x, std::int32_t y, const char* font, double points, const char* text,
               std::uint32_t colour);
  // The logical size in pixels of `text` in `font` of `points` size at `dpi`
  // dots per inch; 1 when measured.
  int (*measure)(const char* font, double points, double dpi, const char* text, double* width, double* height);
};

using fk_cairo_service_fn = const fk_cairo_service* (*)();
}

inline constexpr const char* kCairoLibrary = "libformkit-cairo.so";
inline constexpr const char* kCairoServiceEntry = "fk_cairo_service_table";
