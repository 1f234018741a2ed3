// The open tables, in the order the host lists them (TableInfo(n, ...)
// counts from 1 in this order), and the table opened or made last, which
// TableInfo(0, ...) names.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "table.h"

namespace sim {

class Catalog {
 public:
  // The table by name, ignoring case; null when none is open.
  Table* Find(const std::string& name) const;
  // Throws HostError "Table X is not open".
  Table& Require(const std::string& name) const;
  // The table by its place, from 1; throws HostError.
  Table& At(long index) const;
  Table* FindByPath(const std::string& path) const;
  std::size_t Count() const { return m_tables.size(); }

  // Adds a table and makes it the last one; throws when the name is taken.
  Table& Add(std::unique_ptr<Table> table);
  void Remove(const std::string& name);
  // A name no open table has: `base`, else base plus a number.
  std::string FreeName(const std::string& base) const;
  Table* Last() const { return Find(m_strLast); }
  void SetLast(const std::string& name) { m_strLast = name; }
  const std::vector<std::unique_ptr<Table>>& All() const { return m_tables; }

 private:
  std::vector<std::unique_ptr<Table>> m_tables;
  std::string m_strLast;
};

}  // namespace sim
