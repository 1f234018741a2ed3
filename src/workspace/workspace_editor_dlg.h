// "Workspace Editor": the tables a workspace opens, each with its status
// (Missing, Unused or "- OK -") and a tick; their paths changed one at a
// time or all at once (relative, absolute, current), and the repairs the
// rewrite will make. Nothing is written before OK, and then only the
// backup: the export rewrites the file once the box has ended.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"
#include "workspace/workspace_text.h"

class CWorkspaceEditorDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1008 };
  enum Controls {
    IDC_HELP = 3,
    IDC_SET_RELATIVE = 1004,
    IDC_SET_ABSOLUTE = 1005,
    IDC_SET_CURRENT = 1006,
    IDC_OPEN_WORKSPACE = 1007,
    IDC_CHECK_UNUSED = 1065,
    IDC_NO_EDITABLE = 1067,
    IDC_INTERACTIVE = 1068,
    IDC_NO_PRINTER = 1069,
    IDC_SAVE_BACKUP = 1070,
    IDC_CHECK_MISSING = 1071,
    IDC_EDIT_PATH = 1072,
    IDC_TABLES = 1073,
  };

  CWorkspaceEditorDlg() : fk::ui::DialogController(IDD) {}

  bool OnInitDialog() override;

  int m_bSaveBackup = 1;
  WorkspaceRepairs m_Repairs;
  // One per "OPEN TABLE" piece, in file order; after OK the new path, empty
  // for an unticked row.
  std::vector<std::string> m_TablePaths;
  std::string m_strWorkspace;
  int m_bOpenWorkspace = 0;

 protected:
  void OnOK() override;
  void OnButton(int id) override;
  void OnListCtrlActivate(int id, int row) override;

 private:
  int Rows() const;
  std::string PathOf(int row) const;
  void SetPathOf(int row, const std::string& path);
  void AddStatus(int row, unsigned word);
  void UpdateStatus();
  void CheckMissingTables();
  void CheckUnusedTables();
  void EditSelectedPath();
  void SetAllRelative();
  void SetAllAbsolute();
  void SetAllCurrent();
};
