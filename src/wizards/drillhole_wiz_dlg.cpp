#include "wizards/drillhole_wiz_dlg.h"

#include "platform/text/string_table.h"

namespace {
constexpr unsigned IDS_SUBSET_SUFFIX = 1149;
constexpr unsigned IDS_ENTIRE_SUFFIX = 1150;
constexpr unsigned IDS_TRENCH_SUBSET_SUFFIX = 1154;
constexpr unsigned IDS_TRENCH_ENTIRE_SUFFIX = 1155;
}  // namespace

bool CDrillholeWizDlg::OnInitDialog() {
  View().SetText(IDC_GROUP, m_strGroupText);
  View().SetTitle(m_strTitle);
  View().SetCheck(m_bSubset ? IDC_SUBSET : IDC_ENTIRE_DATASET, 1);
  View().SetCheck(IDC_SAVE_PERMANENTLY, m_bSavePermanently ? 1 : 0);
  View().Enable(IDC_SAVE_PERMANENTLY, m_bSubset);
  View().SetText(IDC_SUFFIX, m_strSuffix);
  View().Enable(IDC_SUFFIX, true);
  FillList(IDC_AVAILABLE, m_AvailableNames, m_AvailableData);
  // The selected entries get their row numbers only while some hole is
  // still available: with every hole preselected they all carry 0.
  FillList(IDC_SELECTED, m_SelectedNames, m_AvailableData.empty() ? std::vector<std::intptr_t>() : m_SelectedData);
  return true;
}

void CDrillholeWizDlg::OnMode(bool subset) {
  View().Enable(IDC_SAVE_PERMANENTLY, subset);
  const unsigned suffix = m_bTrench ? (subset ? IDS_TRENCH_SUBSET_SUFFIX : IDS_TRENCH_ENTIRE_SUFFIX)
                                    : (subset ? IDS_SUBSET_SUFFIX : IDS_ENTIRE_SUFFIX);
  View().SetText(IDC_SUFFIX, fk::LoadString(suffix));
}

void CDrillholeWizDlg::OnButton(int id) {
  switch (id) {
    case IDC_REMOVE_ALL: MoveEntries(IDC_SELECTED, IDC_AVAILABLE, true); break;
    case IDC_SUBSET: OnMode(true); break;
    case IDC_ENTIRE_DATASET: OnMode(false); break;
    case IDC_SAVE_PERMANENTLY: m_bSavePermanently = View().Check(IDC_SAVE_PERMANENTLY) != 0; break;
    default: CSelectFieldsDlg::OnButton(id); break;
  }
}

void CDrillholeWizDlg::OnOK() {
  m_strSuffix = View().Text(IDC_SUFFIX);
  m_bSubset = View().Check(IDC_SUBSET) != 0;
  m_bSavePermanently = View().Check(IDC_SAVE_PERMANENTLY) != 0;
  CSelectFieldsDlg::OnOK();
}
