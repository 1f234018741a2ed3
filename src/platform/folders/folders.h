// The user's folders as the system knows them.
#pragma once

#include <string>

namespace fk {

// The temporary folder with its trailing separator: $TMPDIR, else /tmp.
// Like the system's own call with a buffer of 260, a path that would not fit
// in 260 characters with its terminator gives the empty text.
std::string TempDirectory();

// The user's application data folder, without a trailing separator:
// $XDG_CONFIG_HOME when it is an absolute path, else ~/.config. It is
// created when missing. Empty when it can't be named or made, or when it
// would not fit in 260 characters with its terminator.
std::string AppDataFolder();

}  // namespace fk
