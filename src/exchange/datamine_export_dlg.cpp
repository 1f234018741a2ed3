#include "exchange/datamine_export_dlg.h"

#include "exchange/datamine_format.h"
#include "host/cartoma.h"
#include "platform/files/files.h"
#include "platform/text/string_table.h"
#include "platform/ui/number_field.h"
#include "services/help_launcher.h"

namespace {

constexpr unsigned IDS_NO_TABLE = 2001;
constexpr unsigned IDS_NO_OUTPUT_FILE = 2002;
constexpr unsigned IDS_OVERWRITE_OUTPUT = 2028;
constexpr unsigned IDS_NO_Z_COLUMN = 2003;
constexpr unsigned IDS_DATAMINE_FILTER = 2035;
constexpr unsigned IDS_TXT_EXTENSION = 2038;

using fk::ui::MB_OK;

}  // namespace

bool CDatamineExportDlg::OnInitDialog() {
  std::vector<std::string> tables;
  g_Cartoma.GetVectorTableNames(tables);
  for (const std::string& table : tables) View().ComboAdd(IDC_TABLE, table);
  if (View().ComboCount(IDC_TABLE) > 0) View().ComboSetCurSel(IDC_TABLE, 0);
  OnTableChange();
  View().SetText(IDC_OUTPUT_FILE, m_strOutputFile);
  const std::pair<int, double> numbers[] = {{IDC_ADD_X, m_dAddX},           {IDC_ADD_Y, m_dAddY},
                                            {IDC_ADD_Z, m_dAddZ},           {IDC_MULTIPLY_X, m_dMultiplyX},
                                            {IDC_MULTIPLY_Y, m_dMultiplyY}, {IDC_MULTIPLY_Z, m_dMultiplyZ},
                                            {IDC_DEFAULT_Z, m_dDefaultZ}};
  for (const auto& [id, value] : numbers) fk::ui::ShowNumberField(View(), id, value);
  return true;
}

void CDatamineExportDlg::OnSelectionChange(int id) {
  if (id == IDC_TABLE) OnTableChange();
}

// The attribute list and the Z column list take the table's columns, in
// the table's order; entry 0 of the sorted Z list stands for no column.
void CDatamineExportDlg::OnTableChange() {
  const int selected = View().ComboCurSel(IDC_TABLE);
  m_strTableName = selected >= 0 ? View().ComboText(IDC_TABLE, selected) : std::string();
  std::vector<std::string> columns;
  if (!m_strTableName.empty()) g_Cartoma.GetColumnNames(m_strTableName, columns, 0);
  View().ListClear(IDC_ATTRIBUTES);
  for (const std::string& column : columns) View().ListAdd(IDC_ATTRIBUTES, column);
  View().ComboClear(IDC_Z_COLUMN);
  View().ComboAdd(IDC_Z_COLUMN, fk::LoadString(IDS_NO_Z_COLUMN));
  for (const std::string& column : columns) View().ComboAdd(IDC_Z_COLUMN, column);
  View().ComboSetCurSel(IDC_Z_COLUMN, 0);
}

void CDatamineExportDlg::OnButton(int id) {
  if (id == IDC_BROWSE)
    OnBrowse();
  else if (id == IDC_HELP)
    LaunchHelp(Prompt(), HelpTopic());
}

void CDatamineExportDlg::OnBrowse() {
  fk::ui::FileDialogRequest request;
  request.open = false;
  request.defaultExt = fk::LoadString(BrowseExtensionId());
  request.filter = fk::LoadString(BrowseFilterId());
  request.flags = fk::ui::OFN_HIDEREADONLY | fk::ui::OFN_OVERWRITEPROMPT;
  request.fileName = View().Text(IDC_OUTPUT_FILE);
  if (auto path = Prompt().FileDialog(request)) {
    m_strOutputFile = *path;
    View().SetText(IDC_OUTPUT_FILE, m_strOutputFile);
  }
}

bool CDatamineExportDlg::ReadFields() {
  const std::pair<int, double*> numbers[] = {{IDC_MULTIPLY_X, &m_dMultiplyX}, {IDC_MULTIPLY_Z, &m_dMultiplyZ},
                                             {IDC_MULTIPLY_Y, &m_dMultiplyY}, {IDC_ADD_X, &m_dAddX},
                                             {IDC_ADD_Z, &m_dAddZ},           {IDC_ADD_Y, &m_dAddY},
                                             {IDC_DEFAULT_Z, &m_dDefaultZ}};
  for (const auto& [id, field] : numbers) {
    const std::optional<double> value = fk::ui::ReadNumberField(View(), Prompt(), id);
    if (!value) return false;
    *field = *value;
  }
  m_strOutputFile = View().Text(IDC_OUTPUT_FILE);
  const int selected = View().ComboCurSel(IDC_TABLE);
  m_strTableName = selected >= 0 ? View().ComboText(IDC_TABLE, selected) : std::string();
  return true;
}

std::vector<std::string> CDatamineExportDlg::SelectedAttributes() const {
  std::vector<std::string> attributes;
  for (int i = 0; i < View().ListCount(IDC_ATTRIBUTES); ++i)
    if (View().ListIsSelected(IDC_ATTRIBUTES, i)) attributes.push_back(View().ListText(IDC_ATTRIBUTES, i));
  return attributes;
}

// The index decides, not the text: entry 0 is no column, whatever sorts there.
std::string CDatamineExportDlg::ChosenZColumn() const {
  const int selected = View().ComboCurSel(IDC_Z_COLUMN);
  return selected > 0 ? View().ComboText(IDC_Z_COLUMN, selected) : std::string();
}

void CDatamineExportDlg::OnOK() {
  if (!ReadFields()) return;
  if (m_strTableName.empty()) {
    Prompt().MessageBox(fk::LoadString(IDS_NO_TABLE), MB_OK);
    return;
  }
  if (m_strOutputFile.empty()) {
    Prompt().MessageBox(fk::LoadString(IDS_NO_OUTPUT_FILE), MB_OK);
    return;
  }
  if (fk::FileExists(m_strOutputFile) &&
      Prompt().MessageBox(fk::FormatString(IDS_OVERWRITE_OUTPUT, {m_strOutputFile}), fk::ui::MB_YESNO) ==
          fk::ui::IDNO)
    return;
  ReadExportChoices();
  NodeExportOptions options;
  options.table = m_strTableName;
  options.path = m_strOutputFile;
  options.zColumn = ChosenZColumn();
  options.defaultZ = m_dDefaultZ;
  options.attributes = SelectedAttributes();
  options.multiplyX = m_dMultiplyX;
  options.multiplyY = m_dMultiplyY;
  options.multiplyZ = m_dMultiplyZ;
  options.addX = m_dAddX;
  options.addY = m_dAddY;
  options.addZ = m_dAddZ;
  // Numbers go to the file with a point whatever the user's locale: the
  // writers' formatting never reads it.
  std::string message;
  const int written = ExportTable(options, message);
  if (!message.empty()) Prompt().MessageBox(message, MB_OK);
  if (written) EndDialog(fk::ui::IDOK);
}

int CDatamineExportDlg::ExportTable(const NodeExportOptions& options, std::string& message) {
  return ExportDatamine(options, message);
}

unsigned CDatamineExportDlg::BrowseExtensionId() const { return IDS_TXT_EXTENSION; }
unsigned CDatamineExportDlg::BrowseFilterId() const { return IDS_DATAMINE_FILTER; }
int CDatamineExportDlg::HelpTopic() const { return HELP_DATAMINE_EXPORT; }
