// Exports of the map tools.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "maptools/color_objects.h"
#include "maptools/contour.h"
#include "platform/app/module_guard.h"

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
