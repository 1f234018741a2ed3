#include "viewer/tvik3d_options_page1.h"

#include "platform/text/format.h"
#include "platform/text/number_parse.h"

namespace {

constexpr int IDC_BROWSE_TEMP = 1004, IDC_REMOVE_TEMP = 1015, IDC_GRID_COMPRESSION = 1034,
              IDC_GRID_CLIPPING = 1037, IDC_TEMP_DIRECTORY = 1095, IDC_CARTOMA_PARENT = 1109,
              IDC_XYZ_MODE = 1111, IDC_XYZ_POSITION = 1112, IDC_X_LABEL = 1113, IDC_Y_LABEL = 1114,
              IDC_Z_LABEL = 1115, IDC_NO_PARENT = 1118, IDC_MAX_COLUMNS = 1131, IDC_MAX_ROWS = 1132,
              IDC_NORMAL_TEXTURE = 1133, IDC_MAX_COLUMNS_3D = 1134, IDC_MAXIMUM_TEXTURE = 1135,
              IDC_MAX_ROWS_3D = 1136;

// A texture size is stored as its choice plus this.
constexpr std::uint32_t kTextureBase = 10;

const char* const kXYZModes[] = {"Hidden", "Axes", "Axes and labels"};
const char* const kXYZPositions[] = {"Lower left", "Lower right", "Upper left", "Upper right"};
const char* const kGridClipping[] = {"Off", "On"};
const char* const kTextureSizes[] = {"1024", "2048", "4096", "8192"};

std::uint32_t Number(const fk::ui::DialogView& view, int id) { return static_cast<std::uint32_t>(fk::Atoi(view.Text(id))); }

std::uint32_t Choice(const fk::ui::DialogView& view, int id) { return static_cast<std::uint32_t>(view.ComboCurSel(id)); }

}  // namespace

bool CTvik3DOptionsPage1::OnInitDialog() {
  FillCombos();
  View().SetCheck(IDC_REMOVE_TEMP, m_bDeleteOnExit);
  View().SetText(IDC_TEMP_DIRECTORY, m_strTempDirectory);
  View().SetText(IDC_GRID_COMPRESSION, fk::Format("%d", m_Options.nGridCompression));
  View().SetCheck(m_Options.bCartomaParent ? IDC_CARTOMA_PARENT : IDC_NO_PARENT, 1);
  View().ComboSetCurSel(IDC_GRID_CLIPPING, m_Options.bGridClipping);
  m_Preferences = ReadViewerPreferences(m_nVariant);
  ShowPreferences();
  return true;
}

void CTvik3DOptionsPage1::FillCombos() {
  const auto fill = [this](int id, const auto& entries) {
    for (const char* entry : entries) View().ComboAdd(id, entry);
  };
  fill(IDC_XYZ_MODE, kXYZModes);
  fill(IDC_XYZ_POSITION, kXYZPositions);
  fill(IDC_GRID_CLIPPING, kGridClipping);
  fill(IDC_NORMAL_TEXTURE, kTextureSizes);
  fill(IDC_MAXIMUM_TEXTURE, kTextureSizes);
}

void CTvik3DOptionsPage1::ShowPreferences() {
  const ViewerPreferences& p = m_Preferences;
  View().ComboSetCurSel(IDC_XYZ_MODE, static_cast<int>(p.nXYZMode));
  View().ComboSetCurSel(IDC_XYZ_POSITION, static_cast<int>(p.nXYZPosition));
  View().SetText(IDC_X_LABEL, p.strXLabel);
  View().SetText(IDC_Y_LABEL, p.strYLabel);
  View().SetText(IDC_Z_LABEL, p.strZLabel);
  View().SetText(IDC_MAX_COLUMNS, fk::Format("%d", p.nMaxColumns));
  View().SetText(IDC_MAX_ROWS, fk::Format("%d", p.nMaxRows));
  View().SetText(IDC_MAX_COLUMNS_3D, fk::Format("%d", p.nMaxColumns3D));
  View().SetText(IDC_MAX_ROWS_3D, fk::Format("%d", p.nMaxRows3D));
  View().ComboSetCurSel(IDC_NORMAL_TEXTURE, static_cast<int>(p.nNormalSize - kTextureBase));
  View().ComboSetCurSel(IDC_MAXIMUM_TEXTURE, static_cast<int>(p.nMaximumSize - kTextureBase));
}

void CTvik3DOptionsPage1::TakePreferences() {
  ViewerPreferences& p = m_Preferences;
  p.nXYZMode = Choice(View(), IDC_XYZ_MODE);
  p.nXYZPosition = Choice(View(), IDC_XYZ_POSITION);
  p.strXLabel = View().Text(IDC_X_LABEL);
  p.strYLabel = View().Text(IDC_Y_LABEL);
  p.strZLabel = View().Text(IDC_Z_LABEL);
  p.nMaxColumns = Number(View(), IDC_MAX_COLUMNS);
  p.nMaxRows = Number(View(), IDC_MAX_ROWS);
  p.nMaxColumns3D = Number(View(), IDC_MAX_COLUMNS_3D);
  p.nMaxRows3D = Number(View(), IDC_MAX_ROWS_3D);
  p.nNormalSize = Choice(View(), IDC_NORMAL_TEXTURE) + kTextureBase;
  p.nMaximumSize = Choice(View(), IDC_MAXIMUM_TEXTURE) + kTextureBase;
}

void CTvik3DOptionsPage1::OnOK() {
  m_bDeleteOnExit = View().Check(IDC_REMOVE_TEMP);
  m_strTempDirectory = View().Text(IDC_TEMP_DIRECTORY);
  m_Options.nGridCompression = fk::Atoi(View().Text(IDC_GRID_COMPRESSION));
  m_Options.bCartomaParent = View().Check(IDC_CARTOMA_PARENT) ? 1 : 0;
  m_Options.bGridClipping = View().ComboCurSel(IDC_GRID_CLIPPING);
  TakePreferences();
  WriteViewerPreferences(m_nVariant, m_Preferences);
  EndDialog(fk::ui::IDOK);
}

void CTvik3DOptionsPage1::OnButton(int id) {
  if (id != IDC_BROWSE_TEMP) return;
  if (auto folder = Prompt().BrowseFolder("Temporary Directory", View().Text(IDC_TEMP_DIRECTORY)))
    View().SetText(IDC_TEMP_DIRECTORY, *folder);
}
