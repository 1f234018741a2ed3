// "Display", the second page of the 3D options: point size, raster scaling
// and transparency, the help flag, the preferred projection, the raster
// size preference, and three buttons that work on the running viewer.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"
#include "viewer/viewer_link.h"
#include "viewer/viewer_options.h"

class CTvik3DOptionsPage2 : public fk::ui::DialogController {
 public:
  static constexpr unsigned IDD = 1025;
  CTvik3DOptionsPage2(ViewerOptions options, int variant, CViewerLink& viewer)
      : DialogController(IDD), m_Options(options), m_nVariant(variant), m_Viewer(viewer) {}

  bool OnInitDialog() override;

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  void ShowRasterSize();
  void PickProjection();
  void SendViewerCommand(int command);
  void ShowAllToolbars();

  ViewerOptions m_Options;
  int m_nVariant;
  CViewerLink& m_Viewer;
  // The preferred projection as picked on the page, kept at OK.
  std::string m_strProjection;
  std::string m_strProjectionDesc;
};
