#include "viewer/viewer_state.h"

#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "platform/text/string_table.h"
#include "platform/text/text_writer.h"
#include "platform/ui/prompter.h"
#include "platform/ui/ui_backend.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_loading.h"
#include "viewer/viewer_process.h"

namespace {

constexpr unsigned IDS_VIEWER_NOT_RUNNING_ON_SAVE = 2006;
constexpr unsigned IDS_STATE_NOT_SAVED = 2007;
constexpr unsigned IDS_NO_CONNECTION = 2008;
constexpr unsigned IDS_VIEWER_NOT_RUNNING_ON_REFRESH = 2009;
constexpr unsigned IDS_VIEWER_NOT_RUNNING_ON_LOAD = 2010;

int Report(unsigned id) {
  fk::ui::CurrentUi().GetPrompter().MessageBox(fk::LoadString(id), fk::ui::MB_OK);
  return 0;
}

bool WriteStateFile(const std::string& statePath, const StatePaths& paths) {
  fk::TextWriter out;
  if (!out.Open(statePath, "w")) return false;
  out.WriteLine("VERSION 1.0");
  out.WriteLine(paths.workspace);
  out.WriteLine(paths.viewerState);
  return out.Close();
}

}  // namespace

StatePaths StatePathsOf(const std::string& statePath) {
  const fk::PathParts parts = fk::SplitPath(statePath);
  const std::string stem = parts.drive + parts.dir + parts.fname;
  return {stem + ".wor", stem + ".ogs"};
}

int Save3DState(ViewerSession session, const std::string& statePath) {
  if (!IsViewerRunning()) return Report(IDS_VIEWER_NOT_RUNNING_ON_SAVE);
  EnsureViewerRunning(session.viewer, session.nViewerProcessID, true);
  // Marks unused what the viewer no longer shows; the count may grow meanwhile.
  for (std::size_t i = 0; i < session.tempFiles.size(); ++i)
    RemoveOGBFileIfUnused(session, session.tempFiles[i].m_strFile);
  if (!session.viewer.Attach()) return Report(IDS_NO_CONNECTION);
  const StatePaths paths = StatePathsOf(statePath);
  // The viewer stays attached on this way out.
  if (!WriteStateFile(statePath, paths)) return Report(IDS_STATE_NOT_SAVED);
  session.tempFiles.SyncWithViewer(session.viewer);
  session.tempFiles.SaveWithState(session, statePath);
  g_Cartoma.SaveWorkspace(paths.workspace);
  session.viewer.SaveSession(paths.viewerState);
  session.viewer.Detach();
  return 1;
}

int Load3DState(ViewerSession session, const std::string& statePath) {
  EnsureViewerRunning(session.viewer, session.nViewerProcessID, true);
  if (!IsViewerRunning()) return Report(IDS_VIEWER_NOT_RUNNING_ON_LOAD);
  const StatePaths paths = StatePathsOf(statePath);
  int result = 0;
  if (session.viewer.Attach()) {
    session.viewer.LoadSession(paths.viewerState);
    session.viewer.Detach();
    result = 1;
  } else {
    Report(IDS_NO_CONNECTION);
  }
  // The host half of the session runs even when the viewer was not reached.
  g_Cartoma.RunApplication(paths.workspace);
  return result;
}

int Refresh3D(ViewerSession session, const std::string& tempDirectory) {
  if (!IsViewerRunning()) return Report(IDS_VIEWER_NOT_RUNNING_ON_REFRESH);
  EnsureViewerRunning(session.viewer, session.nViewerProcessID, true);
  const std::string scratch = tempDirectory + "_Refresh3DSession.ogs";
  if (!session.viewer.Attach()) return Report(IDS_NO_CONNECTION);
  session.viewer.SaveSession(scratch);
  session.viewer.SendCommand(TV_COMMAND_REFRESH);
  session.viewer.LoadSession(scratch);
  session.viewer.Detach();
  return 1;
}
