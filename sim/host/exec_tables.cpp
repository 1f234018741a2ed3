// Statements on whole tables: open, close, commit, drop, pack, create,
// alter, and their metadata keys.
#include <algorithm>
#include <filesystem>

#include "errors.h"
#include "host.h"
#include "platform/paths/paths.h"
#include "tab_file.h"
#include "text_util.h"
#include "vector_data.h"

namespace sim {
namespace {

std::string Extension(const std::string& path) { return Lower(std::filesystem::path(path).extension().string()); }

void InsertRows(Table& table, const std::vector<Row>& rows) {
  for (const Row& row : rows) table.InsertRow(row.values, row.object ? &*row.object : nullptr);
}

// A raster table shows its image, which a bare or relative name finds
// beside the table.
void RequireImage(const std::string& tabPath, const std::string& image, const std::string& table) {
  const std::filesystem::path written(fk::Native(image));
  const std::filesystem::path path = written.is_absolute() ? written : std::filesystem::path(tabPath).parent_path() / written;
  if (!std::filesystem::exists(fk::Native(path.string())))
    throw HostError("The image " + image + " of raster table " + table + " does not exist");
}

}  // namespace

Table& Host::OpenTableFile(const std::string& path, const std::string& name) {
  const std::string native = fk::Native(path);
  if (!std::filesystem::exists(native)) throw HostError("The file " + path + " does not exist");
  std::unique_ptr<Table> table;
  if (Extension(native) == ".tab") {
    TabDefinition tab = ReadTabFile(native);
    const CoordSys coordsys = tab.coordsys.value_or(CoordSys::NonEarth("m"));
    if (tab.raster) {
      RequireImage(native, tab.rasterFile, name);
      table = std::make_unique<Table>(m_db, name, std::vector<Column>{}, coordsys);
      table->m_type = TableType::Raster;
      table->m_strRasterFile = tab.rasterFile;
    } else {
      const std::string data = DataFileOf(native);
      if (!std::filesystem::exists(data))
        throw HostError("The rows of table " + name + " are missing: no file " + data);
      VectorData rows = ReadVectorData(data, &tab.columns);
      table = std::make_unique<Table>(m_db, name, tab.columns, coordsys);
      InsertRows(*table, rows.rows);
    }
    table->m_bMappable = tab.coordsys.has_value();
    table->m_metadata = std::move(tab.metadata);
  } else {
    VectorData data = ReadVectorData(native, nullptr);
    table = std::make_unique<Table>(m_db, name, data.columns, data.coordsys.value_or(CoordSys::NonEarth("m")));
    InsertRows(*table, data.rows);
    table->m_bMappable = data.coordsys.has_value() || table->HasObjects();
    table->m_bReadOnly = true;
  }
  table->m_strPath = path;
  table->m_bDirty = false;
  return m_catalog.Add(std::move(table));
}

void Host::Run(const OpenTableStmt& s) {
  const std::string path = TextOf(s.path);
  const std::string name = s.alias.empty() ? TableNameFromPath(path) : s.alias;
  if (Table* open = m_catalog.Find(name)) {
    if (!open->m_strPath.empty() && m_catalog.FindByPath(path) == open) {
      m_catalog.SetLast(open->Name());  // the same file again: the host keeps the open table
      return;
    }
    throw HostError("A table named " + name + " is already open; open the file with another name (As ...)");
  }
  Table& table = OpenTableFile(path, name);
  if (s.readOnly) table.m_bReadOnly = true;
  if (s.viewAutomatic && !s.hide) {
    if (table.m_bMappable)
      m_windows.OpenMapper({table.Name()});
    else
      m_windows.OpenBrowser(table.Name());
  }
}

void Host::CloseTable(const std::string& name) {
  Table& table = RequireTable(name);
  const std::string real = table.Name();
  if (EqualNoCase(m_selection.queryTable, real) || EqualNoCase(m_selection.baseTable, real)) m_selection = {};
  m_windows.ForgetTable(real);
  m_catalog.Remove(real);
}

void Host::Run(const CloseTableStmt& s) {
  if (!s.table.empty()) return CloseTable(s.table);
  while (m_catalog.Count() > 0) CloseTable(m_catalog.At(1).Name());
}

void Host::SaveTable(Table& table, const std::string& path, const CoordSys& coordsys) {
  if (table.m_type == TableType::Raster)
    throw HostError("Table " + table.Name() + " is a raster image; it has no rows to save");
  const std::string native = fk::Native(path);
  if (Extension(native) != ".tab") throw HostError("A table is saved as a .tab file, not as " + path);
  const std::filesystem::path folder = std::filesystem::path(native).parent_path();
  if (!folder.empty() && !std::filesystem::is_directory(folder))
    throw HostError("The folder " + folder.string() + " does not exist");
  std::vector<Row> rows;
  for (std::int64_t id : table.RowIds()) {
    Row row;
    for (std::size_t c = 0; c < table.Columns().size(); ++c) row.values.push_back(table.Cell(id, static_cast<int>(c)));
    if (ObjectPtr object = table.ObjectAt(id)) row.object = m_reprojector.Convert(*object, table.m_coordsys, coordsys);
    rows.push_back(std::move(row));
  }
  const bool mappable = table.m_bMappable || table.HasObjects();
  WriteGeoPackage(DataFileOf(native), TableNameFromPath(path), table.Columns(), rows, mappable ? &coordsys : nullptr);
  WriteTabFile(native, table.Columns(), mappable ? &coordsys : nullptr, table.m_metadata);
}

void Host::Run(const CommitTableStmt& s) {
  Table& table = RequireTable(s.table);
  if (!s.path) {
    if (!table.m_strPath.empty() && table.m_type == TableType::Rows && table.m_bDirty)
      SaveTable(table, table.m_strPath, table.m_coordsys);
    table.m_bDirty = false;
    return;
  }
  const std::string path = TextOf(s.path);
  const Table* owner = m_catalog.FindByPath(path);
  if (owner && owner != &table)
    throw HostError("The file " + path + " is in use by table " + owner->Name() + "; close that table first");
  SaveTable(table, path, s.coordsys ? *s.coordsys : table.m_coordsys);
}

void Host::Run(const RollbackTableStmt& s) {
  Table& table = RequireTable(s.table);
  table.m_bDirty = false;
  if (table.m_strPath.empty() || table.m_type != TableType::Rows) return;
  const std::string name = table.Name(), path = table.m_strPath;
  CloseTable(name);
  OpenTableFile(path, name);
}

void Host::Run(const DropTableStmt& s) {
  Table& table = RequireTable(s.table);
  const std::string path = table.m_strPath;
  CloseTable(table.Name());
  if (path.empty()) return;
  const std::string native = fk::Native(path);
  std::error_code ignored;
  std::filesystem::remove(native, ignored);
  if (Extension(native) == ".tab") std::filesystem::remove(DataFileOf(native), ignored);
}

void Host::Run(const PackTableStmt& s) {
  Table& table = RequireTable(s.table);
  if (table.m_type == TableType::Raster)
    throw HostError("Table " + table.Name() + " is a raster image and can't be packed");
  table.Pack();
}

void Host::Run(const CreateTableStmt& s) {
  if (m_catalog.Find(s.name)) throw HostError("A table named " + s.name + " is already open");
  auto table = std::make_unique<Table>(m_db, s.name, s.columns, *m_coordsys);
  if (s.file) {
    const std::string path = TextOf(s.file);
    SaveTable(*table, path, table->m_coordsys);
    table->m_strPath = path;
  }
  m_catalog.Add(std::move(table));
}

void Host::Run(const AlterTableStmt& s) {
  Table& table = RequireTable(s.table);
  if (table.m_type == TableType::Raster)
    throw HostError("Table " + table.Name() + " is a raster image; it has no columns");
  for (const AlterAction& action : s.actions) {  // check every action before any is done
    if (action.kind == AlterAction::Kind::Add && table.ColumnIndex(action.column.name) >= 0 &&
        EqualNoCase(table.Columns()[table.ColumnIndex(action.column.name)].name, action.column.name))
      throw HostError("Column " + action.column.name + " already exists in table " + table.Name());
    if (action.kind != AlterAction::Kind::Add) table.RequireColumn(action.name);
  }
  for (const AlterAction& action : s.actions) {
    if (action.kind == AlterAction::Kind::Add)
      table.AddColumn(action.column);
    else if (action.kind == AlterAction::Kind::Drop)
      table.DropColumn(table.RequireColumn(action.name));
    else
      table.RenameColumn(table.RequireColumn(action.name), action.newName);
  }
}

void Host::Run(const MetadataStmt& s) {
  Table& table = RequireTable(s.table);
  const std::string key = TextOf(s.key);
  if (key.empty() || key[0] != '\\') throw HostError("A metadata key begins with a backslash, not '" + key + "'");
  auto it = std::find_if(table.m_metadata.begin(), table.m_metadata.end(),
                         [&](const auto& entry) { return EqualNoCase(entry.first, key); });
  if (!s.value) {
    if (it != table.m_metadata.end()) table.m_metadata.erase(it);
  } else if (it != table.m_metadata.end()) {
    it->second = TextOf(s.value);
  } else {
    table.m_metadata.emplace_back(key, TextOf(s.value));
  }
  // The keys of a table file go into that file at once; its rows wait for a
  // commit. Other vector data has no place for them.
  const std::string native = table.m_strPath.empty() ? std::string() : fk::Native(table.m_strPath);
  if (Extension(native) == ".tab")
    WriteTabMetadata(native, table.m_metadata);
  else
    table.m_bDirty = true;
}

}  // namespace sim
