#include "viewer/link_manager_dlg.h"

#include "platform/app/app_base.h"
#include "platform/paths/paths.h"
#include "platform/text/string_table.h"
#include "platform/ui/ui_backend.h"
#include "services/help_launcher.h"
#include "viewer/viewer_loading.h"
#include "viewer/viewer_process.h"

namespace {

constexpr const char* kSection = "LinkManager";
constexpr unsigned IDS_NAME = 1143;
constexpr unsigned IDS_FILE = 1144;
constexpr unsigned IDS_NO_VIEWER = 2005;
constexpr unsigned IDS_NO_VIEWER_TO_FILL = 2019;
constexpr unsigned IDS_OGB_EXTENSION = 2037;
constexpr unsigned IDS_OGB_FILTER = 2042;
constexpr const char* kSaveName = "Terravik3D_workspace.ogb";
constexpr int kFileColumn = 1;

}  // namespace

bool CLinkManagerDlg::OnInitDialog() {
  View().ListCtrlInsertColumn(IDC_LINKS, 0, fk::LoadString(IDS_NAME), fk::CurrentProfileInt(kSection, "MapColSize", 235));
  View().ListCtrlInsertColumn(IDC_LINKS, kFileColumn, fk::LoadString(IDS_FILE),
                              fk::CurrentProfileInt(kSection, "ProjColSize", 121));
  FillList();
  return true;
}

void CLinkManagerDlg::FillList() {
  if (!IsViewerRunning()) {
    Prompt().MessageBox(fk::LoadString(IDS_NO_VIEWER_TO_FILL), fk::ui::MB_OK);
    return;
  }
  m_bFilled = 0;
  View().ListCtrlDeleteAll(IDC_LINKS);
  if (!m_Session.viewer.Attach()) return;
  const int view = m_Session.viewer.GetMapWindow(true);
  for (const CTempFile& record : *m_TempFiles) AddRowsOf(view, record);
  m_Session.viewer.Detach();
  m_bFilled = 1;
}

void CLinkManagerDlg::AddRowsOf(int view, const CTempFile& record) {
  if (record.m_Parts.empty()) {
    const bool shown = IsFileInViewer(m_Session.viewer, view, record.m_strFile) != 0;
    AddRow(fk::SplitPath(record.m_strFile).fname, record.m_strFile, shown, 0);
    return;
  }
  for (int part = 0; part < static_cast<int>(record.m_Parts.size()); ++part)
    AddRow(record.GetPartTitle(part), record.m_strFile, record.IsPartUsed(part) != 0, part);
}

void CLinkManagerDlg::AddRow(const std::string& title, const std::string& file, bool checked, int part) {
  const int row = View().ListCtrlInsertRow(IDC_LINKS, View().ListCtrlRowCount(IDC_LINKS), title);
  View().ListCtrlSetText(IDC_LINKS, row, kFileColumn, file);
  View().ListCtrlSetCheck(IDC_LINKS, row, checked);
  View().ListCtrlSetData(IDC_LINKS, row, part);
}

void CLinkManagerDlg::OnListCtrlCheck(int id, int row) {
  if (id != IDC_LINKS || !m_bFilled || !m_Session.viewer.Attach()) return;
  ApplyRow(m_Session.viewer.GetMapWindow(true), row);
  m_Session.viewer.Detach();
}

void CLinkManagerDlg::ApplyRow(int view, int row) {
  const std::string file = View().ListCtrlText(IDC_LINKS, row, kFileColumn);
  int index = -1;
  const CTempFile record = m_TempFiles->FindFile(file, &index, 0);
  if (!record.m_Parts.empty())
    ApplyPartRow(view, row, record, index);
  else if (View().ListCtrlCheck(IDC_LINKS, row))
    ShowFileInViewer(m_Session, view, file);
  else
    RemoveFileFromViewer(m_Session.viewer, view, file);
}

// The viewer always re-reads a changed composite file.
void CLinkManagerDlg::ApplyPartRow(int view, int row, CTempFile record, int index) {
  const int part = static_cast<int>(View().ListCtrlData(IDC_LINKS, row));
  record.SetPartUsed(part, View().ListCtrlCheck(IDC_LINKS, row) ? 1 : 0);
  (*m_TempFiles)[static_cast<std::size_t>(index)] = record;
  m_TempFiles->RebuildFile(record.m_strFile);
  if (!record.AnyPartUsed()) {
    RemoveFileFromViewer(m_Session.viewer, view, record.m_strFile);
    return;
  }
  if (IsFileInViewer(m_Session.viewer, view, record.m_strFile) == 1)
    RemoveFileFromViewer(m_Session.viewer, view, record.m_strFile);
  ShowFileInViewer(m_Session, view, record.m_strFile);
}

void CLinkManagerDlg::OnButton(int id) {
  if (id == IDC_SAVE_STATE)
    SaveState();
  else if (id == IDC_HELP)
    LaunchLinkManagerHelp(Prompt());
}

void CLinkManagerDlg::SaveState() {
  fk::ui::FileDialogRequest request;
  request.open = false;
  request.defaultExt = fk::LoadString(IDS_OGB_EXTENSION);
  request.fileName = kSaveName;
  request.flags = fk::ui::OFN_OVERWRITEPROMPT | fk::ui::OFN_HIDEREADONLY;
  request.filter = fk::LoadString(IDS_OGB_FILTER);
  const std::optional<std::string> path = Prompt().FileDialog(request);
  if (!path) return;
  CTempFile saved(path->c_str(), 0);
  for (int row = 0; row < View().ListCtrlRowCount(IDC_LINKS); ++row)
    if (View().ListCtrlCheck(IDC_LINKS, row)) saved.AddPart(View().ListCtrlText(IDC_LINKS, row, kFileColumn), 1);
  saved.Rebuild();
  CopyImagesOfParts(saved);
  m_TempFiles->AddFile(*path, 0);
  FillList();
}

int RunLinkManager(ViewerSession session) {
  if (!IsViewerRunning()) {
    fk::ui::CurrentUi().GetPrompter().MessageBox(fk::LoadString(IDS_NO_VIEWER), fk::ui::MB_OK);
    return 0;
  }
  CLinkManagerDlg dialog(session);
  return dialog.DoModal() == fk::ui::IDOK ? 1 : 0;
}
