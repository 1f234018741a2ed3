// The file-open box of the scripts and the folder picker every dialog box uses.
#pragma once

#include <optional>
#include <string>

// The filter entry, counted from 1, whose pattern is "*.<extension>": the
// pattern is looked for in the filter, both in small letters, and the
// entry is 1 plus the name and pattern pairs in front of it; 1 when the
// pattern isn't there.
int FilterIndexOf(const std::string& filter, const std::string& extension);

// A file to open, or nothing on cancel. Empty texts count as none.
std::optional<std::string> OpenFileBox(const std::string& defaultExt, const std::string& fileName,
                                       const std::string& filter);

// A folder, or nothing on cancel. A start folder becomes the process's
// current folder, where the picker starts.
std::optional<std::string> PickFolder(const std::string& title, const std::string& start);
