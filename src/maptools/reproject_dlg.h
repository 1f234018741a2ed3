// "Reproject multiple tables": the host's open vector tables, each with a
// tick; one target projection from the product script's picker; and each
// ticked table either overwritten in place or written as a new table
// beside it, in a chosen directory, with a name suffix, or both. The list's
// column widths are read from the "ReProject" section and never written.
#pragma once

#include <string>

#include "platform/ui/dialog_controller.h"

class CReProjectDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1005 };
  enum Controls {
    IDC_OPEN_TABLE = 1007,
    IDC_NEW_PROJECTION = 1036,
    IDC_OVERWRITE = 1037,
    IDC_TABLES = 1038,
    IDC_SELECT_ALL = 1039,
    IDC_UNSELECT_ALL = 1040,
    IDC_CREATE_NEW = 1041,
    IDC_DIRECTORY = 1043,
    IDC_SUFFIX = 1044,
    IDC_WITH_SUFFIX = 1045,
    IDC_SUFFIX_LABEL = 1046,
    IDC_IN_DIRECTORY = 1047,
    IDC_BROWSE_DIRECTORY = 1048,
    IDC_HELP = 1096,
  };

  CReProjectDlg();

  bool OnInitDialog() override;
  void OnListCtrlCheck(int id, int row) override;

  std::string m_strOutputDir;
  std::string m_strSuffix;
  std::string m_strTargetProjection;
  std::string m_strTargetName;

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  // The rows anew from the host, keeping the ticks of tables still open.
  void UpdateTableList();
  void UpdateTargetColumn();
  void UpdateOptionStates();
  void EnableDirectory();
  void EnableSuffix();
  void OnOpenTable();
  void OnNewProjection();
  void TickAll(bool ticked);
  void OnBrowseDirectory();
  void ReadFields();
  // The first of the checks that fails is told; false then.
  bool CheckOptions();
  bool AnyRowTicked() const;
  // Every ticked row, from the top; false when one failed.
  bool ReprojectTickedTables();
};
