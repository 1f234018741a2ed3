// Exports that read the host's own files.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "host/pen_file.h"
#include "platform/app/module_guard.h"

extern "C" int GetCartomaPenCount(const char* file) {
  return fk::GuardedCall("GetCartomaPenCount", 0, [&] { return ReadPenCount(TextArg(file)); });
}
