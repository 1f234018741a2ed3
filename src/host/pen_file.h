// The host's pen file: a binary file whose header names how many pens it holds.
#pragma once

#include <string>
#include <vector>

// The number of pens of the file, from its "PEN2" header (any letter case);
// 0 for another header, a file shorter than the header, or no file.
int ReadPenCount(const std::string& path);

// The passes of pen `index` (counted from 0), each its program's bytes, in
// `passes` (emptied first). 1 when read; 0 when the file doesn't open, its
// header isn't "PEN2", the index is the pen count or more, or anything the
// file names lies outside it: a directory entry, a record, a pass that runs
// past the end. Nothing is read from outside the file, whatever it holds.
int ReadPenPasses(const std::string& path, int index, std::vector<std::string>& passes);
