#include "exchange/hotlink_converter_dlg.h"

#include <vector>

#include "exchange/hotlink_converter.h"
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "platform/text/string_table.h"
#include "services/file_boxes.h"

namespace {
// The picker's title, shared with another box.
constexpr unsigned IDS_SELECT_WORKSPACE_DIRECTORY = 2074;
}  // namespace

bool CHotLinkConverterDlg::OnInitDialog() {
  View().SetCheck(IDC_POCKET_WORD, 1);
  View().SetCheck(IDC_POCKET_EXCEL, 1);
  std::vector<std::string> tables;
  g_Cartoma.GetMappableTableNames(tables);
  for (const std::string& table : tables) View().ComboAdd(IDC_TABLE, table);
  if (View().ComboCount(IDC_TABLE) > 0) View().ComboSetCurSel(IDC_TABLE, 0);
  OnTableChange();
  EnableDirectory();
  return true;
}

void CHotLinkConverterDlg::OnSelectionChange(int id) {
  if (id == IDC_TABLE) OnTableChange();
}

void CHotLinkConverterDlg::OnTableChange() {
  const int selected = View().ComboCurSel(IDC_TABLE);
  m_strTableName = selected >= 0 ? View().ComboText(IDC_TABLE, selected) : std::string();
  View().ListClear(IDC_FIELDS);
  std::vector<std::string> columns;
  if (!m_strTableName.empty()) g_Cartoma.GetColumnNames(m_strTableName, columns, 0);
  for (const std::string& column : columns) View().ListAdd(IDC_FIELDS, column);
}

void CHotLinkConverterDlg::EnableDirectory() {
  const bool change = View().Check(IDC_CHANGE_DIRECTORY) != 0;
  View().Enable(IDC_NEW_DIRECTORY, change);
  View().Enable(IDC_BROWSE, change);
}

void CHotLinkConverterDlg::OnButton(int id) {
  if (id == IDC_CHANGE_DIRECTORY) {
    EnableDirectory();
  } else if (id == IDC_BROWSE) {
    const std::string folder = BrowseForFolder(View().Text(IDC_NEW_DIRECTORY));
    if (!folder.empty()) View().SetText(IDC_NEW_DIRECTORY, folder);
  }
}

std::string CHotLinkConverterDlg::BrowseForFolder(const std::string& start) {
  const std::optional<std::string> folder = PickFolder(fk::LoadString(IDS_SELECT_WORKSPACE_DIRECTORY), start);
  return folder && !folder->empty() ? fk::AddTrailingSeparator(*folder) : std::string();
}

void CHotLinkConverterDlg::OnOK() {
  HotlinkOptions options;
  options.changeDirectory = View().Check(IDC_CHANGE_DIRECTORY) != 0;
  options.pocketWord = View().Check(IDC_POCKET_WORD) != 0;
  options.pocketExcel = View().Check(IDC_POCKET_EXCEL) != 0;
  options.newDirectory = View().Text(IDC_NEW_DIRECTORY);
  std::vector<std::string> fields;
  for (int i = 0; i < View().ListCount(IDC_FIELDS); ++i)
    if (View().ListIsSelected(IDC_FIELDS, i)) fields.push_back(View().ListText(IDC_FIELDS, i));
  std::string message;
  if (!ConvertLinks(m_strTableName, fields, options, message)) {
    Prompt().MessageBox(message, fk::ui::MB_OK);
    return;
  }
  EndDialog(fk::ui::IDOK);
}
