// "OGB Import": a georeference file, the table to write, the map
// projection picked through the product script, and which of a corner's
// numbers are X and Y. On OK each image of the file gets its raster
// registration table, which is opened in the host. Nothing is kept
// between runs.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"

class COGBImportDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1021 };
  enum Controls {
    IDC_USE_TRANSPARENT = 1015,
    IDC_X_FIELD = 1034,
    IDC_Y_FIELD = 1035,
    IDC_INPUT_FILE = 1049,
    IDC_BROWSE_INPUT = 1050,
    IDC_PROJECTION_NAME = 1051,
    IDC_SET_PROJECTION = 1052,
    IDC_OUTPUT_TABLE = 1059,
    IDC_BROWSE_OUTPUT = 1060,
    IDC_HELP = 1096,
    IDC_OGB_PROJECTION = 1101,
  };

  COGBImportDlg();

  bool OnInitDialog() override;

  std::string m_strInputFile;
  std::string m_strOutputTable;
  std::string m_strProjectionClause;
  std::string m_strProjectionName;

 protected:
  void OnOK() override;
  void OnButton(int id) override;
  void OnEditChange(int id) override;

 private:
  void ReadFields();
  // The output table follows the input file; with several images each
  // image names its own, and the control gives way.
  void UpdateOutput();
  void UpdateProjectionText();
  void OnBrowseInput();
  void OnBrowseOutput();
  void OnSetProjection();
  // Writes the tables and opens them; false when the box stays open.
  bool ImportImages();
};
