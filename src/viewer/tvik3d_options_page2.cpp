#include "viewer/tvik3d_options_page2.h"

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"
#include "viewer/viewer_preferences.h"
#include "viewer/viewer_process.h"

namespace {

constexpr int IDC_PREFERRED_PROJECTION = 1005, IDC_SHOW_HELP = 1016, IDC_SAVE_DEFAULTS = 1017,
              IDC_RESTORE_DEFAULTS = 1018, IDC_SHOW_TOOLBARS = 1019, IDC_POINT_SIZE = 1035,
              IDC_RASTER_SCALING = 1036, IDC_TRANSPARENCY = 1037, IDC_PROJECTION_NAME = 1051,
              IDC_PROJ_MAPPING = 1110, IDC_RASTER_WIDTH = 1116, IDC_RASTER_HEIGHT = 1117;

// The viewer's menu commands that save its settings as the defaults and
// bring the defaults back.
constexpr int kSaveDefaultsCommand = 0x852A, kRestoreDefaultsCommand = 0x852B;

int Number(const fk::ui::DialogView& view, int id) { return fk::Atoi(view.Text(id)); }

}  // namespace

bool CTvik3DOptionsPage2::OnInitDialog() {
  View().SetText(IDC_RASTER_SCALING, fk::Format("%d", m_Options.nRasterScaling));
  View().SetText(IDC_TRANSPARENCY, fk::Format("%d", m_Options.nTransparency));
  View().SetText(IDC_POINT_SIZE, fk::Format("%d", m_Options.nPointSize));
  View().SetCheck(IDC_SHOW_HELP, m_Options.bShowHelp);
  m_strProjection = m_Options.strPreferredProj;
  m_strProjectionDesc = m_Options.strPreferredProjDesc;
  View().SetText(IDC_PROJECTION_NAME, m_strProjectionDesc);
  View().SetCheck(IDC_PROJ_MAPPING, m_Options.bProjMapping);
  ShowRasterSize();
  const bool running = IsViewerRunning() != 0;
  for (int id : {IDC_SAVE_DEFAULTS, IDC_RESTORE_DEFAULTS, IDC_SHOW_TOOLBARS}) View().Enable(id, running);
  return true;
}

void CTvik3DOptionsPage2::ShowRasterSize() {
  const ViewerPreferences preferences = ReadViewerPreferences(m_nVariant);
  View().SetText(IDC_RASTER_WIDTH, fk::Format("%d", preferences.nRasterWidth.value_or(0)));
  View().SetText(IDC_RASTER_HEIGHT, fk::Format("%d", preferences.nRasterHeight.value_or(0)));
}

void CTvik3DOptionsPage2::OnOK() {
  SetShowHelp(m_Options, View().Check(IDC_SHOW_HELP));
  m_Options.nPointSize = Number(View(), IDC_POINT_SIZE);
  m_Options.nRasterScaling = CappedRasterScaling(Number(View(), IDC_RASTER_SCALING));
  m_Options.nTransparency = Number(View(), IDC_TRANSPARENCY);
  m_Options.strPreferredProj = m_strProjection;
  m_Options.strPreferredProjDesc = m_strProjectionDesc;
  WritePreferredProjection(m_Options);
  // Leaving the pages with OK always ends the projection mapping.
  m_Options.bProjMapping = 0;
  m_Options.profile.WriteInt("Setup", "ProjMapping", 0);
  WriteRasterSize(m_nVariant, static_cast<std::uint32_t>(Number(View(), IDC_RASTER_WIDTH)),
                  static_cast<std::uint32_t>(Number(View(), IDC_RASTER_HEIGHT)));
  EndDialog(fk::ui::IDOK);
}

void CTvik3DOptionsPage2::OnButton(int id) {
  switch (id) {
    case IDC_PREFERRED_PROJECTION: PickProjection(); break;
    case IDC_SAVE_DEFAULTS: SendViewerCommand(kSaveDefaultsCommand); break;
    case IDC_RESTORE_DEFAULTS: SendViewerCommand(kRestoreDefaultsCommand); break;
    case IDC_SHOW_TOOLBARS: ShowAllToolbars(); break;
    default: break;
  }
}

void CTvik3DOptionsPage2::PickProjection() {
  m_strProjection = g_Cartoma.GetLastProjection(&m_strProjectionDesc);
  View().SetText(IDC_PROJECTION_NAME, m_strProjectionDesc);
}

void CTvik3DOptionsPage2::SendViewerCommand(int command) {
  if (!m_Viewer.Attach()) return;
  m_Viewer.SendCommand(command);
  m_Viewer.Detach();
}

void CTvik3DOptionsPage2::ShowAllToolbars() {
  if (!IsViewerRunning() || !m_Viewer.Attach()) return;
  m_Viewer.ShowAllToolbars();
  m_Viewer.Detach();
}
