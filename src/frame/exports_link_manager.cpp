// The export of the 3D link manager.
#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "viewer/link_manager_dlg.h"

extern "C" int TempFileManager() {
  return fk::GuardedCall("TempFileManager", 0, [] { return RunLinkManager(theApp.Viewer3D()); });
}
