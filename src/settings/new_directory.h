// A folder made for a script, which learns whether it was there already.
#pragma once

#include <string>

// Creates the folder (its parent must exist): 0 when created, 1 when it
// already exists, -1 for any other failure.
int CreateNewDirectoryAt(std::string directory);
