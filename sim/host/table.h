// An open table: typed columns and one object per row, its rows kept in the
// emulator's SQLite database (one SQL table each), its file, coordinate
// system and metadata keys, and the row a Fetch made current.
//
// Column type numbers, as ColumnInfo(t, c, 3) answers them:
//   1 Char(width), 2 Decimal(width, decimals), 3 Integer, 4 SmallInt,
//   5 Date, 6 Logical, 8 Float.
// Table type numbers, as TableInfo(t, 3) answers them:
//   1 a table of rows (from a file or made by Create Table), 2 the result of
//   a selection, 4 a raster image.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "coordsys.h"
#include "database.h"
#include "geometry.h"
#include "value.h"

namespace sim {

enum class ColumnType { Char = 1, Decimal = 2, Integer = 3, SmallInt = 4, Date = 5, Logical = 6, Float = 8 };

struct Column {
  std::string name;
  ColumnType type = ColumnType::Char;
  int width = 0;        // Char and Decimal
  int decimals = 0;     // Decimal
  std::string sqlName;  // set by the table

  // "Char (20)", "Decimal (8, 2)", "Float", ... as definitions write it.
  std::string TypeText() const;
};

enum class TableType { Rows = 1, Query = 2, Raster = 4 };

using Metadata = std::vector<std::pair<std::string, std::string>>;

class Table {
 public:
  Table(Database& db, std::string name, std::vector<Column> columns, CoordSys coordsys);
  ~Table();
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  const std::string& Name() const { return m_strName; }
  const std::vector<Column>& Columns() const { return m_columns; }
  const std::string& SqlName() const { return m_strSqlName; }
  // The column by name, ignoring case, or by its pseudo name "COLn"; -1 if none.
  int ColumnIndex(const std::string& name) const;
  // Same, throwing HostError "Column X is not in table T".
  int RequireColumn(const std::string& name) const;

  // Rows are numbered from 1 (RowID); deleted rows keep their number until Pack.
  std::int64_t RowCount() const;
  std::vector<std::int64_t> RowIds() const;
  bool RowExists(std::int64_t row) const;
  // Appends a row; `values` go to the columns in order (missing ones stay empty).
  std::int64_t InsertRow(const std::vector<Value>& values, const Object* object);
  Value Cell(std::int64_t row, int column) const;
  // The row's object in the table's own coordinate system, or null.
  ObjectPtr ObjectAt(std::int64_t row) const;
  void SetCell(std::int64_t row, int column, const Value& value);
  void SetObject(std::int64_t row, const Object* object);
  void DeleteRow(std::int64_t row);
  // Renumbers the rows 1..n, dropping deleted ones.
  void Pack();
  void AddColumn(Column column);
  void DropColumn(int column);
  void RenameColumn(int column, const std::string& name);
  bool HasObjects() const;

  std::string m_strPath;  // the .tab file, empty for a table with no file yet
  TableType m_type = TableType::Rows;
  bool m_bTemporary = false;
  bool m_bMappable = false;  // has a coordinate system and may hold objects
  bool m_bReadOnly = false;
  bool m_bFastEdit = false;
  bool m_bDirty = false;  // edits not yet committed
  std::int64_t m_nCurrentRow = 0;
  CoordSys m_coordsys;
  Metadata m_metadata;
  std::string m_strRasterFile;  // raster tables: the image beside the .tab

  void Rename(std::string name) { m_strName = std::move(name); }
  // A value stored into a column of this type: rounded, cut to width.
  Value ToColumnValue(const Column& column, const Value& value) const;

 private:
  Database& m_db;
  std::string m_strName;
  std::string m_strSqlName;
  std::vector<Column> m_columns;
  int m_nNextSqlColumn = 1;
};

// Column types by name as definitions write them; throws HostError.
ColumnType ColumnTypeByName(const std::string& name);

}  // namespace sim
