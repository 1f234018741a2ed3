#include "workspace/workspace_loader_dlg.h"

#include "host/cartoma.h"
#include "platform/loop/loop.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"
#include "platform/text/string_table.h"
#include "services/help_launcher.h"

namespace {

constexpr unsigned IDS_COULD_NOT_OPEN = 2034;
constexpr unsigned IDS_CONTINUE = 2078;
constexpr unsigned IDS_PAUSE = 2079;
constexpr unsigned IDS_END_OF_WORKSPACE = 2091;
constexpr unsigned IDS_SKIPPED = 2092;
constexpr unsigned IDS_OK = 2093;
constexpr unsigned IDS_ERROR = 2094;

// Shared by every run in the process: a step in progress (a host statement
// lets the loop run, so a tick or a press may arrive inside a step), and
// whether button 1004 was ever pressed; the latter is never reset.
int g_bStepInProgress = 0;
int g_bLoaderStarted = 0;

}  // namespace

CWorkspaceLoaderDlg::CWorkspaceLoaderDlg(std::string workspace)
    : fk::ui::DialogController(IDD), m_strWorkspace(std::move(workspace)) {}

CWorkspaceLoaderDlg::~CWorkspaceLoaderDlg() { StopTimer(); }

bool CWorkspaceLoaderDlg::OnInitDialog() {
  // The buttons of stepping start hidden; "Skip Line" waits for a pause.
  View().Show(IDC_START_STEPPING, false);
  View().Show(IDC_STEP, false);
  View().Enable(IDC_STEP, false);
  View().Enable(IDC_SKIP, false);
  auto stream = std::make_unique<WorkspaceStatementReader>();
  if (!stream->Open(m_strWorkspace)) {
    Prompt().MessageBox(fk::FormatString(IDS_COULD_NOT_OPEN, {m_strWorkspace}), fk::ui::MB_OK);
    return true;
  }
  m_Stream = std::move(stream);
  View().SetText(IDC_PATH, m_strWorkspace);
  View().SetCheck(IDC_LOAD_PRINTER, 1);
  View().SetCheck(IDC_LOAD_HIDDEN, 1);
  View().SetCheck(IDC_PAUSE_ON_ERROR, 1);
  return true;
}

void CWorkspaceLoaderDlg::OnTimer() {
  if (g_bStepInProgress) return;
  g_bStepInProgress = 1;
  if (!m_Stream) {
    g_bStepInProgress = 0;
    return;
  }
  if (!m_strStatement.empty()) {
    if (m_strStatement == WORKSPACE_END) {
      Finish();
      g_bStepInProgress = 0;
      return;
    }
    // Header lines ("!") are dropped with no entry.
    if (m_strStatement[0] != '!' && !RunStatement()) {
      g_bStepInProgress = 0;
      return;
    }
  }
  m_strStatement = m_Stream->Next();
  View().SetText(IDC_STATEMENT, m_strStatement);
  if (m_strStatement == WORKSPACE_END) {
    View().SetText(IDC_STATEMENT, "");
    g_bStepInProgress = 0;
    OnTimer();  // the end is reached in this tick
    return;
  }
  g_bStepInProgress = 0;
}

bool CWorkspaceLoaderDlg::RunStatement() {
  const std::string upper = fk::ToUpper(m_strStatement);
  const int decides = upper.find("SET WINDOW FRONTWINDOW() PRINTER") != std::string::npos ? IDC_LOAD_PRINTER
                      : upper.find(" HIDE ") != std::string::npos                        ? IDC_LOAD_HIDDEN
                                                                                         : 0;
  if (decides && !View().Check(decides)) {
    Log(fk::Format("%s\t- %s", fk::LoadString(IDS_SKIPPED), m_strStatement));
    return true;
  }
  int error = 0;
  g_Cartoma.Do(m_strStatement, 1, &error);
  if (!error) {
    Log(fk::Format("%s\t- %s", fk::LoadString(IDS_OK), m_strStatement));
    return true;
  }
  Log(fk::Format("%s\t[%s] - %s", fk::LoadString(IDS_ERROR), g_Cartoma.m_strLastError, m_strStatement));
  if (m_nTimer && View().Check(IDC_PAUSE_ON_ERROR)) {
    OnRun();
    return false;
  }
  return m_nTimer != 0;  // running on: the failed statement is passed over
}

void CWorkspaceLoaderDlg::Log(const std::string& entry) {
  const int index = View().ListAdd(IDC_STATUS, entry);
  for (int i = 0; i < View().ListCount(IDC_STATUS); ++i) View().ListSelect(IDC_STATUS, i, i == index);
}

void CWorkspaceLoaderDlg::Finish() {
  Log(fk::LoadString(IDS_END_OF_WORKSPACE));
  m_Stream.reset();
  StopTimer();
  View().Show(IDC_RUN, false);
  View().Show(IDC_START_STEPPING, false);
  View().Enable(IDC_STATEMENT, false);
}

void CWorkspaceLoaderDlg::StopTimer() {
  if (m_nTimer) fk::KillTimer(m_nTimer);
  m_nTimer = 0;
}

void CWorkspaceLoaderDlg::TakeEditorText() { m_strStatement = View().Text(IDC_STATEMENT); }

void CWorkspaceLoaderDlg::OnRun() {
  if (!View().Check(IDC_STEP_BY_LINE)) {
    if (m_nTimer) {
      StopTimer();
      View().SetText(IDC_RUN, fk::LoadString(IDS_CONTINUE));
      View().Enable(IDC_STEP, true);
      View().Enable(IDC_SKIP, true);
    } else {
      View().SetText(IDC_RUN, fk::LoadString(IDS_PAUSE));
      TakeEditorText();
      m_nTimer = fk::SetRepeatingTimer("workspace loader step 774", kStepPeriodMs, [this] { OnTimer(); });
      View().Enable(IDC_STEP, false);
      View().Enable(IDC_SKIP, false);
    }
  } else if (g_bLoaderStarted) {
    TakeEditorText();
    OnTimer();
  } else {
    StartStepping();
  }
  g_bLoaderStarted = 1;
}

void CWorkspaceLoaderDlg::StartStepping() {
  View().Enable(IDC_START_STEPPING, false);
  View().Enable(IDC_STEP, true);
  View().Enable(IDC_SKIP, true);
  TakeEditorText();
  OnTimer();  // fills the look-ahead
  OnTimer();  // shows the first statement
}

void CWorkspaceLoaderDlg::OnButton(int id) {
  switch (id) {
    case IDC_RUN: OnRun(); break;
    case IDC_START_STEPPING: StartStepping(); break;
    case IDC_STEP:
      TakeEditorText();
      OnTimer();
      break;
    case IDC_SKIP:
      m_strStatement.clear();
      OnTimer();
      break;
    case IDC_ERROR_HELP: LaunchHelp(Prompt(), HELP_WORKSPACE_LOADER); break;
    default: break;
  }
}

void CWorkspaceLoaderDlg::OnOK() {
  m_Stream.reset();
  StopTimer();
  EndDialog(fk::ui::IDOK);
}
