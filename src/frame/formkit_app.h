// The application object: the module's settings and session values, from
// module load to unload. One instance, theApp.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "exchange/dxf_lib.h"
#include "platform/app/app_base.h"
#include "settings/temp_file_array.h"
#include "viewer/viewer_link.h"
#include "viewer/viewer_options.h"
#include "viewer/viewer_session.h"

class CFormkitApp : public fk::AppBase {
 public:
  CFormkitApp();

  // Opens the apartment, moves the profile under "Orvex" and loads the
  // eight settings from the "Shared" profile.
  bool InitInstance() override;
  // The eight settings of section "Setup"; each keeps its present value
  // when the registry has none.
  void LoadSettings();
  // Changes the profile name to `name`, or, with none, to the name of the
  // product whose script runs in the host; then loads the settings again.
  void SwitchProfile(const char* name);
  // The host session's Connect (it works on g_CartomaDriver).
  int Connect(std::int32_t dispatch, int checkApp);
  // What the viewer operations work on.
  ViewerSession Viewer3D() {
    return {m_Viewer, m_nViewerProcessID, m_TempFiles, m_bShowHelp, m_strLogOGBFile};
  }
  // The 3D options of the session.
  ViewerOptions Options3D() {
    return {m_nPointSize,   m_nGridCompression, m_nRasterScaling,   m_bCartomaParent,       m_bGridClipping,
            m_nTransparency, m_bShowHelp,       m_bProjMapping,     m_strPreferredProj,     m_strPreferredProjDesc,
            GetProfile()};
  }
  const std::string& GetTempDirectory() const { return m_strTempDirectory; }

  // Raster registration tables: a new one over a rectangle, and one from
  // control points that may keep the lines of an old table. A null clause
  // means none; null lines mean a new head.
  int WriteRasterTab(const std::string& tabPath, const std::string& imageName, double left, double bottom,
                     double right, double top, const char* coordSys, std::int32_t transparentColor);
  int RewriteRasterTab(const std::string& tabPath, const std::string& imageName,
                       const std::vector<std::int32_t>& pixelX, const std::vector<std::int32_t>& pixelY,
                       const std::vector<double>& worldX, const std::vector<double>& worldY, const char* coordSys,
                       const std::vector<std::string>* lines);

  std::string m_strProduct;
  std::string m_strGroupKey;
  std::string m_strAliasKey;
  std::string m_strDXFSelectionFile = "c:\\Selection.dxf";
  std::string m_strLogOGBFile;
  int m_bUseNameAlias = 0;
  CDXFLib m_DXF;
  int m_nViewerProcessID = 0;
  CViewerLink m_Viewer;
  CTempFileArray m_TempFiles;
  int m_nPointSize = 5;
  int m_nGridCompression = 30;
  int m_nRasterScaling = 2;
  int m_bCartomaParent = 0;
  int m_bGridClipping = 1;
  int m_nTransparency = 0;
  std::string m_strPreferredProj;
  std::string m_strPreferredProjDesc;
  int m_bShowHelp = 0;
  int m_bProjMapping = 0;
  int m_nImageLoadOption = 0;
  std::string m_strTempDirectory;
  std::string m_strInstallationID;
};

extern CFormkitApp theApp;
