#include "maptools/reproject_dlg.h"

#include <algorithm>
#include <vector>

#include "host/cartoma.h"
#include "maptools/reproject_table.h"
#include "platform/app/app_base.h"
#include "platform/paths/paths.h"
#include "platform/text/string_table.h"
#include "services/file_boxes.h"
#include "services/help_launcher.h"

namespace {

constexpr unsigned IDS_MAPPER_NAME = 1141;
constexpr unsigned IDS_TARGET_PROJECTION = 1142;
constexpr unsigned IDS_NO_TABLES = 2021;
constexpr unsigned IDS_NO_PROJECTION = 2022;
constexpr unsigned IDS_NO_DIRECTORY_OR_SUFFIX = 2023;
constexpr unsigned IDS_EMPTY_DIRECTORY = 2024;
constexpr unsigned IDS_EMPTY_SUFFIX = 2025;
constexpr unsigned IDS_SELECT_DIRECTORY = 2075;
constexpr unsigned IDS_NOT_SELECTED = 2084;

constexpr const char* kWidthSection = "ReProject";

// The folder of a table file, with its separator; "" for a bare name.
std::string FolderOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

}  // namespace

CReProjectDlg::CReProjectDlg() : fk::ui::DialogController(IDD), m_strSuffix("_reproject") {}

bool CReProjectDlg::OnInitDialog() {
  View().SetText(IDC_DIRECTORY, m_strOutputDir);
  View().SetText(IDC_SUFFIX, m_strSuffix);
  View().ListCtrlInsertColumn(IDC_TABLES, 0, fk::LoadString(IDS_MAPPER_NAME),
                              fk::CurrentProfileInt(kWidthSection, "MapColSize", 235));
  View().ListCtrlInsertColumn(IDC_TABLES, 1, fk::LoadString(IDS_TARGET_PROJECTION),
                              fk::CurrentProfileInt(kWidthSection, "ProjColSize", 121));
  UpdateTableList();
  View().SetCheck(IDC_CREATE_NEW, 1);
  View().SetCheck(IDC_WITH_SUFFIX, 1);
  UpdateOptionStates();
  return true;
}

void CReProjectDlg::UpdateTableList() {
  std::vector<std::string> ticked;
  for (int row = 0; row < View().ListCtrlRowCount(IDC_TABLES); ++row)
    if (View().ListCtrlCheck(IDC_TABLES, row)) ticked.push_back(View().ListCtrlText(IDC_TABLES, row, 0));
  View().ListCtrlDeleteAll(IDC_TABLES);
  std::vector<std::string> names;
  g_Cartoma.GetVectorTableNames(names);
  bool anyTicked = false;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int row = View().ListCtrlInsertRow(IDC_TABLES, static_cast<int>(i), names[i]);
    View().ListCtrlSetText(IDC_TABLES, row, 1, g_Cartoma.GetTableCoordSysName(names[i]));
    const bool tick = std::find(ticked.begin(), ticked.end(), names[i]) != ticked.end();
    View().ListCtrlSetCheck(IDC_TABLES, row, tick);
    anyTicked = anyTicked || tick;
  }
  // A tick given back changes the rows as the user's own tick does.
  if (anyTicked) UpdateTargetColumn();
}

void CReProjectDlg::UpdateTargetColumn() {
  for (int row = 0; row < View().ListCtrlRowCount(IDC_TABLES); ++row) {
    const std::string table = View().ListCtrlText(IDC_TABLES, row, 0);
    if (!View().ListCtrlCheck(IDC_TABLES, row)) {
      View().ListCtrlSetText(IDC_TABLES, row, 1, g_Cartoma.GetTableCoordSysName(table));
      continue;
    }
    const std::string target = m_strTargetProjection.empty() ? fk::LoadString(IDS_NOT_SELECTED)
                               : m_strTargetName.empty()     ? m_strTargetProjection
                                                             : m_strTargetName;
    View().ListCtrlSetText(IDC_TABLES, row, 1, target);
    // The first ticked table offers its own folder for the new tables.
    if (m_strOutputDir.empty()) {
      m_strOutputDir = FolderOf(g_Cartoma.GetTablePath(table));
      View().SetText(IDC_DIRECTORY, m_strOutputDir);
    }
  }
}

void CReProjectDlg::OnListCtrlCheck(int id, int /*row*/) {
  if (id == IDC_TABLES) UpdateTargetColumn();
}

// On purpose the directory and suffix edits follow only their own check
// boxes: with "Overwrite existing tables" on, the check boxes are grey but
// the edits stay as they were.
void CReProjectDlg::UpdateOptionStates() {
  const bool createNew = View().Check(IDC_CREATE_NEW) != 0;
  View().Enable(IDC_IN_DIRECTORY, createNew);
  View().Enable(IDC_WITH_SUFFIX, createNew);
  EnableDirectory();
  EnableSuffix();
}

void CReProjectDlg::EnableDirectory() {
  const bool inDirectory = View().Check(IDC_IN_DIRECTORY) != 0;
  View().Enable(IDC_DIRECTORY, inDirectory);
  View().Enable(IDC_BROWSE_DIRECTORY, inDirectory);
}

void CReProjectDlg::EnableSuffix() {
  const bool withSuffix = View().Check(IDC_WITH_SUFFIX) != 0;
  View().Enable(IDC_SUFFIX_LABEL, withSuffix);
  View().Enable(IDC_SUFFIX, withSuffix);
}

void CReProjectDlg::OnButton(int id) {
  switch (id) {
    case IDC_OVERWRITE:
    case IDC_CREATE_NEW:
      // The two options are one group: the other one goes off.
      View().SetCheck(id == IDC_OVERWRITE ? IDC_CREATE_NEW : IDC_OVERWRITE, 0);
      UpdateOptionStates();
      break;
    case IDC_IN_DIRECTORY: EnableDirectory(); break;
    case IDC_WITH_SUFFIX: EnableSuffix(); break;
    case IDC_OPEN_TABLE: OnOpenTable(); break;
    case IDC_NEW_PROJECTION: OnNewProjection(); break;
    case IDC_SELECT_ALL: TickAll(true); break;
    case IDC_UNSELECT_ALL: TickAll(false); break;
    case IDC_BROWSE_DIRECTORY: OnBrowseDirectory(); break;
    case IDC_HELP: LaunchHelp(Prompt(), HELP_REPROJECT); break;
    default: break;
  }
}

// The host's own open-table command.
void CReProjectDlg::OnOpenTable() {
  if (g_Cartoma.OpenTable(nullptr, nullptr, 0, 0)) UpdateTableList();
}

void CReProjectDlg::OnNewProjection() {
  m_strTargetProjection = g_Cartoma.GetLastProjection(&m_strTargetName);
  UpdateTargetColumn();
}

void CReProjectDlg::TickAll(bool ticked) {
  for (int row = 0; row < View().ListCtrlRowCount(IDC_TABLES); ++row) {
    if (View().ListCtrlCheck(IDC_TABLES, row) == ticked) continue;
    View().ListCtrlSetCheck(IDC_TABLES, row, ticked);
    UpdateTargetColumn();
  }
}

void CReProjectDlg::OnBrowseDirectory() {
  if (const std::optional<std::string> folder = PickFolder(fk::LoadString(IDS_SELECT_DIRECTORY), m_strOutputDir)) {
    m_strOutputDir = fk::AddTrailingSeparator(*folder);
    View().SetText(IDC_DIRECTORY, m_strOutputDir);
  }
}

void CReProjectDlg::ReadFields() {
  m_strOutputDir = View().Text(IDC_DIRECTORY);
  m_strSuffix = View().Text(IDC_SUFFIX);
}

bool CReProjectDlg::AnyRowTicked() const {
  for (int row = 0; row < View().ListCtrlRowCount(IDC_TABLES); ++row)
    if (View().ListCtrlCheck(IDC_TABLES, row)) return true;
  return false;
}

bool CReProjectDlg::CheckOptions() {
  const bool newTables = View().Check(IDC_OVERWRITE) == 0;
  const bool inDirectory = View().Check(IDC_IN_DIRECTORY) != 0;
  const bool withSuffix = View().Check(IDC_WITH_SUFFIX) != 0;
  unsigned refusal = 0;
  if (!AnyRowTicked())
    refusal = IDS_NO_TABLES;
  else if (m_strTargetProjection.empty())
    refusal = IDS_NO_PROJECTION;
  else if (newTables && !inDirectory && !withSuffix)
    refusal = IDS_NO_DIRECTORY_OR_SUFFIX;
  else if (newTables && inDirectory && m_strOutputDir.empty())
    refusal = IDS_EMPTY_DIRECTORY;
  else if (newTables && withSuffix && m_strSuffix.empty())
    refusal = IDS_EMPTY_SUFFIX;
  if (refusal != 0) Prompt().MessageBox(fk::LoadString(refusal), fk::ui::MB_OK);
  return refusal == 0;
}

bool CReProjectDlg::ReprojectTickedTables() {
  ReprojectTarget target;
  target.projection = m_strTargetProjection;
  target.overwrite = View().Check(IDC_OVERWRITE) != 0;
  target.inDirectory = View().Check(IDC_IN_DIRECTORY) != 0;
  target.directory = m_strOutputDir;
  target.withSuffix = View().Check(IDC_WITH_SUFFIX) != 0;
  target.suffix = m_strSuffix;
  bool success = true;
  // The count is asked anew after each row.
  for (int row = 0; row < View().ListCtrlRowCount(IDC_TABLES); ++row)
    if (View().ListCtrlCheck(IDC_TABLES, row) &&
        !ReprojectTable(View().ListCtrlText(IDC_TABLES, row, 0), target, Prompt()))
      success = false;
  return success;
}

void CReProjectDlg::OnOK() {
  ReadFields();
  if (CheckOptions() && ReprojectTickedTables()) EndDialog(fk::ui::IDOK);
}
