#include "services/select_file.h"

#include "platform/text/string_table.h"

namespace {
constexpr unsigned IDS_TAB_EXTENSION = 2039;
constexpr unsigned IDS_TAB_FILTER = 2040;
}  // namespace

bool CSelectFile::OnInitDialog() {
  View().SetText(IDC_PATH, m_strPath);
  return true;
}

void CSelectFile::OnButton(int id) {
  if (id != IDC_BROWSE) return;
  fk::ui::FileDialogRequest request;
  request.open = true;
  request.defaultExt = fk::LoadString(IDS_TAB_EXTENSION);
  request.filter = fk::LoadString(IDS_TAB_FILTER);
  request.flags = fk::ui::OFN_HIDEREADONLY | fk::ui::OFN_OVERWRITEPROMPT;
  if (auto path = Prompt().FileDialog(request)) {
    m_strPath = *path;
    View().SetText(IDC_PATH, m_strPath);
  }
}

void CSelectFile::OnOK() {
  m_strPath = View().Text(IDC_PATH);
  EndDialog(fk::ui::IDOK);
}
