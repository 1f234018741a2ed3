// Exports of the map tools.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "maptools/color_objects.h"
#include "maptools/contour.h"
#include "maptools/reproject_dlg.h"
#include "maptools/section_dlg.h"
#include "maptools/window_list_dlg.h"
#include "platform/app/module_guard.h"

namespace {

// The caller's items and ticks into the box; the ticks back on OK only.
bool RunWindowList(CWindowListDlg& box, const char** items, int32_t* ticks, int32_t count) {
  for (int32_t i = 0; i < count; ++i) {
    box.m_Items.push_back(TextArg(items ? items[i] : nullptr));
    box.m_Ticks.push_back(ticks ? ticks[i] : 0);
  }
  if (box.DoModal() != fk::ui::IDOK) return false;
  for (int32_t i = 0; ticks && i < count; ++i) ticks[i] = box.m_Ticks[static_cast<std::size_t>(i)];
  return true;
}

}  // namespace

extern "C" int Contour(const double* const* d, int32_t ilb, int32_t iub, int32_t jlb, int32_t jub, const double* x,
                       const double* y, int32_t nc, const double* z,
                       void (*line)(double x1, double y1, double x2, double y2, double level)) {
  return fk::GuardedCall("Contour", 0, [&] {
    if (!d || !x || !y || !z || !line) return 0;
    return ContourGrid(d, ilb, iub, jlb, jub, x, y, nc, z, line);
  });
}

extern "C" int ColorTableObjects(const char* table, const char* outputPath, const char* column1, const char* column2,
                                 const char* column3, float factor1, float factor2, float factor3, int32_t mode,
                                 int32_t apply) {
  return fk::GuardedCall("ColorTableObjects", 0, [&] {
    ColorObjectsRequest request{TextArg(table), TextArg(outputPath), {TextArg(column1), TextArg(column2), TextArg(column3)},
                                {factor1, factor2, factor3}, mode, apply != 0};
    return RunColorTableObjects(request);
  });
}

extern "C" int SetLayerSectionPlane(int32_t dispatch) {
  return fk::GuardedCall("SetLayerSectionPlane", 0, [&] {
    theApp.Connect(dispatch, 1);
    CSectionDlg box;
    return box.DoModal() == fk::ui::IDOK ? 1 : 0;
  });
}

extern "C" int MultiReProject(int32_t dispatch) {
  return fk::GuardedCall("MultiReProject", 0, [&] {
    CReProjectDlg box;
    theApp.Connect(dispatch, 1);
    return box.DoModal() == fk::ui::IDOK ? 1 : 0;
  });
}

extern "C" int LinkWinodowListDialog(const char** items, int32_t* ticks, int32_t count, int32_t* method,
                                     int32_t dispatch) {
  return fk::GuardedCall("LinkWinodowListDialog", 0, [&] {
    theApp.Connect(dispatch, 1);
    CLinkedWindowsDlg box;
    box.m_nMethod = method ? *method : 0;
    if (!RunWindowList(box, items, ticks, count)) return 0;
    if (method) *method = box.m_nMethod;
    return 1;
  });
}

extern "C" int CurPosWinodowListDialog(const char** items, int32_t* ticks, int32_t count, int32_t* pan, char* symbol) {
  return fk::GuardedCall("CurPosWinodowListDialog", 0, [&] {
    CCurPosDlg box;
    box.m_bPan = pan ? *pan : 0;
    box.m_strSymbol = TextArg(symbol);
    if (!RunWindowList(box, items, ticks, count)) return 0;
    if (pan) *pan = box.m_bPan;
    CopyTextOut(box.m_strSymbol, symbol);
    return 1;
  });
}
