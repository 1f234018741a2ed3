// libformkit-pixbuf.so: the platform's image loader, which reads only the
// file's header.
#include <gdk-pixbuf/gdk-pixbuf.h>

#include "platform/image/picture_decoder.h"

extern "C" __attribute__((visibility("default"))) int fk_picture_size(const char* path, std::int32_t* width,
                                                                     std::int32_t* height) {
  int w = 0, h = 0;
  if (!gdk_pixbuf_get_file_info(path, &w, &h) || w <= 0 || h <= 0) return 0;
  *width = w;
  *height = h;
  return 1;
}
