#include "viewer/viewer_loading.h"

#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_process.h"

namespace {

// The kinds under which a loaded file may stand, in the order they are tried.
constexpr int kFileKinds[] = {OBJECT_FILE, OBJECT_VECTOR_FILE, OBJECT_FILE_DATASET, OBJECT_IMAGE};

const std::vector<std::int32_t> kPermanentDXFValues = {0, 0, 0, 0xC8C8C8, 0xA0A0A0, 0, 0, 0, 0};

bool ViewerAvailable(ViewerSession session) {
  return EnsureViewerRunning(session.viewer, session.nViewerProcessID, true) >= 1;
}

bool EndsWithDXF(const std::string& file) {
  return file.size() >= 4 && fk::EqualsNoCase(std::string_view(file).substr(file.size() - 4), ".DXF");
}

}  // namespace

const std::vector<std::int32_t> kShownVectorValues = {25, 0, 0, 0, 0, 1, 0, 0, 1};

void ShowHelpHint(ViewerSession session, const char* topic) {
  if (!session.bShowHelp) return;
  session.viewer.ShowHelpPanel();
  session.viewer.ShowHelpTopic(topic);
}

int IsFileInViewer(CViewerLink& viewer, int view, const std::string& file) {
  for (int kind : kFileKinds)
    if (viewer.ObjectExists(view, file, kind)) return 1;
  return 0;
}

int RemoveFileFromViewer(CViewerLink& viewer, int view, const std::string& file) {
  for (int kind : kFileKinds) viewer.RemoveFileObject(view, kind, file);
  return 1;
}

int ShowFileInViewer(ViewerSession session, int view, const std::string& file) {
  if (!ViewerAvailable(session)) return 0;
  if (EndsWithDXF(file))
    session.viewer.AddVectorObject(true, view, file, kShownVectorValues);
  else
    session.viewer.AddImageObject(view, file);
  return 0;
}

int LoadPermDXFFile(ViewerSession session, const std::string& file, int permanent) {
  if (!ViewerAvailable(session) || !session.viewer.Attach()) return 0;
  const int view = session.viewer.GetMapWindow(true);
  // The presence test names kind 1 and the removal kind 2; the viewer gets the pair as it stands.
  if (session.viewer.ObjectExists(view, file, OBJECT_FILE))
    session.viewer.RemoveFileObject(view, OBJECT_VECTOR_FILE, file);
  session.viewer.AddVectorObject(true, view, file, kPermanentDXFValues);
  ShowHelpHint(session, "3D Vector.htm");
  session.viewer.Detach();
  session.tempFiles.AddFile(file, permanent == 0);
  return 1;
}

int LoadPermOGBFile(ViewerSession session, const std::string& file, int permanent) {
  if (!ViewerAvailable(session) || !session.viewer.Attach()) return 0;
  const int view = session.viewer.GetMapWindow(true);
  if (view < 0) {
    session.viewer.Detach();
    return 0;
  }
  session.tempFiles.AddFile(file, permanent == 0);
  session.tempFiles.RebuildFile(file);
  if (IsFileInViewer(session.viewer, view, file) == 1) RemoveFileFromViewer(session.viewer, view, file);
  ShowFileInViewer(session, view, file);
  ShowHelpHint(session, "Images.htm");
  session.viewer.Detach();
  return 1;
}

int LoadPermLogOGBFile(ViewerSession session, const std::string& file, int show, int permanent) {
  const bool available = ViewerAvailable(session);
  if (!available) return 0;
  // The first log file decides where the log OGB file lies for the session.
  if (session.strLogOGBFile.empty()) {
    const fk::PathParts parts = fk::SplitPath(file);
    session.strLogOGBFile = parts.drive + parts.dir + "Terravik DH Logs.OGB";
  }
  const std::string logFile = session.strLogOGBFile;
  if (!session.viewer.Attach()) return 0;
  const int view = session.viewer.GetMapWindow(true);
  if (view < 0) {
    session.viewer.Detach();
    return 0;
  }
  session.tempFiles.AddFilePart(logFile, file, permanent == 0);
  session.tempFiles.RebuildFile(logFile);
  if (show) {
    session.viewer.SetLogFile(view, "");
    session.viewer.SetLogFile(view, logFile);
  }
  session.viewer.Detach();
  return 1;
}

int AddOGBFilePart(ViewerSession session, const std::string& ogbFile, const std::string& part, int load) {
  const int index = session.tempFiles.AddFilePart(ogbFile, part, 1);
  if (load) LoadPermOGBFile(session, ogbFile, 0);
  return index >= 0 ? 1 : 0;
}

int ClearLogOGBFile(ViewerSession session) {
  session.tempFiles.MarkFileUnused(session.strLogOGBFile);
  return 1;
}

int RemoveOGBFileIfUnused(ViewerSession session, const std::string& file) {
  if (!IsViewerRunning()) {
    session.tempFiles.MarkFileUnused(file);
    return 0;
  }
  if (session.viewer.Attach()) {
    const int view = session.viewer.GetMapWindow(true);
    const int shown = IsFileInViewer(session.viewer, view, file);
    session.viewer.Detach();
    if (shown == 1) return 0;
  }
  session.tempFiles.MarkFileUnused(file);
  return 1;
}

int ViewGridIn3D(ViewerSession session, const std::string& grid) {
  if (!IsViewerRunning()) EnsureViewerRunning(session.viewer, session.nViewerProcessID, true);
  if (!session.viewer.Attach()) return 0;
  const int view = session.viewer.GetMapWindow(true);
  session.viewer.AddGridObject(view, grid);
  session.viewer.Detach();
  return 1;
}
