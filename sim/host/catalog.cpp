#include "catalog.h"

#include <algorithm>
#include <filesystem>

#include "errors.h"
#include "text_util.h"

namespace sim {

Table* Catalog::Find(const std::string& name) const {
  for (const auto& table : m_tables)
    if (EqualNoCase(table->Name(), name)) return table.get();
  return nullptr;
}

Table& Catalog::Require(const std::string& name) const {
  if (Table* table = Find(name)) return *table;
  throw HostError("Table " + name + " is not open");
}

Table& Catalog::At(long index) const {
  if (index < 1 || index > static_cast<long>(m_tables.size()))
    throw HostError("There is no table number " + std::to_string(index) + "; " + std::to_string(m_tables.size()) +
                    " tables are open");
  return *m_tables[static_cast<std::size_t>(index - 1)];
}

Table* Catalog::FindByPath(const std::string& path) const {
  std::error_code ec;
  for (const auto& table : m_tables) {
    if (table->m_strPath.empty()) continue;
    if (EqualNoCase(table->m_strPath, path) || std::filesystem::equivalent(table->m_strPath, path, ec))
      return table.get();
  }
  return nullptr;
}

Table& Catalog::Add(std::unique_ptr<Table> table) {
  if (Find(table->Name())) throw HostError("A table named " + table->Name() + " is already open");
  m_strLast = table->Name();
  m_tables.push_back(std::move(table));
  return *m_tables.back();
}

void Catalog::Remove(const std::string& name) {
  std::erase_if(m_tables, [&](const auto& table) { return EqualNoCase(table->Name(), name); });
}

std::string Catalog::FreeName(const std::string& base) const {
  if (!Find(base)) return base;
  for (int i = 2;; ++i)
    if (!Find(base + "_" + std::to_string(i))) return base + "_" + std::to_string(i);
}

}  // namespace sim
