// Finding a named entry of a list or combo box of a dialog box that runs
// headless, as a user reads the entries: names compare ignoring case.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/dialog_view.h"

namespace cli {

// The index of the combo box entry `text`, or -1.
int ComboEntry(const fk::ui::DialogView& view, int id, const std::string& text);
// The indices of the list box entries named in `texts`, in the list's order.
std::vector<int> ListEntries(const fk::ui::DialogView& view, int id, const std::vector<std::string>& texts);
// The names in `wanted` that `available` doesn't hold, ignoring case.
std::vector<std::string> Missing(const std::vector<std::string>& available, const std::vector<std::string>& wanted);
// UsageError unless `table` is among the `tables` that a box lists and has
// every one of `columns`.
void RequireTableWithColumns(const std::vector<std::string>& tables, const std::string& table,
                             const std::vector<std::string>& columns);

}  // namespace cli
