// "MineSight Export": the Datamine box's sibling, with the same fields and
// checks, one more check box, Flip XY, and the string file as its output.
#pragma once

#include "exchange/datamine_export_dlg.h"

class CMineSightExportDlg : public CDatamineExportDlg {
 public:
  enum { IDD = 1018 };
  enum { IDC_FLIP_XY = 1015 };

  CMineSightExportDlg() : CDatamineExportDlg(IDD) {}

 protected:
  int ExportTable(const NodeExportOptions& options, std::string& message) override;
  // The check box is no field: it is read when the export begins.
  void ReadExportChoices() override { m_bFlipXY = View().Check(IDC_FLIP_XY) != 0; }
  unsigned BrowseExtensionId() const override;
  unsigned BrowseFilterId() const override;
  int HelpTopic() const override;

 private:
  bool m_bFlipXY = false;
};
