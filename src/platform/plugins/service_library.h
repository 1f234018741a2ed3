// Heavy services (the toolkit, the picture decoders) live in libraries of
// their own beside libformkit.so, so that loading the library stays cheap:
// each is loaded with dlopen on its first use and gives one C entry point.
// A service that can't be loaded is said once on standard error, and its
// callers give their failure result.
#pragma once

namespace fk {

// The entry point `entry` of the service library `library` (a file name such
// as "libformkit-gdal.so"), looked for beside this module, then on the
// loader's search path. Loaded once for the process; null when the library
// or its entry can't be had.
void* ServiceEntry(const char* library, const char* entry);

}  // namespace fk
