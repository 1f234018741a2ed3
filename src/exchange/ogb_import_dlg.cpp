#include "exchange/ogb_import_dlg.h"

#include <algorithm>
#include <vector>

#include "exchange/ogb_reader.h"
#include "exchange/raster_tab_writer.h"
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "platform/text/string_table.h"
#include "services/help_launcher.h"

namespace {

constexpr unsigned IDS_OGB_EXTENSION = 2037;
constexpr unsigned IDS_TAB_EXTENSION = 2039;
constexpr unsigned IDS_TAB_FILTER = 2040;
constexpr unsigned IDS_OGB_FILTER = 2043;
constexpr unsigned IDS_NO_PROJECTION = 2044;
constexpr unsigned IDS_UNSUPPORTED_OGB = 2045;
constexpr unsigned IDS_ECW_IMAGE = 2046;
constexpr unsigned IDS_COULD_NOT_IMPORT = 2054;
constexpr unsigned IDS_COULD_NOT_OPEN_TAB = 2055;
constexpr unsigned IDS_OGB_PROJECTION = 2056;
constexpr unsigned IDS_NOT_FOUND = 2057;
constexpr unsigned IDS_MULTIPLE_OUTPUTS = 2058;
constexpr unsigned IDS_UNSPECIFIED = 2059;

constexpr const char* kAxes[] = {"X", "Y", "Z"};

// The path without its last extension; a point that starts the path or
// stands in a folder's name is no extension's.
std::string WithoutLastExtension(const std::string& path) {
  const std::size_t point = path.rfind('.');
  const std::size_t separator = path.find_last_of("/\\");
  if (point == std::string::npos || point == 0 || (separator != std::string::npos && point < separator)) return path;
  return path.substr(0, point);
}

// What one read of the file found, one entry per image.
struct OGBImages {
  std::vector<std::string> names;
  std::vector<double> left, bottom, right, top;
  std::vector<std::uint32_t> colours;

  OGBArrays Arrays() { return {&names, &left, &bottom, &right, &top, &colours}; }
  // An image whose block gave no rectangle of its own lies at 0.
  static double At(const std::vector<double>& values, std::size_t i) { return i < values.size() ? values[i] : 0.0; }
  std::int32_t Colour(std::size_t i) const {
    return static_cast<std::int32_t>(i < colours.size() ? colours[i] : kNoTransparentColour);
  }
  bool WriteTable(std::size_t i, const std::string& table, const std::string& clause) const {
    return WriteRasterTabFile(table, names[i], At(left, i), At(bottom, i), At(right, i), At(top, i), clause,
                              Colour(i)) == 1;
  }
};

bool OpenInHost(const std::string& table) { return g_Cartoma.OpenTable(table.c_str(), nullptr, 0, 1); }

}  // namespace

COGBImportDlg::COGBImportDlg()
    : fk::ui::DialogController(IDD), m_strProjectionName(fk::LoadString(IDS_UNSPECIFIED)) {}

bool COGBImportDlg::OnInitDialog() {
  View().SetText(IDC_INPUT_FILE, m_strInputFile);
  View().SetText(IDC_OUTPUT_TABLE, m_strOutputTable);
  View().SetText(IDC_PROJECTION_NAME, m_strProjectionName);
  for (int combo : {IDC_X_FIELD, IDC_Y_FIELD})
    for (const char* axis : kAxes) View().ComboAdd(combo, axis);
  View().ComboSetCurSel(IDC_X_FIELD, 0);
  View().ComboSetCurSel(IDC_Y_FIELD, 1);
  View().SetCheck(IDC_USE_TRANSPARENT, 1);
  return true;
}

void COGBImportDlg::ReadFields() {
  m_strInputFile = View().Text(IDC_INPUT_FILE);
  m_strOutputTable = View().Text(IDC_OUTPUT_TABLE);
}

void COGBImportDlg::OnEditChange(int id) {
  if (id != IDC_INPUT_FILE && id != IDC_OUTPUT_TABLE) return;
  ReadFields();
  if (id == IDC_INPUT_FILE) UpdateProjectionText();
}

void COGBImportDlg::OnButton(int id) {
  switch (id) {
    case IDC_BROWSE_INPUT: OnBrowseInput(); break;
    case IDC_BROWSE_OUTPUT: OnBrowseOutput(); break;
    case IDC_SET_PROJECTION: OnSetProjection(); break;
    case IDC_HELP: LaunchHelp(Prompt(), HELP_OGB_IMPORT); break;
    default: break;
  }
}

void COGBImportDlg::OnBrowseInput() {
  fk::ui::FileDialogRequest request;
  request.open = true;
  request.defaultExt = fk::LoadString(IDS_OGB_EXTENSION);
  request.filter = fk::LoadString(IDS_OGB_FILTER);
  request.flags = fk::ui::OFN_HIDEREADONLY | fk::ui::OFN_OVERWRITEPROMPT | fk::ui::OFN_FILEMUSTEXIST;
  const std::optional<std::string> path = Prompt().FileDialog(request);
  if (!path) return;
  m_strInputFile = *path;
  View().SetText(IDC_INPUT_FILE, m_strInputFile);
  UpdateOutput();
  UpdateProjectionText();
}

void COGBImportDlg::OnBrowseOutput() {
  fk::ui::FileDialogRequest request;
  request.open = false;
  request.defaultExt = fk::LoadString(IDS_TAB_EXTENSION);
  request.filter = fk::LoadString(IDS_TAB_FILTER);
  request.flags = fk::ui::OFN_HIDEREADONLY | fk::ui::OFN_OVERWRITEPROMPT;
  if (const std::optional<std::string> path = Prompt().FileDialog(request)) {
    m_strOutputTable = *path;
    View().SetText(IDC_OUTPUT_TABLE, m_strOutputTable);
  }
}

void COGBImportDlg::UpdateOutput() {
  m_strOutputTable = WithoutLastExtension(m_strInputFile) + ".tab";
  View().SetText(IDC_OUTPUT_TABLE, m_strOutputTable);
  const bool several = ReadOGBFile(m_strInputFile, {}, 0, 1) > 1;
  View().Enable(IDC_OUTPUT_TABLE, !several);
  View().Enable(IDC_BROWSE_OUTPUT, !several);
  if (several) View().SetText(IDC_OUTPUT_TABLE, fk::LoadString(IDS_MULTIPLE_OUTPUTS));
}

void COGBImportDlg::UpdateProjectionText() {
  std::string projection = ReadOGBProjection(m_strInputFile);
  if (projection.empty()) projection = fk::LoadString(IDS_NOT_FOUND);
  View().SetText(IDC_OGB_PROJECTION, fk::FormatString(IDS_OGB_PROJECTION, {projection}));
}

void COGBImportDlg::OnSetProjection() {
  m_strProjectionClause = g_Cartoma.GetLastProjection(&m_strProjectionName);
  View().SetText(IDC_PROJECTION_NAME, m_strProjectionName);
}

void COGBImportDlg::OnOK() {
  ReadFields();
  if (m_strProjectionClause.empty()) {
    Prompt().MessageBox(fk::LoadString(IDS_NO_PROJECTION), fk::ui::MB_OK);
    return;
  }
  if (ImportImages()) EndDialog(fk::ui::IDOK);
}

bool COGBImportDlg::ImportImages() {
  const fk::PathParts input = fk::SplitPath(m_strInputFile);
  OGBImages images;
  const int count = ReadOGBFile(m_strInputFile, images.Arrays(), View().ComboCurSel(IDC_X_FIELD),
                                View().ComboCurSel(IDC_Y_FIELD));
  auto refuse = [&](const std::string& text) {
    Prompt().MessageBox(text, fk::ui::MB_OK);
    return false;
  };
  if (count == 0) return refuse(fk::LoadString(IDS_UNSUPPORTED_OGB));
  if (View().Check(IDC_USE_TRANSPARENT) == 0)
    std::fill(images.colours.begin(), images.colours.end(), kNoTransparentColour);
  for (const std::string& name : images.names) {
    const std::size_t ecw = fk::ToLower(name).find(".ecw");
    if (ecw != std::string::npos && ecw > 0) return refuse(fk::LoadString(IDS_ECW_IMAGE));
  }
  if (count == 1) {
    if (!images.WriteTable(0, m_strOutputTable, m_strProjectionClause))
      return refuse(fk::LoadString(IDS_COULD_NOT_IMPORT));
    if (!OpenInHost(m_strOutputTable)) return refuse(fk::FormatString(IDS_COULD_NOT_OPEN_TAB, {m_strOutputTable}));
    return true;
  }
  // Each image's table stands beside the file, named after the image; one
  // that won't open is reported and the others go on.
  for (std::size_t i = 0; i < images.names.size(); ++i) {
    const std::string table = input.drive + input.dir + WithoutLastExtension(images.names[i]) + ".tab";
    if (!images.WriteTable(i, table, m_strProjectionClause)) return refuse(fk::LoadString(IDS_COULD_NOT_IMPORT));
    if (!OpenInHost(table)) refuse(fk::FormatString(IDS_COULD_NOT_OPEN_TAB, {table}));
  }
  return true;
}
