// Windows-style paths on Linux.
//
// The system names files the way its users write them: a drive, "\" or "/"
// between folders, names in any letter case. SplitPath and MakePath take
// such paths apart and put them together like the C runtime's splitter.
// Native() is the one door to the file system: every file the library opens,
// creates, lists or deletes goes through it.
#pragma once

#include <string>
#include <string_view>

namespace fk {

struct PathParts {
  std::string drive;  // "C:" or empty
  std::string dir;    // folders, with their trailing separator, as written
  std::string fname;  // the name without its extension
  std::string ext;    // the extension with its dot, or empty
};

PathParts SplitPath(std::string_view path);
std::string MakePath(std::string_view drive, std::string_view dir, std::string_view fname, std::string_view ext);

bool IsSeparator(char c);
// Adds "/" unless the text is empty or already ends in "/" or "\".
std::string AddTrailingSeparator(std::string path);
// Joins a folder and a name with one separator between them.
std::string JoinPath(std::string_view folder, std::string_view name);

// The Linux path for a path as the system writes it: "\" becomes "/"; a
// drive letter maps through the drive table; and every component that does
// not exist as written is matched ignoring case against what exists, so an
// upper-cased copy of a path still finds its file. Components that match
// nothing are kept as written (a file about to be created).
std::string Native(std::string_view path);

// The drive table: the Linux folder that stands for drive `letter`. It
// starts from the environment (FORMKIT_DRIVE_C=/some/folder, ...); a drive
// with no entry stands for "/".
void SetDriveRoot(char letter, std::string root);
std::string DriveRoot(char letter);
// Whether drive `letter` has an entry of its own (set, or in the environment).
bool IsDriveMapped(char letter);

}  // namespace fk
