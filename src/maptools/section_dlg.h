// "Window in Plain": shows and sets the section plane of one layer, its
// origin as X, Y, Z and its bearing in degrees, kept as the table's
// metadata keys. OK on a table that is no section yet makes it one.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"

class CSectionDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1023 };
  enum Controls {
    IDC_X = 1118,
    IDC_Y = 1119,
    IDC_Z = 1120,
    IDC_BEARING = 1121,
    IDC_LAYER = 1122,
  };

  CSectionDlg() : fk::ui::DialogController(IDD) {}

  bool OnInitDialog() override;
  void OnSelectionChange(int id) override;

  std::string m_strTableName;

 protected:
  void OnOK() override;

 private:
  // The table chosen in the list; empty when none is.
  std::string ChosenTable() const;
  // The plane of `table` in the four edits, zeros when it is no section.
  void ShowPlaneOf(const std::string& table);
};
