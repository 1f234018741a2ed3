// The user's folders as the system knows them.
#pragma once

#include <string>

namespace fk {

// The temporary folder with its trailing separator: $TMPDIR, else /tmp.
// Like the system's own call with a buffer of 260, a path that would not fit
// in 260 characters with its terminator gives the empty text.
std::string TempDirectory();

}  // namespace fk
