// The selection box of the drillhole and trench wizards: the field
// selection box's two lists of holes, each with its row number as item
// data, and the choice between the whole dataset and a subset of the
// selected holes, saved permanently or not, with the suffix of the tables.
#pragma once

#include <string>

#include "services/select_fields_dlg.h"

class CDrillholeWizDlg : public CSelectFieldsDlg {
 public:
  enum { IDD = 1026 };
  enum WizardControls {
    IDC_SAVE_PERMANENTLY = 1015,
    IDC_ENTIRE_DATASET = 1019,
    IDC_SUBSET = 1020,
    IDC_SUFFIX = 1138,
  };

  CDrillholeWizDlg() : CSelectFieldsDlg(IDD) {}

  bool OnInitDialog() override;

  std::string m_strSuffix = "_default";
  bool m_bSavePermanently = false;
  bool m_bSubset = false;
  bool m_bTrench = false;

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  // A radio button clicked: the suffix of that mode, and the save check
  // usable only for a subset.
  void OnMode(bool subset);
};
