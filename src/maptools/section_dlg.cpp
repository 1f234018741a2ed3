#include "maptools/section_dlg.h"

#include <vector>

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"

namespace {
constexpr int kPlaneEdits[] = {CSectionDlg::IDC_X, CSectionDlg::IDC_Y, CSectionDlg::IDC_Z, CSectionDlg::IDC_BEARING};
}  // namespace

bool CSectionDlg::OnInitDialog() {
  for (int edit : kPlaneEdits) View().SetText(edit, "0");
  const long window = g_Cartoma.GetFrontWindow();
  std::vector<std::string> tables;
  g_Cartoma.GetMappableTableNames(tables);
  for (const std::string& table : tables) View().ComboAdd(IDC_LAYER, table);
  if (window > 0) {
    const long layer = g_Cartoma.FindSectionLayer(window);
    m_strTableName = g_Cartoma.GetLayerName(layer >= 1 ? layer : 1, window);
    if (layer >= 1) ShowPlaneOf(m_strTableName);
  } else {
    // With no mappable table at all there is nothing to offer: the list
    // stays empty and OK writes nothing.
    m_strTableName = tables.empty() ? std::string() : tables.front();
  }
  for (int i = 0; i < View().ComboCount(IDC_LAYER); ++i) {
    if (View().ComboText(IDC_LAYER, i) == m_strTableName) {
      View().ComboSetCurSel(IDC_LAYER, i);
      break;
    }
  }
  return true;
}

void CSectionDlg::OnSelectionChange(int id) {
  if (id == IDC_LAYER) ShowPlaneOf(ChosenTable());
}

std::string CSectionDlg::ChosenTable() const {
  const int chosen = View().ComboCurSel(IDC_LAYER);
  return chosen >= 0 ? View().ComboText(IDC_LAYER, chosen) : std::string();
}

void CSectionDlg::ShowPlaneOf(const std::string& table) {
  double plane[4] = {0, 0, 0, 0};
  g_Cartoma.GetSectionPlane(table, plane[0], plane[1], plane[2], plane[3]);
  for (int i = 0; i < 4; ++i) View().SetText(kPlaneEdits[i], fk::Format("%.1lf", plane[i]));
}

void CSectionDlg::OnOK() {
  m_strTableName = ChosenTable();
  if (!m_strTableName.empty()) {
    double plane[4];
    for (int i = 0; i < 4; ++i) plane[i] = fk::Atof(View().Text(kPlaneEdits[i]));
    g_Cartoma.SetSectionPlane(m_strTableName, plane[0], plane[1], plane[2], plane[3]);
  }
  EndDialog(fk::ui::IDOK);
}
