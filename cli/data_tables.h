// What --data names, as tables to open in the host: a table file, any
// vector data that the host reads, or a folder of them, each under its
// file's name.
#pragma once

#include <string>
#include <vector>

namespace cli {

struct TableFile {
  std::string path;  // absolute, so that a host in another process finds it
  std::string name;  // the table's name in the host
};

// The tables of each path in order; a folder gives its table files and the
// vector data that has no table file of the same name beside it, sorted by
// name. UsageError for a path that does not exist or a folder with nothing
// to open.
std::vector<TableFile> FindTableFiles(const std::vector<std::string>& paths);

// The columns of an open table of the host; UsageError when no table of
// that name (in any letter case) is open.
std::vector<std::string> ColumnsOfOpenTable(const std::string& table);

// A file's name as a host table name: letters, digits and "_", not
// beginning with a digit.
std::string TableNameOf(const std::string& path);

}  // namespace cli
