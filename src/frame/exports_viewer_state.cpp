// Exports of the saved 3D session.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "viewer/viewer_state.h"

extern "C" int Save3DState(const char* file) {
  return fk::GuardedCall("Save3DState", 0, [&] { return Save3DState(theApp.Viewer3D(), TextArg(file)); });
}

extern "C" int Load3DState(const char* file) {
  return fk::GuardedCall("Load3DState", 0, [&] { return Load3DState(theApp.Viewer3D(), TextArg(file)); });
}

extern "C" int Refresh3D() {
  return fk::GuardedCall("Refresh3D", 0, [] { return Refresh3D(theApp.Viewer3D(), theApp.GetTempDirectory()); });
}
