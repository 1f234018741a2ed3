// The host's binary preference file, read for its block of directories.
//
// Little-endian: a 16-bit magic 0xD1D2, a signed 16-bit count of records
// (at least 1), then the records, each a 16-bit type, a 16-bit length and
// that many bytes. The record of type 11 holds the directories.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

inline constexpr std::size_t PREFERENCE_BLOCK_SIZE = 0x1F02;
using PreferenceBlock = std::array<unsigned char, PREFERENCE_BLOCK_SIZE>;

// Reads the directory record out of the bytes of a preference file into
// `block`, which is emptied first; at most PREFERENCE_BLOCK_SIZE bytes of it.
// False for a file that isn't one: a wrong magic, a count below 1, a short
// read, or a record length that leads before the start of the file. A file
// without a directory record is read successfully and leaves the block empty.
bool ReadPreferenceBlock(std::string_view file, PreferenceBlock& block);
