#include "viewer/selection_handles.h"

#include "exchange/dxf_selection.h"
#include "platform/folders/folders.h"
#include "platform/paths/paths.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_loading.h"
#include "viewer/viewer_process.h"

namespace {

constexpr int kHandleFaceColor = 1;

// Writes `boxes` as the whole selection file, each with the edges `boxEdge`
// and `boxEdge` and its height as chosen; the open is not checked.
void WriteSelectionFile(const std::string& file, double boxEdge, const std::vector<SelectionBox>& boxes,
                        bool ownHeights) {
  CDXFSelection selection;
  selection.SetFileName(file.c_str());
  selection.SetFaceColor(kHandleFaceColor);
  selection.OpenSelection();
  for (const SelectionBox& box : boxes) {
    const double height = !ownHeights ? boxEdge : box.height > 0 ? box.height : box.fallbackHeight;
    selection.WriteBox(box.x, box.y, box.z, boxEdge, boxEdge, height, box.tilt, box.turn);
  }
  selection.CloseSelection();
}

// The viewer holds at most one selection object; it is tested under kind 1
// and removed under kind 2, the pair every vector load sends.
void RemoveSelectionObject(CViewerLink& viewer, int view, const std::string& file) {
  if (viewer.ObjectExists(view, file, OBJECT_FILE)) viewer.RemoveFileObject(view, OBJECT_VECTOR_FILE, file);
}

int ShowSelectionFile(ViewerSession session, const std::string& file, int temporary) {
  if (!session.viewer.Attach()) return 0;
  const int view = session.viewer.GetMapWindow(true);
  RemoveSelectionObject(session.viewer, view, file);
  session.viewer.AddVectorObject(true, view, file, kShownVectorValues);
  session.tempFiles.AddFile(file, temporary);
  session.viewer.Detach();
  return 1;
}

}  // namespace

std::string SelectionFileOnDisk(const std::string& path) {
  const fk::PathParts parts = fk::SplitPath(path);
  if (parts.drive.empty() || fk::IsDriveMapped(parts.drive[0])) return path;
  return fk::TempDirectory() + parts.fname + parts.ext;
}

int AddSelectionHandle(ViewerSession session, const std::string& file, double boxEdge, const SelectionBox& box) {
  if (!IsViewerRunning()) return 0;
  WriteSelectionFile(file, boxEdge, {box}, false);
  return ShowSelectionFile(session, file, 1);
}

int AddSelectionHandles(ViewerSession session, const std::string& file, double boxEdge,
                        const std::vector<SelectionBox>& boxes, int permanent) {
  if (!IsViewerRunning()) return 0;
  WriteSelectionFile(file, boxEdge, boxes, true);
  return ShowSelectionFile(session, file, permanent == 0);
}

int ClearSelectionHandles(ViewerSession session, const std::string& file) {
  if (!IsViewerRunning() || !session.viewer.Attach()) return 0;
  RemoveSelectionObject(session.viewer, session.viewer.GetMapWindow(true), file);
  session.viewer.Detach();
  return 1;
}

int SelectIn3D(CViewerLink& viewer, const std::string& name, int value) {
  if (!IsViewerRunning() || !viewer.Attach()) return 0;
  const int answer = viewer.SelectObject(name, value);
  viewer.Detach();
  return answer == 0 ? 1 : 0;
}

int SetAssociatedCoordSystem(CViewerLink& viewer, const std::string& name, const std::string& coordSys) {
  if (!viewer.Attach()) return 0;
  const int answer = viewer.SetAssociatedCoordSystem(name, coordSys);
  viewer.Detach();
  return answer == 0 ? 1 : 0;
}
