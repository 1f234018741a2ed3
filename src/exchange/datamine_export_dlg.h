// "Datamine Export": a vector table of the host, the output text file, a
// source of Z values, a linear transform of the coordinates and any number
// of attribute columns. On OK the file is written and the box closes;
// every refusal and error is a message box, and the box stays open.
// Nothing is kept between runs.
#pragma once

#include <string>
#include <vector>

#include "exchange/node_export.h"
#include "platform/ui/dialog_controller.h"

class CDatamineExportDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1015 };
  enum Controls {
    IDC_MULTIPLY_X = 1053,
    IDC_MULTIPLY_Z = 1054,
    IDC_MULTIPLY_Y = 1055,
    IDC_ADD_X = 1056,
    IDC_ADD_Z = 1057,
    IDC_ADD_Y = 1058,
    IDC_OUTPUT_FILE = 1059,
    IDC_BROWSE = 1060,
    IDC_TABLE = 1061,
    IDC_Z_COLUMN = 1062,
    IDC_DEFAULT_Z = 1063,
    IDC_ATTRIBUTES = 1064,
    IDC_HELP = 1096,
  };

  CDatamineExportDlg() : CDatamineExportDlg(IDD) {}

  bool OnInitDialog() override;

  std::string m_strOutputFile;
  std::string m_strTableName;
  double m_dAddX = 0.0, m_dAddY = 0.0, m_dAddZ = 0.0;
  double m_dMultiplyX = 1.0, m_dMultiplyY = 1.0, m_dMultiplyZ = 1.0;
  double m_dDefaultZ = 0.0;

 protected:
  explicit CDatamineExportDlg(unsigned templateId) : fk::ui::DialogController(templateId) {}

  void OnOK() override;
  void OnButton(int id) override;
  void OnSelectionChange(int id) override;

  // Writes the file; what differs between this box and its siblings.
  virtual int ExportTable(const NodeExportOptions& options, std::string& message);
  // Controls read once the user agreed to overwrite the file.
  virtual void ReadExportChoices() {}
  virtual unsigned BrowseExtensionId() const;
  virtual unsigned BrowseFilterId() const;
  virtual int HelpTopic() const;

 private:
  // Reads the controls into the fields; false when a number is refused.
  bool ReadFields();
  void OnTableChange();
  void OnBrowse();
  std::vector<std::string> SelectedAttributes() const;
  std::string ChosenZColumn() const;
};
