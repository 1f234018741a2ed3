// "System", the first page of the 3D options: the temporary files, the
// session's grid compression, host parent and grid clipping, and the
// viewer's axis, grid and texture preferences from the registry.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"
#include "viewer/viewer_options.h"
#include "viewer/viewer_preferences.h"

class CTvik3DOptionsPage1 : public fk::ui::DialogController {
 public:
  static constexpr unsigned IDD = 1024;
  CTvik3DOptionsPage1(ViewerOptions options, int variant) : DialogController(IDD), m_Options(options), m_nVariant(variant) {}

  bool OnInitDialog() override;

  int m_bDeleteOnExit = 0;
  std::string m_strTempDirectory;

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  void FillCombos();
  void ShowPreferences();
  void TakePreferences();

  ViewerOptions m_Options;
  int m_nVariant;
  ViewerPreferences m_Preferences;
};
