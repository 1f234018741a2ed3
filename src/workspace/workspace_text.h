// A host workspace as this system reads it: line by line, in pieces of at
// most 258 characters, each searched in an upper-cased copy for fixed
// words. No statement is ever parsed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The longest piece read at once, and the longest line of the unused check.
inline constexpr std::size_t WORKSPACE_PIECE = 258;
inline constexpr std::size_t WORKSPACE_LINE = 4999;

// The path of each "OPEN TABLE" piece in file order: the text between its
// first two double quotes, case kept, or empty when it has no such pair.
// Empty when the file can't be read.
std::vector<std::string> ScanWorkspaceTables(const std::string& workspace);

// The repairs the rewrite can make besides the table paths.
struct WorkspaceRepairs {
  bool interactive = false;     // open every table with Interactive
  bool noEditable = false;      // turn off editable layers
  bool noPrinter = false;       // remove printer settings
};

// Rewrites the workspace with one path per "OPEN TABLE" piece (an empty
// path removes that piece) and the repairs. 0 when the workspace can't be
// read, else 1. The new text is written beside it and put in its place
// only when complete; when it can't be written the workspace stays as it
// was. Throws std::invalid_argument when the file has more "OPEN TABLE"
// pieces than `paths`.
int RewriteWorkspace(const std::string& workspace, const std::vector<std::string>& paths,
                     const WorkspaceRepairs& repairs);

// Where the rewrite writes first: the upper-cased path with each ".WOR" made
// "__temp.WOR"; a path with no ".WOR" gets "__temp.WOR" behind it, so that
// the workspace is never opened for writing while it is read.
std::string WorkspaceTemporaryPath(std::string_view workspace);
