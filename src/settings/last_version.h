// The version of the 3D viewer last seen, value "LastVersion" of the
// product's Setup key.
#pragma once

#include <string>

// "3.0" when none is stored (or the variant is out of range).
std::string GetLastVersion();
// 1, or 0 for a variant out of range.
int SetLastVersion(const std::string& version);
