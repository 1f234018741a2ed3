// "Workspace Loader": feeds a workspace to the host statement by statement,
// at up to ten a second on a timer or one per press, each shown in an
// editor before it runs and its outcome logged in the status list. A
// statement the host refuses pauses the run (or is passed over), and the
// user mends or skips it. The file itself is never changed.
#pragma once

#include <memory>
#include <string>

#include "workspace/statement_reader.h"
#include "platform/ui/dialog_controller.h"

class CWorkspaceLoaderDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1022 };
  enum Controls {
    IDC_CLOSE = 1,
    IDC_RUN = 1004,
    IDC_START_STEPPING = 1005,
    IDC_SKIP = 1006,
    IDC_STEP = 1007,
    IDC_PAUSE_ON_ERROR = 1015,
    IDC_STEP_BY_LINE = 1016,
    IDC_ERROR_HELP = 1099,
    IDC_STATUS = 1105,
    IDC_PATH = 1106,
    IDC_LOAD_HIDDEN = 1107,
    IDC_STATEMENT = 1108,
    IDC_LOAD_PRINTER = 1109,
  };
  // The step timer: its number and period.
  static constexpr unsigned kStepTimer = 774;
  static constexpr unsigned kStepPeriodMs = 100;

  explicit CWorkspaceLoaderDlg(std::string workspace);
  ~CWorkspaceLoaderDlg() override;

  bool OnInitDialog() override;
  // One step: runs the statement in hand, then shows the next one.
  void OnTimer();

 protected:
  void OnOK() override;
  void OnButton(int id) override;

 private:
  // Steps 4 to 6 of a step: false when the step must end here, with the
  // statement kept in hand.
  bool RunStatement();
  void Log(const std::string& entry);
  void Finish();
  void OnRun();
  void StartStepping();
  void StopTimer();
  void TakeEditorText();

  std::string m_strWorkspace;
  std::unique_ptr<WorkspaceStatementReader> m_Stream;  // null when the file could not be opened, and at its end
  unsigned m_nTimer = 0;
  std::string m_strStatement;  // the statement in hand
};
