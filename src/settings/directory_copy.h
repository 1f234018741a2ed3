// A folder copied with everything in it into another, which is created when
// missing and merged into when it exists (files of the same name are
// overwritten).
#pragma once

#include <string>

// Copies what `source` holds into `target`. An entry that fails doesn't stop
// the walk; paths that would not fit in 260 characters are left out, which
// also ends a walk that links lead in circles. 1 when every entry was
// copied, else 0; scripts are not to rely on it.
int CopyDirectoryTree(std::string source, std::string target);
