#include "viewer/drillhole_project.h"

#include "viewer/viewer_process.h"

int IsDrillHoleProjectOpen(CViewerLink& viewer) {
  if (!IsViewerRunning() || !viewer.Attach()) return 0;
  int open = 0;
  if (viewer.AttachSurvey()) {
    open = viewer.GetOpenProjectCount() > 0 ? 1 : 0;
    viewer.DetachSurvey();
  }
  viewer.Detach();
  return open;
}
