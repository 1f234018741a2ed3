#include "database.h"

#include <sqlite3.h>

#include "errors.h"
#include "value.h"

namespace sim {

Database::Database() {
  if (sqlite3_open(":memory:", &m_db) != SQLITE_OK) throw HostError("The table store could not be opened");
}

Database::~Database() { sqlite3_close(m_db); }

void Database::Exec(const std::string& sql) {
  char* message = nullptr;
  if (sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    const std::string text = message ? message : "unknown failure";
    sqlite3_free(message);
    throw HostError("The table store refused the operation: " + text);
  }
}

SqlStatement::SqlStatement(Database& db, const std::string& sql) : m_db(db) {
  if (sqlite3_prepare_v2(db.Handle(), sql.c_str(), -1, &m_stmt, nullptr) != SQLITE_OK)
    throw HostError(std::string("The selection could not be run: ") + sqlite3_errmsg(db.Handle()));
}

SqlStatement::~SqlStatement() { sqlite3_finalize(m_stmt); }

void SqlStatement::Bind(int index, const Value& value) {
  if (value.IsNull())
    sqlite3_bind_null(m_stmt, index);
  else if (value.IsNumber())
    sqlite3_bind_double(m_stmt, index, value.AsNumber());
  else if (value.IsBool())
    sqlite3_bind_int(m_stmt, index, value.AsBool() ? 1 : 0);
  else
    BindText(index, value.AsText());
}

void SqlStatement::BindText(int index, const std::string& text) {
  sqlite3_bind_text(m_stmt, index, text.c_str(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void SqlStatement::BindInt(int index, std::int64_t number) { sqlite3_bind_int64(m_stmt, index, number); }

bool SqlStatement::Step() {
  const int status = sqlite3_step(m_stmt);
  if (status == SQLITE_ROW) return true;
  if (status == SQLITE_DONE) return false;
  throw HostError(std::string("The selection failed: ") + sqlite3_errmsg(m_db.Handle()));
}

int SqlStatement::ColumnCount() const { return sqlite3_column_count(m_stmt); }
bool SqlStatement::IsNull(int column) const { return sqlite3_column_type(m_stmt, column) == SQLITE_NULL; }
std::int64_t SqlStatement::Int(int column) const { return sqlite3_column_int64(m_stmt, column); }
double SqlStatement::Double(int column) const { return sqlite3_column_double(m_stmt, column); }

std::string SqlStatement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, column));
  return text ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(m_stmt, column))) : std::string();
}

Value SqlStatement::ValueAt(int column) const {
  switch (sqlite3_column_type(m_stmt, column)) {
    case SQLITE_NULL: return Value();
    case SQLITE_INTEGER: return Value(static_cast<double>(Int(column)));
    case SQLITE_FLOAT: return Value(Double(column));
    default: return Value(Text(column));
  }
}

}  // namespace sim
