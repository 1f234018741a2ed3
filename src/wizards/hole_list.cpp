#include "wizards/hole_list.h"

#include <algorithm>

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"

namespace {

constexpr const char* kSelection = "Selection";

// Moves the first available hole named `id` to the selected list, with its
// row number; an id with none is skipped.
void MoveToSelected(CDrillholeWizDlg& dialog, const std::string& id) {
  const auto found = std::find(dialog.m_AvailableNames.begin(), dialog.m_AvailableNames.end(), id);
  if (found == dialog.m_AvailableNames.end()) return;
  const auto at = found - dialog.m_AvailableNames.begin();
  dialog.m_SelectedNames.push_back(*found);
  dialog.m_SelectedData.push_back(dialog.m_AvailableData[static_cast<std::size_t>(at)]);
  dialog.m_AvailableNames.erase(found);
  dialog.m_AvailableData.erase(dialog.m_AvailableData.begin() + at);
}

void Preselect(CDrillholeWizDlg& dialog, const std::string& collarTable, const std::string& idColumn) {
  const int count = g_Cartoma.GetTableRowCount(kSelection);
  if (count <= 0 || g_Cartoma.GetSelectionName() != collarTable) return;
  for (int row = 1; row <= count; ++row) {
    g_Cartoma.FetchRec(kSelection, row);
    MoveToSelected(dialog, g_Cartoma.GetFieldValue(kSelection, idColumn));
  }
}

}  // namespace

std::string IdColumnOf(const std::string& table, const std::string& key) {
  return fk::Format("COL%d", static_cast<int>(fk::Atof(g_Cartoma.GetMetadata(table, key))));
}

void ReadHoles(CDrillholeWizDlg& dialog, const std::string& collarTable, const std::string& idColumn) {
  const int selected = g_Cartoma.GetSelectionCount();
  const int count = g_Cartoma.GetTableRowCount(collarTable);
  for (int row = 1; row <= count; ++row) {
    g_Cartoma.FetchRec(collarTable, row);
    dialog.m_AvailableNames.push_back(g_Cartoma.GetFieldValue(collarTable, idColumn));
    dialog.m_AvailableData.push_back(row - 1);
  }
  if (selected > 0) Preselect(dialog, collarTable, idColumn);
}
