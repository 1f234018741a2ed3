#include "wizards/table_subsets.h"

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/string_table.h"
#include "services/file_boxes.h"
#include "wizards/hole_list.h"

namespace {

constexpr unsigned IDS_SELECT_PERMANENT_DIRECTORY = 2073;
constexpr const char* kSurveyIdKey = "\\Terravik\\xsects\\dhsurvey\\DSH";
constexpr const char* kDataIdKey = "\\Terravik\\xsects\\dhdata\\DH";
constexpr const char* kDataFromKey = "\\Terravik\\xsects\\dhdata\\DFrom";

struct SubsetTarget {
  std::string listTable;
  std::string folder;
  std::string suffix;
};

// `table` cut to the listed holes; `file` becomes the subset when written.
void SubsetTable(const SubsetTarget& target, const std::string& table, const std::string& idColumn,
                 const char* sortColumn, std::string& file) {
  const std::string out = fk::Format("%s\\%s%s.tab", target.folder, table, target.suffix);
  if (g_Cartoma.MakeTableSubset(target.listTable, table, idColumn, out, sortColumn)) file = out;
}

// A survey or data table, found by its file among the host's open tables.
void SubsetTableFile(const SubsetTarget& target, const char* idKey, const char* sortKey, std::string& file) {
  const std::string table = g_Cartoma.FindTableByPath(file);
  if (table.empty()) return;
  const std::string idColumn = IdColumnOf(table, idKey);
  const std::string sortColumn = "COL" + g_Cartoma.GetMetadata(table, sortKey);
  SubsetTable(target, table, idColumn, sortColumn.c_str(), file);
}

// The selected holes in the working table, each quoted; their row numbers
// become their positions there.
void WriteHoleList(const std::string& listTable, CDrillholeWizDlg& dialog) {
  g_Cartoma.CreateTable(listTable, "ID Char(50)", nullptr, nullptr);
  for (std::size_t i = 0; i < dialog.m_SelectedNames.size(); ++i) {
    g_Cartoma.InsertRow(listTable, "ID", "\"" + dialog.m_SelectedNames[i] + "\"");
    dialog.m_SelectedData[i] = static_cast<std::intptr_t>(i);
  }
  g_Cartoma.CommitTable(listTable);
}

}  // namespace

std::optional<std::string> SubsetFolder(bool permanent, const std::string& start, const std::string& tempDirectory) {
  if (!permanent) return tempDirectory;
  const std::optional<std::string> folder = PickFolder(fk::LoadString(IDS_SELECT_PERMANENT_DIRECTORY), start);
  if (!folder || folder->empty()) return std::nullopt;
  return folder;
}

void MakeSubsetTables(const SeriesWizardKind& kind, CDrillholeWizDlg& dialog, const std::string& collarTable,
                      const std::string& idColumn, const std::string& folder, ProjectFiles& files) {
  const SubsetTarget target{ListTableOf(kind), folder, dialog.m_strSuffix};
  WriteHoleList(target.listTable, dialog);
  SubsetTable(target, collarTable, idColumn, nullptr, files.collar);
  if (!files.survey.empty()) SubsetTableFile(target, kSurveyIdKey, kind.surveySortKey, files.survey);
  for (std::string& file : files.data) SubsetTableFile(target, kDataIdKey, kDataFromKey, file);
  g_Cartoma.DropTable(target.listTable);
}
