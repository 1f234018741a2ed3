// Exports of the map tools that need no host.
#include "formkit/formkit.h"
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
