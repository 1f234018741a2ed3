#include "viewer/viewer_process.h"

#include "host/cartoma.h"
#include "host/product_variant.h"
#include "platform/files/files.h"
#include "settings/directory_registry.h"
#include "settings/last_version.h"
#include "viewer/win_process.h"

int IsViewerRunning() {
  static const char* const kNames[] = {"Terravik3D", "Zelvar3D", "Zelvar3DD", "Terravik3DD"};
  for (const char* name : kNames)
    if (CWinProcess().IsProcessRunning(name)) return 1;
  return 0;
}

namespace {

// A viewer runs that may not be ours: its id, looked up by file name. Only
// a lookup that fails outright (0) goes on to the next name; one that finds
// nothing (-1) ends the search.
void LookUpRunningViewer(int& nViewerProcessID) {
  static const char* const kFileNames[] = {"Terravik3D.exe", "Zelvar3D.exe", "Zelvar3DD.exe", "Terravik3DD.exe"};
  for (const char* fileName : kFileNames) {
    nViewerProcessID = CWinProcess().GetProcessIdByName(fileName);
    if (nViewerProcessID != 0) return;
  }
}

}  // namespace

int EnsureViewerRunning(CViewerLink& viewer, int& nViewerProcessID, bool bQueryVersion) {
  if (IsViewerRunning()) {
    if (nViewerProcessID == 0) LookUpRunningViewer(nViewerProcessID);
    return nViewerProcessID;
  }
  // The viewer finds the project folder here when it starts.
  SaveProjectDirectory(fk::CurrentFolder());
  g_Cartoma.FindApplicationScript();
  if (g_Cartoma.m_nProductVariant == VARIANT_TERRAVIK)
    nViewerProcessID = viewer.LaunchViewer(nullptr, nullptr);
  else if (g_Cartoma.m_nProductVariant == VARIANT_ZELVAR3D)
    nViewerProcessID = viewer.LaunchViewer("Zelvar3D", nullptr);
  // Only zero fails an unsigned test against 1: negative launch codes stay.
  if (static_cast<unsigned>(nViewerProcessID) < 1u) nViewerProcessID = 0;
  if (bQueryVersion) {
    std::string version;
    GetViewerVersion(viewer, version);
  }
  return nViewerProcessID;
}

int GetViewerVersion(CViewerLink& viewer, std::string& version) {
  int result = 0;
  version.clear();
  if (IsViewerRunning() && viewer.Attach()) {
    version = viewer.GetVersion();
    if (!version.empty()) {
      SetLastVersion(version);
      result = 1;
    }
  }
  viewer.Detach();
  if (!result) version = GetLastVersion();
  return result;
}

int SetViewerParent(CViewerLink& viewer, std::int32_t window) {
  if (!IsViewerRunning() || !viewer.Attach()) return 0;
  viewer.SetParentWindow(window);
  viewer.Detach();
  return 1;
}

void ShutdownViewer(CViewerLink& viewer) {
  if (!IsViewerRunning()) return;
  if (viewer.m_ViewerInterface.IsAttached()) return;
  viewer.CreateViewerDispatch();
  viewer.Shutdown();
  viewer.ReleaseAll();
}
