#include "services/select_fields_dlg.h"

#include "platform/text/letter_case.h"
#include "platform/text/string_table.h"

namespace {
constexpr unsigned IDS_SELECT_FIELDS_GROUP = 2047;
constexpr unsigned IDS_SELECT_FIELDS_TITLE = 2048;
}  // namespace

CSelectFieldsDlg::CSelectFieldsDlg(unsigned templateId)
    : fk::ui::DialogController(templateId),
      m_strGroupText(fk::LoadString(IDS_SELECT_FIELDS_GROUP)),
      m_strTitle(fk::LoadString(IDS_SELECT_FIELDS_TITLE)) {}

void CSelectFieldsDlg::FillList(int id, const std::vector<std::string>& names, const std::vector<std::intptr_t>& data) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int index = View().ListAdd(id, names[i]);
    View().ListSetData(id, index, i < data.size() ? data[i] : 0);
  }
}

bool CSelectFieldsDlg::OnInitDialog() {
  View().SetText(IDC_GROUP, m_strGroupText);
  View().SetTitle(m_strTitle);
  FillList(IDC_AVAILABLE, m_AvailableNames, m_AvailableData);
  FillList(IDC_SELECTED, m_SelectedNames, m_SelectedData);
  return true;
}

void CSelectFieldsDlg::MoveEntries(int from, int to, bool all) {
  fk::ui::DialogView& view = View();
  for (int i = view.ListCount(from) - 1; i >= 0; --i) {
    if (!all && !view.ListIsSelected(from, i)) continue;
    const std::string text = view.ListText(from, i);
    const std::intptr_t data = view.ListData(from, i);
    const int added = view.ListAdd(to, text);
    view.ListSetData(to, added, data);
    view.ListDelete(from, i);
  }
}

void CSelectFieldsDlg::OnButton(int id) {
  switch (id) {
    case IDC_ADD: MoveEntries(IDC_AVAILABLE, IDC_SELECTED, false); break;
    case IDC_ADD_ALL: MoveEntries(IDC_AVAILABLE, IDC_SELECTED, true); break;
    case IDC_REMOVE: MoveEntries(IDC_SELECTED, IDC_AVAILABLE, false); break;
    case IDC_REMOVE_ALL: MoveEntries(IDC_SELECTED, IDC_AVAILABLE, true); break;
    default: break;
  }
}

void CSelectFieldsDlg::ReadList(int id, std::vector<std::string>& names, std::vector<std::intptr_t>& data) {
  names.clear();
  data.clear();
  for (int i = 0; i < View().ListCount(id); ++i) {
    names.push_back(View().ListText(id, i));
    data.push_back(View().ListData(id, i));
  }
}

void CSelectFieldsDlg::OnOK() {
  ReadList(IDC_SELECTED, m_SelectedNames, m_SelectedData);
  ReadList(IDC_AVAILABLE, m_AvailableNames, m_AvailableData);
  EndDialog(fk::ui::IDOK);
}

int RunSelectFields(const char* const* names, std::int32_t* flags, std::int32_t count) {
  if (count > 0 && (!names || !flags)) return 0;
  CSelectFieldsDlg dialog;
  for (std::int32_t i = 0; i < count; ++i) {
    const std::string name = names[i] ? names[i] : "";
    auto& list = flags[i] == 0 ? dialog.m_AvailableNames : dialog.m_SelectedNames;
    auto& data = flags[i] == 0 ? dialog.m_AvailableData : dialog.m_SelectedData;
    list.push_back(name);
    data.push_back(i);
  }
  if (dialog.DoModal() != fk::ui::IDOK) return 0;
  for (std::int32_t i = 0; i < count; ++i) {
    flags[i] = 0;
    for (const std::string& selected : dialog.m_SelectedNames)
      if (fk::EqualsNoCase(selected, names[i] ? names[i] : "")) flags[i] = 1;
  }
  return 1;
}
