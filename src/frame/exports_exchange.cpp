// Exports of the file exchange that need no host.
#include "exchange/picture_size.h"
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "platform/app/module_guard.h"

extern "C" int GetPictureSize(const char* file, int32_t* width, int32_t* height) {
  return fk::GuardedCall("GetPictureSize", 0, [&] {
    if (!width || !height) return 0;
    return ReadPictureSize(TextArg(file), *width, *height);
  });
}
