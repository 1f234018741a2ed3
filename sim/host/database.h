// The in-memory SQLite database that holds the rows of every open table,
// so that selections run as SQL.
#pragma once

#include <cstdint>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace sim {

class Value;

class Database {
 public:
  Database();
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Runs SQL that gives no rows; throws HostError with SQLite's message.
  void Exec(const std::string& sql);
  sqlite3* Handle() const { return m_db; }

 private:
  sqlite3* m_db = nullptr;
};

// One prepared statement.
class SqlStatement {
 public:
  SqlStatement(Database& db, const std::string& sql);
  ~SqlStatement();
  SqlStatement(const SqlStatement&) = delete;
  SqlStatement& operator=(const SqlStatement&) = delete;

  // Parameters count from 1. A null value binds NULL, a truth value 1 or 0.
  void Bind(int index, const Value& value);
  void BindText(int index, const std::string& text);
  void BindInt(int index, std::int64_t number);
  // True while a row is there; throws HostError on failure.
  bool Step();
  void Run() {
    while (Step()) {
    }
  }
  int ColumnCount() const;
  bool IsNull(int column) const;
  std::int64_t Int(int column) const;
  double Double(int column) const;
  std::string Text(int column) const;
  // The column as a value: null, a number or a text.
  Value ValueAt(int column) const;

 private:
  Database& m_db;
  sqlite3_stmt* m_stmt = nullptr;
};

}  // namespace sim
