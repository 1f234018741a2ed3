#include "box_entries.h"

#include <strings.h>

#include <algorithm>

#include "cli_errors.h"
#include "host/cartoma.h"

namespace cli {
namespace {
bool SameName(const std::string& a, const std::string& b) { return strcasecmp(a.c_str(), b.c_str()) == 0; }
}  // namespace

int ComboEntry(const fk::ui::DialogView& view, int id, const std::string& text) {
  for (int i = 0; i < view.ComboCount(id); ++i)
    if (SameName(view.ComboText(id, i), text)) return i;
  return -1;
}

std::vector<int> ListEntries(const fk::ui::DialogView& view, int id, const std::vector<std::string>& texts) {
  std::vector<int> entries;
  for (int i = 0; i < view.ListCount(id); ++i)
    if (std::any_of(texts.begin(), texts.end(), [&](const std::string& t) { return SameName(view.ListText(id, i), t); }))
      entries.push_back(i);
  return entries;
}

std::vector<std::string> Missing(const std::vector<std::string>& available, const std::vector<std::string>& wanted) {
  std::vector<std::string> missing;
  for (const std::string& name : wanted)
    if (std::none_of(available.begin(), available.end(), [&](const std::string& a) { return SameName(a, name); }))
      missing.push_back(name);
  return missing;
}

void RequireTableWithColumns(const std::vector<std::string>& tables, const std::string& table,
                             const std::vector<std::string>& columns) {
  if (!Missing(tables, {table}).empty())
    throw UsageError("no table of objects named " + table + " is open (open it with --data)");
  std::vector<std::string> present;
  g_Cartoma.GetColumnNames(table, present, 0);
  if (const std::vector<std::string> missing = Missing(present, columns); !missing.empty())
    throw UsageError("table " + table + " has no column " + missing.front());
}

}  // namespace cli
