// Exports of the selection handles and of the selection passed to the viewer.
#include <vector>

#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "viewer/selection_handles.h"

namespace {

std::string SelectionFile() { return SelectionFileOnDisk(theApp.m_strDXFSelectionFile); }

// The box edge as it stands at the start of the call.
double BoxEdge() { return static_cast<double>(theApp.m_nPointSize); }

std::vector<SelectionBox> BoxesOf(int count, const double* x, const double* y, const double* z,
                                  const double* fallbackHeight, const double* tilt, const double* turn,
                                  const double* height) {
  std::vector<SelectionBox> boxes;
  for (int i = 0; i < count; ++i)
    boxes.push_back({x[i], y[i], z[i], height[i], fallbackHeight[i], tilt[i], turn[i]});
  return boxes;
}

}  // namespace

extern "C" int AddSelectionHandle(double x, double y, double z, double tilt, double turn) {
  return fk::GuardedCall("AddSelectionHandle", 0, [&] {
    const double edge = BoxEdge();
    return AddSelectionHandle(theApp.Viewer3D(), SelectionFile(), edge, {x, y, z, edge, edge, tilt, turn});
  });
}

extern "C" int AddSelectionHandles(int count, const double* x, const double* y, const double* z,
                                   const double* fallbackHeight, const double* tilt, const double* turn,
                                   const double* height, int permanent) {
  return fk::GuardedCall("AddSelectionHandles", 0, [&] {
    const double edge = BoxEdge();
    const std::vector<SelectionBox> boxes = BoxesOf(count, x, y, z, fallbackHeight, tilt, turn, height);
    return AddSelectionHandles(theApp.Viewer3D(), SelectionFile(), edge, boxes, permanent);
  });
}

extern "C" int ClearSelectionHandles() {
  return fk::GuardedCall("ClearSelectionHandles", 0,
                         [] { return ClearSelectionHandles(theApp.Viewer3D(), SelectionFile()); });
}

extern "C" int SetSelectionFile(const char* path) {
  return fk::GuardedCall("SetSelectionFile", 0, [&] {
    theApp.m_strDXFSelectionFile = TextArg(path);
    return 1;
  });
}

extern "C" int SelectIn3D(const char* name, int32_t value) {
  return fk::GuardedCall("SelectIn3D", 0, [&] { return SelectIn3D(theApp.m_Viewer, TextArg(name), value); });
}

extern "C" int SetAssociatedCoordSystem(const char* name, const char* coordSys) {
  return fk::GuardedCall("SetAssociatedCoordSystem", 0, [&] {
    return SetAssociatedCoordSystem(theApp.m_Viewer, TextArg(name), TextArg(coordSys));
  });
}
