#include "workspace/workspace_editor_dlg.h"

#include <optional>

#include "host/cartoma.h"
#include "platform/app/app_base.h"
#include "platform/files/files.h"
#include "platform/paths/paths.h"
#include "platform/paths/relative_path.h"
#include "platform/text/letter_case.h"
#include "platform/text/string_table.h"
#include "platform/text/text_file.h"
#include "services/file_boxes.h"
#include "services/help_launcher.h"
#include "services/select_file.h"

namespace {

constexpr unsigned IDS_TABLE_NAME = 1139;
constexpr unsigned IDS_STATUS = 1140;
constexpr unsigned IDS_SELECT_WORKSPACE_DIRECTORY = 2074;
constexpr unsigned IDS_OK = 2088;
constexpr unsigned IDS_MISSING = 2089;
constexpr unsigned IDS_UNUSED = 2090;
constexpr const char* kSection = "WorkspaceEdit";

std::string NameAndExtension(const std::string& path) {
  const fk::PathParts parts = fk::SplitPath(path);
  return parts.fname + parts.ext;
}

}  // namespace

bool CWorkspaceEditorDlg::OnInitDialog() {
  View().SetCheck(IDC_SAVE_BACKUP, m_bSaveBackup);
  View().ListCtrlInsertColumn(IDC_TABLES, 0, fk::LoadString(IDS_TABLE_NAME),
                              fk::CurrentProfileInt(kSection, "TableNameSize", 450));
  View().ListCtrlInsertColumn(IDC_TABLES, 1, fk::LoadString(IDS_STATUS), fk::CurrentProfileInt(kSection, "InfoSize", 100));
  for (std::size_t i = 0; i < m_TablePaths.size(); ++i) {
    const int row = View().ListCtrlInsertRow(IDC_TABLES, static_cast<int>(i), m_TablePaths[i]);
    View().ListCtrlSetCheck(IDC_TABLES, row, true);
  }
  UpdateStatus();
  return true;
}

int CWorkspaceEditorDlg::Rows() const { return View().ListCtrlRowCount(IDC_TABLES); }
std::string CWorkspaceEditorDlg::PathOf(int row) const { return View().ListCtrlText(IDC_TABLES, row, 0); }
void CWorkspaceEditorDlg::SetPathOf(int row, const std::string& path) { View().ListCtrlSetText(IDC_TABLES, row, 0, path); }

void CWorkspaceEditorDlg::AddStatus(int row, unsigned word) {
  const std::string status = View().ListCtrlText(IDC_TABLES, row, 1);
  View().ListCtrlSetText(IDC_TABLES, row, 1, status.empty() ? fk::LoadString(word) : status + ", " + fk::LoadString(word));
}

void CWorkspaceEditorDlg::UpdateStatus() {
  for (int row = 0; row < Rows(); ++row) View().ListCtrlSetText(IDC_TABLES, row, 1, "");
  CheckMissingTables();
  CheckUnusedTables();
  for (int row = 0; row < Rows(); ++row)
    if (View().ListCtrlText(IDC_TABLES, row, 1).empty()) AddStatus(row, IDS_OK);
}

// A path as it stands, so a relative one is tried against the process's
// current folder; then with ".tab" behind it.
void CWorkspaceEditorDlg::CheckMissingTables() {
  for (int row = 0; row < Rows(); ++row) {
    const std::string path = PathOf(row);
    if (!fk::FileExists(path) && !fk::FileExists(path + ".tab")) AddStatus(row, IDS_MISSING);
  }
}

// A table is used when its name, as the host makes it from the path, stands
// in a line of the workspace that opens no table: one host expression for
// each row on each such line.
void CWorkspaceEditorDlg::CheckUnusedTables() {
  fk::TextReader reader;
  if (!reader.Open(m_strWorkspace)) return;
  std::vector<bool> used(static_cast<std::size_t>(Rows()), false);
  while (const std::optional<std::string> line = reader.Gets(WORKSPACE_LINE + 1)) {
    const std::string upper = fk::ToUpper(*line);
    if (upper.find("OPEN TABLE") != std::string::npos) continue;
    for (int row = 0; row < Rows(); ++row)
      if (upper.find(fk::ToUpper(g_Cartoma.PathToTableName(PathOf(row)))) != std::string::npos)
        used[static_cast<std::size_t>(row)] = true;
  }
  for (int row = 0; row < Rows(); ++row)
    if (!used[static_cast<std::size_t>(row)]) AddStatus(row, IDS_UNUSED);
}

void CWorkspaceEditorDlg::OnButton(int id) {
  switch (id) {
    case IDC_EDIT_PATH: EditSelectedPath(); break;
    case IDC_SET_RELATIVE: SetAllRelative(); break;
    case IDC_SET_ABSOLUTE: SetAllAbsolute(); break;
    case IDC_SET_CURRENT: SetAllCurrent(); break;
    case IDC_CHECK_UNUSED: CheckUnusedTables(); break;
    case IDC_CHECK_MISSING: CheckMissingTables(); break;
    case IDC_HELP: LaunchHelp(Prompt(), HELP_WORKSPACE_EDITOR); break;
    case IDC_OPEN_WORKSPACE:
      m_bOpenWorkspace = 1;
      OnOK();
      break;
    default: break;
  }
}

// A double click on a row acts as "Edit selected path...".
void CWorkspaceEditorDlg::OnListCtrlActivate(int id, int /*row*/) {
  if (id == IDC_TABLES) EditSelectedPath();
}

void CWorkspaceEditorDlg::EditSelectedPath() {
  int selected = -1, count = 0;
  for (int row = 0; row < Rows(); ++row) {
    if (!View().ListCtrlIsSelected(IDC_TABLES, row)) continue;
    selected = row;
    ++count;
  }
  if (count != 1) return;
  CSelectFile box;
  box.m_strPath = PathOf(selected);
  if (box.DoModal() != fk::ui::IDOK) return;
  SetPathOf(selected, box.m_strPath);
  UpdateStatus();
}

// Where no relative path exists, as between two drives, a row keeps its path.
void CWorkspaceEditorDlg::SetAllRelative() {
  for (int row = 0; row < Rows(); ++row)
    if (std::optional<std::string> relative = fk::RelativePathTo(m_strWorkspace, PathOf(row))) SetPathOf(row, *relative);
  UpdateStatus();
}

void CWorkspaceEditorDlg::SetAllAbsolute() {
  std::string start;
  if (Rows() > 0) {
    const fk::PathParts first = fk::SplitPath(PathOf(0));
    start = first.drive + first.dir;
  }
  const std::optional<std::string> folder = PickFolder(fk::LoadString(IDS_SELECT_WORKSPACE_DIRECTORY), start);
  if (!folder || folder->empty()) return;
  const std::string prefix = fk::AddTrailingSeparator(*folder);
  for (int row = 0; row < Rows(); ++row) SetPathOf(row, prefix + NameAndExtension(PathOf(row)));
  UpdateStatus();
}

void CWorkspaceEditorDlg::SetAllCurrent() {
  for (int row = 0; row < Rows(); ++row) SetPathOf(row, NameAndExtension(PathOf(row)));
  UpdateStatus();
}

void CWorkspaceEditorDlg::OnOK() {
  m_bSaveBackup = View().Check(IDC_SAVE_BACKUP);
  m_Repairs.interactive = View().Check(IDC_INTERACTIVE) != 0;
  m_Repairs.noEditable = View().Check(IDC_NO_EDITABLE) != 0;
  m_Repairs.noPrinter = View().Check(IDC_NO_PRINTER) != 0;
  if (m_bSaveBackup) fk::CopyFileOver(m_strWorkspace, m_strWorkspace + ".bak");
  m_TablePaths.resize(static_cast<std::size_t>(Rows()));
  for (int row = 0; row < Rows(); ++row)
    m_TablePaths[static_cast<std::size_t>(row)] = View().ListCtrlCheck(IDC_TABLES, row) ? PathOf(row) : std::string();
  EndDialog(fk::ui::IDOK);
}
