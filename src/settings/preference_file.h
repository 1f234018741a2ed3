// The directories of the host's preference file, "CARTOMAW.PRF". The file
// is read once a session: a failed read is tried again on the next call, a
// successful one is kept, so later changes to the file aren't seen.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "settings/preference_block.h"

extern PreferenceBlock g_PreferenceBlock;
extern int g_bPreferencesRead;

// "Cartoma\Cartoma\CARTOMAW.PRF" under the user's application data folder;
// empty when that folder isn't known.
std::string GetPreferenceFilePath();

// Where directory `index` starts in the block: 0, 0x100 and 0x200 for the
// first three, then 0x1402 plus (index - 3) times 0x100 up to index 13.
// Nothing for any other index.
std::optional<std::size_t> GetPreferenceDirectoryOffset(int index);

// Directory `index`, the block read first when it hasn't been; nothing for
// an unreadable file or an unknown index.
std::optional<std::string> GetPreferenceDirectoryText(int index);
