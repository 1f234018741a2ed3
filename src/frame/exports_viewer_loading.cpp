// Exports that put files into the viewer, and of the session's file records.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "viewer/drillhole_project.h"
#include "viewer/series_loaders.h"
#include "viewer/viewer_loading.h"

extern "C" int LoadDXFFile(const char* file) {
  return fk::GuardedCall("LoadDXFFile", 0, [&] { return LoadPermDXFFile(theApp.Viewer3D(), TextArg(file), 0); });
}

extern "C" int LoadPermDXFFile(const char* file, int permanent) {
  return fk::GuardedCall("LoadPermDXFFile", 0,
                         [&] { return LoadPermDXFFile(theApp.Viewer3D(), TextArg(file), permanent); });
}

extern "C" int LoadOGBFile(const char* file) {
  return fk::GuardedCall("LoadOGBFile", 0, [&] { return LoadPermOGBFile(theApp.Viewer3D(), TextArg(file), 0); });
}

extern "C" int LoadPermOGBFile(const char* file, int permanent) {
  return fk::GuardedCall("LoadPermOGBFile", 0,
                         [&] { return LoadPermOGBFile(theApp.Viewer3D(), TextArg(file), permanent); });
}

extern "C" int LoadLogOGBFile(const char* file, int show) {
  return fk::GuardedCall("LoadLogOGBFile", 0,
                         [&] { return LoadPermLogOGBFile(theApp.Viewer3D(), TextArg(file), show, 0); });
}

extern "C" int LoadPermLogOGBFile(const char* file, int show, int permanent) {
  return fk::GuardedCall("LoadPermLogOGBFile", 0,
                         [&] { return LoadPermLogOGBFile(theApp.Viewer3D(), TextArg(file), show, permanent); });
}

extern "C" int AddOGBFilePart(const char* file, const char* part, int load) {
  return fk::GuardedCall("AddOGBFilePart", 0,
                         [&] { return AddOGBFilePart(theApp.Viewer3D(), TextArg(file), TextArg(part), load); });
}

extern "C" int ClearLogOGBFile() {
  return fk::GuardedCall("ClearLogOGBFile", 0, [] { return ClearLogOGBFile(theApp.Viewer3D()); });
}

extern "C" int RemoveOGBFileIfUnused(const char* file) {
  return fk::GuardedCall("RemoveOGBFileIfUnused", 0,
                         [&] { return RemoveOGBFileIfUnused(theApp.Viewer3D(), TextArg(file)); });
}

extern "C" int ViewGridIn3D(const char* grid) {
  return fk::GuardedCall("ViewGridIn3D", 0, [&] { return ViewGridIn3D(theApp.Viewer3D(), TextArg(grid)); });
}

extern "C" int SetTempFileDeleteOnDestoy(int flag) {
  return fk::GuardedCall("SetTempFileDeleteOnDestoy", flag, [&] {
    theApp.m_TempFiles.m_bDeleteOnDestroy = flag;
    return flag;
  });
}

extern "C" int SetTempFileDirectory(const char* directory) {
  return fk::GuardedCall("SetTempFileDirectory", 0, [&] {
    theApp.m_strTempDirectory = TextArg(directory);
    return 1;
  });
}

extern "C" int LoadTabPoints(const char* name, const char* path) {
  return fk::GuardedCall("LoadTabPoints", 0,
                         [&] { return LoadTabSeries(theApp.Viewer3D(), TAB_POINTS, TextArg(name), TextArg(path)); });
}

extern "C" int LoadTabLines(const char* name, const char* path) {
  return fk::GuardedCall("LoadTabLines", 0,
                         [&] { return LoadTabSeries(theApp.Viewer3D(), TAB_LINES, TextArg(name), TextArg(path)); });
}

extern "C" int IsDrillHoleProjectOpen() {
  return fk::GuardedCall("IsDrillHoleProjectOpen", 0, [] { return IsDrillHoleProjectOpen(theApp.Viewer3D().viewer); });
}
