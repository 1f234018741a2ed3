// Statements on rows: selections, insert, update, delete, fetch.
#include <algorithm>

#include "errors.h"
#include "host.h"
#include "sql_translation.h"
#include "text_util.h"
#include "vector_data.h"

namespace sim {
namespace {

bool IsObjectColumn(const std::string& name) { return EqualNoCase(name, "Obj") || EqualNoCase(name, "Object"); }

void RequireWritable(const Table& table) {
  if (table.m_bReadOnly) throw HostError("Table " + table.Name() + " is read-only");
  if (table.m_type == TableType::Raster)
    throw HostError("Table " + table.Name() + " is a raster image; it has no rows");
}

}  // namespace

std::vector<std::int64_t> Host::RowsWhere(Table& table, const ExprPtr& where) {
  if (!where) return table.RowIds();
  SqlStatement rows(m_db, "SELECT rowid FROM " + table.SqlName() + " WHERE " +
                              TranslateCondition(*this, table, *where) + " ORDER BY rowid");
  std::vector<std::int64_t> ids;
  while (rows.Step()) ids.push_back(rows.Int(0));
  return ids;
}

Table& Host::MakeQueryTable(const SelectQuery& query) {
  const SqlSelect select = TranslateSelect(*this, query);
  std::vector<Row> rows;
  SqlStatement result(m_db, select.sql);
  while (result.Step()) {
    Row row;
    if (!result.IsNull(0)) row.object = Object::Deserialize(result.Text(0));
    for (int c = 1; c < result.ColumnCount(); ++c) row.values.push_back(result.ValueAt(c));
    rows.push_back(std::move(row));
  }
  const std::string name = query.into.empty() ? "Query" + std::to_string(++m_nQueryCount) : query.into;
  if (Table* existing = m_catalog.Find(name)) {
    if (existing->m_type != TableType::Query) throw HostError("A table named " + name + " is already open");
    CloseTable(name);
  }
  auto table = std::make_unique<Table>(m_db, name, select.columns, select.first->m_coordsys);
  table->m_type = TableType::Query;
  table->m_bTemporary = true;
  table->m_bMappable = select.first->m_bMappable;
  for (const Row& row : rows) table->InsertRow(row.values, row.object ? &*row.object : nullptr);
  table->m_bDirty = false;
  return m_catalog.Add(std::move(table));
}

void Host::Run(const SelectStmt& s) {
  Table& result = MakeQueryTable(s.query);
  if (s.query.noSelect) return;
  bool allStar = s.query.from.size() == 1;
  for (const SelectItem& item : s.query.items) allStar = allStar && item.star;
  m_selection.queryTable = result.Name();
  m_selection.baseTable = allStar ? RequireTable(s.query.from[0]).Name() : result.Name();
}

void Host::Run(const InsertStmt& s) {
  Table& table = RequireTable(s.table);
  RequireWritable(table);
  std::vector<std::string> columns = s.columns;
  if (columns.empty())
    for (const Column& column : table.Columns()) columns.push_back(column.name);
  for (const std::string& column : columns)
    if (!IsObjectColumn(column)) table.RequireColumn(column);

  std::vector<std::vector<Value>> sources;
  if (s.select) {
    Table& result = MakeQueryTable(*s.select);
    for (std::int64_t id : result.RowIds()) {
      std::vector<Value> values;
      for (std::size_t c = 0; c < result.Columns().size(); ++c) values.push_back(result.Cell(id, static_cast<int>(c)));
      sources.push_back(std::move(values));
    }
    CloseTable(result.Name());
  } else {
    std::vector<Value> values;
    for (const ExprPtr& value : s.values) values.push_back(Evaluate(*value));
    sources.push_back(std::move(values));
  }
  for (const std::vector<Value>& values : sources) {
    if (values.size() != columns.size())
      throw HostError("Insert into " + table.Name() + " names " + std::to_string(columns.size()) +
                      " columns but gives " + std::to_string(values.size()) + " values");
    std::vector<Value> row(table.Columns().size());
    std::optional<Object> object;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (IsObjectColumn(columns[i]))
        object = ObjectFromValue(values[i], table);
      else
        row[static_cast<std::size_t>(table.RequireColumn(columns[i]))] = values[i];
    }
    table.InsertRow(row, object ? &*object : nullptr);
  }
}

void Host::Run(const UpdateStmt& s) {
  Table& table = RequireTable(s.table);
  RequireWritable(table);
  for (const auto& [column, value] : s.assignments)
    if (!IsObjectColumn(column)) table.RequireColumn(column);
  for (std::int64_t id : RowsWhere(table, s.where)) {
    const RowContext row{&table, id};
    for (const auto& [column, value] : s.assignments) {
      const Value v = Evaluate(*value, &row);
      if (IsObjectColumn(column)) {
        const Object object = ObjectFromValue(v, table);
        table.SetObject(id, &object);
      } else {
        table.SetCell(id, table.RequireColumn(column), v);
      }
    }
  }
}

void Host::Run(const DeleteStmt& s) {
  Table& table = RequireTable(s.table);
  RequireWritable(table);
  for (std::int64_t id : RowsWhere(table, s.where)) table.DeleteRow(id);
}

void Host::Run(const FetchStmt& s) {
  Table& table = RequireTable(s.table);
  const std::vector<std::int64_t> ids = table.RowIds();
  const std::int64_t current = table.m_nCurrentRow;
  switch (s.where) {
    case FetchStmt::Where::First: table.m_nCurrentRow = ids.empty() ? 0 : ids.front(); break;
    case FetchStmt::Where::Last: table.m_nCurrentRow = ids.empty() ? 0 : ids.back(); break;
    case FetchStmt::Where::Next: {
      const auto next = std::upper_bound(ids.begin(), ids.end(), current);
      table.m_nCurrentRow = next == ids.end() ? 0 : *next;
      break;
    }
    case FetchStmt::Where::Prev: {
      const auto prev = std::lower_bound(ids.begin(), ids.end(), current);
      table.m_nCurrentRow = prev == ids.begin() ? 0 : *(prev - 1);
      break;
    }
    case FetchStmt::Where::Rec: {
      const double row = Evaluate(*s.row).AsNumber("The row number");
      if (row < 1 || row > static_cast<double>(table.RowCount()))
        throw HostError("Table " + table.Name() + " has " + std::to_string(table.RowCount()) +
                        " rows; there is no row " + FormatNumber(row));
      table.m_nCurrentRow = static_cast<std::int64_t>(row);
    }
  }
}

void Host::Run(const SetFastEditStmt& s) { RequireTable(s.table).m_bFastEdit = s.on; }

}  // namespace sim
