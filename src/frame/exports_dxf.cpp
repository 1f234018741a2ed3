// The DXF exports: each forwards to the one writer, theApp.m_DXF.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"

extern "C" int DXFCreate(const char* file) {
  return fk::GuardedCall("DXFCreate", 0, [&] { return theApp.m_DXF.DXFCreate(TextArg(file)); });
}

extern "C" int DXFCreateWithBounds(const char* file, double minX, double minY, double minZ, double maxX, double maxY,
                                   double maxZ) {
  return fk::GuardedCall("DXFCreateWithBounds", 0, [&] {
    return theApp.m_DXF.DXFCreateWithBounds(TextArg(file), minX, minY, minZ, maxX, maxY, maxZ);
  });
}

extern "C" int DXFColor(int32_t rgb) {
  return fk::GuardedCall("DXFColor", 0, [&] { return theApp.m_DXF.DXFColor(rgb); });
}

extern "C" int DXFPoint(double x, double y, double z) {
  return fk::GuardedCall("DXFPoint", 0, [&] { return theApp.m_DXF.DXFPoint(x, y, z); });
}

extern "C" int DXFLine(double x1, double y1, double z1, double x2, double y2, double z2) {
  return fk::GuardedCall("DXFLine", 0, [&] { return theApp.m_DXF.DXFLine(x1, y1, z1, x2, y2, z2); });
}

extern "C" int DXFPolyline(const double* x, const double* y, const double* z, int32_t count) {
  return fk::GuardedCall("DXFPolyline", 0, [&] { return theApp.m_DXF.DXFPolyline(x, y, z, count); });
}

extern "C" int DXFRegion(const double* x, const double* y, const double* z, int32_t count) {
  return fk::GuardedCall("DXFRegion", 0, [&] { return theApp.m_DXF.DXFRegion(x, y, z, count); });
}

extern "C" int DXFClose(void) {
  return fk::GuardedCall("DXFClose", 0, [&] { return theApp.m_DXF.DXFClose(); });
}
