#include "data_tables.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <set>

#include <strings.h>

#include "cli_errors.h"
#include "host/cartoma.h"

namespace cli {
namespace fs = std::filesystem;
namespace {

std::string LowerExtension(const fs::path& path) {
  std::string ext = path.extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
  return ext;
}

// Vector data that the host opens as a table of its own. A table file's
// rows live in a GeoPackage beside it, which is not opened twice.
bool IsVectorData(const fs::path& path) {
  static const std::array<const char*, 9> kExtensions{".gpkg", ".shp", ".geojson", ".json",  ".csv",
                                                      ".kml",  ".gml", ".fgb",     ".sqlite"};
  const std::string ext = LowerExtension(path);
  return std::find(kExtensions.begin(), kExtensions.end(), ext) != kExtensions.end();
}

TableFile TableOf(const fs::path& path) {
  return {fs::absolute(path).lexically_normal().string(), TableNameOf(path.string())};
}

void AddFolder(const fs::path& folder, std::vector<TableFile>& tables) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  std::set<std::string> tableStems;
  for (const fs::path& file : files)
    if (LowerExtension(file) == ".tab") tableStems.insert(file.stem().string());
  const std::size_t before = tables.size();
  for (const fs::path& file : files)
    if (LowerExtension(file) == ".tab" || (IsVectorData(file) && !tableStems.count(file.stem().string())))
      tables.push_back(TableOf(file));
  if (tables.size() == before) throw UsageError("--data: no table or vector data in folder " + folder.string());
}

}  // namespace

std::string TableNameOf(const std::string& path) {
  std::string name = fs::path(path).stem().string();
  for (char& c : name)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  if (name.empty() || std::isdigit(static_cast<unsigned char>(name.front()))) name.insert(name.begin(), '_');
  return name;
}

std::vector<TableFile> FindTableFiles(const std::vector<std::string>& paths) {
  std::vector<TableFile> tables;
  for (const std::string& path : paths) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status))
      AddFolder(path, tables);
    else if (fs::is_regular_file(status))
      tables.push_back(TableOf(path));
    else
      throw UsageError("--data: no such file or folder: " + path);
  }
  return tables;
}

std::vector<std::string> ColumnsOfOpenTable(const std::string& table) {
  std::vector<std::string> tables;
  g_Cartoma.GetTableNames(tables);
  if (std::none_of(tables.begin(), tables.end(),
                   [&](const std::string& t) { return strcasecmp(t.c_str(), table.c_str()) == 0; }))
    throw UsageError("no table named " + table + " is open (open it with --data)");
  std::vector<std::string> columns;
  g_Cartoma.GetColumnNames(table, columns, 0);
  return columns;
}

}  // namespace cli
