#include "maptools/window_list_dlg.h"

#include "host/cartoma.h"
#include "platform/app/app_base.h"
#include "platform/text/string_table.h"
#include "services/help_launcher.h"

namespace {

constexpr const char* kNameWidth = "MapColSize";
constexpr const char* kSecondWidth = "ProjColSize";
constexpr int kDefaultNameWidth = 235;
constexpr int kDefaultSecondWidth = 121;

}  // namespace

bool CWindowListDlg::OnInitDialog() {
  View().ListCtrlInsertColumn(IDC_WINDOWS, 0, fk::LoadString(m_Columns.nameTitle),
                              fk::CurrentProfileInt(m_Columns.section, kNameWidth, kDefaultNameWidth));
  View().ListCtrlInsertColumn(IDC_WINDOWS, 1, fk::LoadString(m_Columns.secondTitle),
                              fk::CurrentProfileInt(m_Columns.section, kSecondWidth, kDefaultSecondWidth));
  for (std::size_t i = 0; i < m_Items.size(); ++i) {
    // Two blanks in front, then split at the first tab.
    const std::string item = "  " + m_Items[i];
    const std::size_t tab = item.find('\t');
    const int row = View().ListCtrlInsertRow(IDC_WINDOWS, static_cast<int>(i), item.substr(0, tab));
    if (tab != std::string::npos) View().ListCtrlSetText(IDC_WINDOWS, row, 1, item.substr(tab + 1));
    View().ListCtrlSetCheck(IDC_WINDOWS, row, i < m_Ticks.size() && m_Ticks[i] > 0);
  }
  return true;
}

void CWindowListDlg::OnButton(int id) {
  if (id == IDC_SELECT_ALL || id == IDC_UNSELECT_ALL)
    TickAll(id == IDC_SELECT_ALL);
  else if (id == IDC_HELP)
    LaunchHelp(Prompt(), m_Columns.helpTopic, m_Columns.helpTopic == HELP_CURPOS);
}

void CWindowListDlg::TickAll(bool ticked) {
  for (int row = 0; row < View().ListCtrlRowCount(IDC_WINDOWS); ++row) View().ListCtrlSetCheck(IDC_WINDOWS, row, ticked);
}

void CWindowListDlg::OnOK() {
  const int rows = View().ListCtrlRowCount(IDC_WINDOWS);
  m_Ticks.resize(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) m_Ticks[static_cast<std::size_t>(row)] = View().ListCtrlCheck(IDC_WINDOWS, row) ? 1 : 0;
  if (fk::AppBase* app = fk::AppBase::Current()) {
    app->WriteProfileInt(m_Columns.section, kNameWidth, View().ListCtrlColumnWidth(IDC_WINDOWS, 0));
    app->WriteProfileInt(m_Columns.section, kSecondWidth, View().ListCtrlColumnWidth(IDC_WINDOWS, 1));
  }
  EndDialog(fk::ui::IDOK);
}

// ---- Map Linking

CLinkedWindowsDlg::CLinkedWindowsDlg() : CWindowListDlg(IDD, {1145, 1146, "LinkedWindows", HELP_LINKED_WINDOWS}) {}

bool CLinkedWindowsDlg::OnInitDialog() {
  CWindowListDlg::OnInitDialog();
  View().SetCheck(m_nMethod == 1 ? IDC_FIXED_SCALE : IDC_FIXED_EXTENTS, 1);
  ShowMethod(m_nMethod == 1);
  return true;
}

void CLinkedWindowsDlg::ShowMethod(bool fixedScale) {
  View().Show(IDC_SCALE_TEXT, fixedScale);
  View().Show(IDC_EXTENTS_TEXT, !fixedScale);
}

void CLinkedWindowsDlg::OnButton(int id) {
  if (id == IDC_FIXED_SCALE || id == IDC_FIXED_EXTENTS) {
    // The two radios are one group: the other one goes off.
    View().SetCheck(id == IDC_FIXED_SCALE ? IDC_FIXED_EXTENTS : IDC_FIXED_SCALE, 0);
    ShowMethod(id == IDC_FIXED_SCALE);
  } else {
    CWindowListDlg::OnButton(id);
  }
}

void CLinkedWindowsDlg::OnOK() {
  m_nMethod = View().Check(IDC_FIXED_SCALE) ? 1 : 0;
  CWindowListDlg::OnOK();
}

// ---- Cursor Position

CCurPosDlg::CCurPosDlg() : CWindowListDlg(IDD, {1147, 1148, "CurPos", HELP_CURPOS}) {}

bool CCurPosDlg::OnInitDialog() {
  CWindowListDlg::OnInitDialog();
  View().SetCheck(IDC_PAN, m_bPan);
  return true;
}

void CCurPosDlg::OnButton(int id) {
  if (id == IDC_SYMBOL)
    m_strSymbol = g_Cartoma.PickSymbol(m_strSymbol.c_str());
  else
    CWindowListDlg::OnButton(id);
}

void CCurPosDlg::OnOK() {
  m_bPan = View().Check(IDC_PAN);
  CWindowListDlg::OnOK();
}
