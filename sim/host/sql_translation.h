// Selections run as SQL on the emulator's database: column names (by name,
// by "COLn", qualified by their table), RowID, literals and the variables
// of the host become SQL; operators and a few text and number functions map
// to SQLite's; any other function whose arguments name no column is
// evaluated by the host first and goes in as its value.
#pragma once

#include <string>
#include <vector>

#include "syntax.h"
#include "table.h"

namespace sim {

class Host;

struct SqlSelect {
  std::string sql;              // obj of the first table, then one column per item
  std::vector<Column> columns;  // the result's columns
  Table* first = nullptr;       // where the objects come from
};

// With `withObjects` off, the SQL gives the items alone (a subquery of In).
SqlSelect TranslateSelect(Host& host, const SelectQuery& query, bool withObjects = true);
// A condition on one table, as SQL over its own SQL table.
std::string TranslateCondition(Host& host, Table& table, const Expr& condition);

}  // namespace sim
