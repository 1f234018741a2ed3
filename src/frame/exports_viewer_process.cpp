// Exports of the 3D viewer's process: start, stop, ask.
#include <string>

#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "viewer/viewer_process.h"

extern "C" int ExecuteTerravik3D() {
  return fk::GuardedCall("ExecuteTerravik3D", 0,
                         [] { return EnsureViewerRunning(theApp.m_Viewer, theApp.m_nViewerProcessID, false); });
}

extern "C" int ShutdownTerravik3D() {
  return fk::GuardedCall("ShutdownTerravik3D", 1, [] {
    ShutdownViewer(theApp.m_Viewer);
    return 1;
  });
}

extern "C" int IsTvik3DRunning() {
  return fk::GuardedCall("IsTvik3DRunning", 0, [] { return IsViewerRunning(); });
}

extern "C" int GetTvik3DProcessID() {
  return fk::GuardedCall("GetTvik3DProcessID", 0, [] { return theApp.m_nViewerProcessID; });
}

extern "C" int GetTvik3DVersion(char* version) {
  return fk::GuardedCall("GetTvik3DVersion", 0, [&] {
    std::string text;
    const int live = GetViewerVersion(theApp.m_Viewer, text);
    CopyTextOut(text, version);
    return live;
  });
}

extern "C" int Tvik3DSetParent(int32_t window) {
  return fk::GuardedCall("Tvik3DSetParent", 0, [&] { return SetViewerParent(theApp.m_Viewer, window); });
}
