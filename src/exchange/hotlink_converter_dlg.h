// "TerravikMobile Hotlink Converter": a table, the fields to check and
// what to change in their hotlinks. On OK the values are rewritten in the
// host's table and the box closes; a cancel is reported and the box stays.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"

class CHotLinkConverterDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1020 };
  enum Controls {
    IDC_CHANGE_DIRECTORY = 1015,
    IDC_NEW_DIRECTORY = 1043,
    IDC_BROWSE = 1048,
    IDC_TABLE = 1090,
    IDC_FIELDS = 1098,
    IDC_POCKET_WORD = 1100,
    IDC_POCKET_EXCEL = 1102,
  };

  CHotLinkConverterDlg() : fk::ui::DialogController(IDD) {}

  bool OnInitDialog() override;

  std::string m_strTableName;

 protected:
  void OnOK() override;
  void OnButton(int id) override;
  void OnSelectionChange(int id) override;

 private:
  void OnTableChange();
  void EnableDirectory();
  // The folder chosen, with a separator behind it; empty on cancel.
  std::string BrowseForFolder(const std::string& start);
};
