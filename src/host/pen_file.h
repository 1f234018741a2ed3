// The host's pen file: a binary file whose header names how many pens it holds.
#pragma once

#include <string>

// The number of pens of the file, from its "PEN2" header (any letter case);
// 0 for another header, a file shorter than the header, or no file.
int ReadPenCount(const std::string& path);
