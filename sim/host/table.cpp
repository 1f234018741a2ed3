#include "table.h"

#include <cmath>

#include "errors.h"
#include "text_util.h"

namespace sim {
namespace {

int g_nNextTableId = 1;

const char* SqlTypeOf(ColumnType type) {
  switch (type) {
    case ColumnType::Integer:
    case ColumnType::SmallInt:
    case ColumnType::Logical: return "INTEGER";
    case ColumnType::Decimal:
    case ColumnType::Float: return "REAL";
    default: return "TEXT";
  }
}

std::string RowWhere(std::int64_t row) { return " WHERE rowid = " + std::to_string(row); }

}  // namespace

std::string Column::TypeText() const {
  switch (type) {
    case ColumnType::Char: return "Char (" + std::to_string(width) + ")";
    case ColumnType::Decimal: return "Decimal (" + std::to_string(width) + ", " + std::to_string(decimals) + ")";
    case ColumnType::Integer: return "Integer";
    case ColumnType::SmallInt: return "SmallInt";
    case ColumnType::Date: return "Date";
    case ColumnType::Logical: return "Logical";
    case ColumnType::Float: return "Float";
  }
  return "Char (0)";
}

ColumnType ColumnTypeByName(const std::string& name) {
  static const std::pair<const char*, ColumnType> kTypes[] = {
      {"Char", ColumnType::Char},         {"Decimal", ColumnType::Decimal}, {"Integer", ColumnType::Integer},
      {"SmallInt", ColumnType::SmallInt}, {"Date", ColumnType::Date},       {"Logical", ColumnType::Logical},
      {"Float", ColumnType::Float}};
  for (const auto& [word, type] : kTypes)
    if (EqualNoCase(name, word)) return type;
  throw HostError("Unknown column type " + name);
}

Table::Table(Database& db, std::string name, std::vector<Column> columns, CoordSys coordsys)
    : m_coordsys(std::move(coordsys)),
      m_db(db),
      m_strName(std::move(name)),
      m_strSqlName("t" + std::to_string(g_nNextTableId++)) {
  std::string sql = "CREATE TABLE " + m_strSqlName + " (obj TEXT";
  for (Column& column : columns) {
    column.sqlName = "f" + std::to_string(m_nNextSqlColumn++);
    sql += ", " + column.sqlName + " " + SqlTypeOf(column.type);
  }
  m_db.Exec(sql + ")");
  m_columns = std::move(columns);
}

Table::~Table() {
  try {
    m_db.Exec("DROP TABLE " + m_strSqlName);
  } catch (const HostError&) {
  }
}

int Table::ColumnIndex(const std::string& name) const {
  for (std::size_t i = 0; i < m_columns.size(); ++i)
    if (EqualNoCase(m_columns[i].name, name)) return static_cast<int>(i);
  if (name.size() > 3 && EqualNoCase(name.substr(0, 3), "COL") &&
      name.find_first_not_of("0123456789", 3) == std::string::npos) {
    const int number = std::stoi(name.substr(3));
    if (number >= 1 && number <= static_cast<int>(m_columns.size())) return number - 1;
  }
  return -1;
}

int Table::RequireColumn(const std::string& name) const {
  const int index = ColumnIndex(name);
  if (index < 0) throw HostError("Column " + name + " is not in table " + m_strName);
  return index;
}

std::int64_t Table::RowCount() const {
  SqlStatement count(m_db, "SELECT coalesce(max(rowid), 0) FROM " + m_strSqlName);
  count.Step();
  return count.Int(0);
}

std::vector<std::int64_t> Table::RowIds() const {
  SqlStatement rows(m_db, "SELECT rowid FROM " + m_strSqlName + " ORDER BY rowid");
  std::vector<std::int64_t> ids;
  while (rows.Step()) ids.push_back(rows.Int(0));
  return ids;
}

bool Table::RowExists(std::int64_t row) const {
  SqlStatement exists(m_db, "SELECT 1 FROM " + m_strSqlName + RowWhere(row));
  return exists.Step();
}

Value Table::ToColumnValue(const Column& column, const Value& value) const {
  if (value.IsNull()) return Value();
  const std::string what = "The value for column " + column.name;
  switch (column.type) {
    case ColumnType::Char: {
      std::string text = value.AsText();
      if (column.width > 0 && static_cast<int>(text.size()) > column.width) text.resize(column.width);
      return Value(text);
    }
    case ColumnType::Integer:
    case ColumnType::SmallInt: return Value(std::round(value.AsNumber(what)));
    case ColumnType::Decimal: {
      const double scale = std::pow(10.0, column.decimals);
      return Value(std::round(value.AsNumber(what) * scale) / scale);
    }
    case ColumnType::Float: return Value(value.AsNumber(what));
    case ColumnType::Logical: return Value(value.AsBool(what));
    case ColumnType::Date: return Value(value.AsText());
  }
  return value;
}

std::int64_t Table::InsertRow(const std::vector<Value>& values, const Object* object) {
  const std::int64_t row = RowCount() + 1;
  std::string sql = "INSERT INTO " + m_strSqlName + " (rowid, obj";
  std::string params = "?, ?";
  for (const Column& column : m_columns) {
    sql += ", " + column.sqlName;
    params += ", ?";
  }
  SqlStatement insert(m_db, sql + ") VALUES (" + params + ")");
  insert.BindInt(1, row);
  if (object) insert.BindText(2, object->Serialize());
  for (std::size_t i = 0; i < m_columns.size() && i < values.size(); ++i)
    insert.Bind(static_cast<int>(i) + 3, ToColumnValue(m_columns[i], values[i]));
  insert.Run();
  m_bDirty = true;
  return row;
}

Value Table::Cell(std::int64_t row, int column) const {
  const Column& c = m_columns.at(static_cast<std::size_t>(column));
  SqlStatement cell(m_db, "SELECT " + c.sqlName + " FROM " + m_strSqlName + RowWhere(row));
  if (!cell.Step() || cell.IsNull(0)) {
    if (c.type == ColumnType::Logical) return Value(false);
    return c.type == ColumnType::Char || c.type == ColumnType::Date ? Value("") : Value(0.0);
  }
  switch (c.type) {
    case ColumnType::Char:
    case ColumnType::Date: return Value(cell.Text(0));
    case ColumnType::Logical: return Value(cell.Int(0) != 0);
    case ColumnType::Integer:
    case ColumnType::SmallInt: return Value(static_cast<double>(cell.Int(0)));
    default: return Value(cell.Double(0));
  }
}

ObjectPtr Table::ObjectAt(std::int64_t row) const {
  SqlStatement cell(m_db, "SELECT obj FROM " + m_strSqlName + RowWhere(row));
  if (!cell.Step() || cell.IsNull(0)) return nullptr;
  return std::make_shared<const Object>(Object::Deserialize(cell.Text(0)));
}

void Table::SetCell(std::int64_t row, int column, const Value& value) {
  const Column& c = m_columns.at(static_cast<std::size_t>(column));
  SqlStatement update(m_db, "UPDATE " + m_strSqlName + " SET " + c.sqlName + " = ?" + RowWhere(row));
  update.Bind(1, ToColumnValue(c, value));
  update.Run();
  m_bDirty = true;
}

void Table::SetObject(std::int64_t row, const Object* object) {
  SqlStatement update(m_db, "UPDATE " + m_strSqlName + " SET obj = ?" + RowWhere(row));
  if (object)
    update.BindText(1, object->Serialize());
  else
    update.Bind(1, Value());
  update.Run();
  m_bDirty = true;
}

void Table::DeleteRow(std::int64_t row) {
  m_db.Exec("DELETE FROM " + m_strSqlName + RowWhere(row));
  m_bDirty = true;
}

void Table::Pack() {
  const std::string scratch = m_strSqlName + "_pack";
  m_db.Exec("CREATE TEMP TABLE " + scratch + " AS SELECT * FROM " + m_strSqlName + " ORDER BY rowid");
  m_db.Exec("DELETE FROM " + m_strSqlName);
  m_db.Exec("INSERT INTO " + m_strSqlName + " SELECT * FROM " + scratch + " ORDER BY rowid");
  m_db.Exec("DROP TABLE " + scratch);
  m_bDirty = true;
}

void Table::AddColumn(Column column) {
  if (ColumnIndex(column.name) >= 0 && EqualNoCase(m_columns[ColumnIndex(column.name)].name, column.name))
    throw HostError("Column " + column.name + " already exists in table " + m_strName);
  column.sqlName = "f" + std::to_string(m_nNextSqlColumn++);
  m_db.Exec("ALTER TABLE " + m_strSqlName + " ADD COLUMN " + column.sqlName + " " + SqlTypeOf(column.type));
  m_columns.push_back(std::move(column));
  m_bDirty = true;
}

void Table::DropColumn(int column) {
  m_db.Exec("ALTER TABLE " + m_strSqlName + " DROP COLUMN " + m_columns.at(static_cast<std::size_t>(column)).sqlName);
  m_columns.erase(m_columns.begin() + column);
  m_bDirty = true;
}

void Table::RenameColumn(int column, const std::string& name) {
  m_columns.at(static_cast<std::size_t>(column)).name = name;
  m_bDirty = true;
}

bool Table::HasObjects() const {
  SqlStatement any(m_db, "SELECT 1 FROM " + m_strSqlName + " WHERE obj IS NOT NULL LIMIT 1");
  return any.Step();
}

}  // namespace sim
