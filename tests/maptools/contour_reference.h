// The classic contouring routine written out plainly, level by level from
// the first, as the yardstick of the library's faster one: the same
// segments must come in the same order.
#pragma once

#include <algorithm>
#include <vector>

struct ContourSegment {
  double x1, y1, x2, y2, level;
  bool operator==(const ContourSegment&) const = default;
};

// Each segment goes to `emit(x1, y1, x2, y2, level)`.
template <typename Emit>
void ClassicContour(const double* const* d, int ilb, int iub, int jlb, int jub, const double* x, const double* y,
                    int nc, const double* z, Emit&& emit) {
  static const int castab[3][3][3] = {{{0, 0, 8}, {0, 2, 5}, {7, 6, 9}},
                                      {{0, 3, 4}, {1, 3, 1}, {4, 3, 0}},
                                      {{9, 6, 7}, {5, 2, 0}, {8, 0, 0}}};
  static const int im[4] = {0, 1, 1, 0};
  static const int jm[4] = {0, 0, 1, 1};
  if (nc <= 0) return;
  double h[5], xh[5], yh[5];
  int sh[5];
  for (int j = jub - 1; j >= jlb; j--) {
    for (int i = ilb; i <= iub - 1; i++) {
      const double dmin = std::min({d[i][j], d[i][j + 1], d[i + 1][j], d[i + 1][j + 1]});
      const double dmax = std::max({d[i][j], d[i][j + 1], d[i + 1][j], d[i + 1][j + 1]});
      if (dmax < z[0] || dmin > z[nc - 1]) continue;
      for (int k = 0; k < nc; k++) {
        if (z[k] < dmin || z[k] > dmax) continue;
        for (int m = 4; m >= 0; m--) {
          if (m > 0) {
            h[m] = d[i + im[m - 1]][j + jm[m - 1]] - z[k];
            xh[m] = x[i + im[m - 1]];
            yh[m] = y[j + jm[m - 1]];
          } else {
            h[0] = 0.25 * (h[1] + h[2] + h[3] + h[4]);
            xh[0] = 0.50 * (x[i] + x[i + 1]);
            yh[0] = 0.50 * (y[j] + y[j + 1]);
          }
          sh[m] = h[m] > 0.0 ? 1 : (h[m] < 0.0 ? -1 : 0);
        }
        const auto xsect = [&](int p, int q) { return (h[q] * xh[p] - h[p] * xh[q]) / (h[q] - h[p]); };
        const auto ysect = [&](int p, int q) { return (h[q] * yh[p] - h[p] * yh[q]) / (h[q] - h[p]); };
        for (int m = 1; m <= 4; m++) {
          const int m1 = m, m2 = 0, m3 = m != 4 ? m + 1 : 1;
          const int c = castab[sh[m1] + 1][sh[m2] + 1][sh[m3] + 1];
          double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
          switch (c) {
            case 0: continue;
            case 1: x1 = xh[m1]; y1 = yh[m1]; x2 = xh[m2]; y2 = yh[m2]; break;
            case 2: x1 = xh[m2]; y1 = yh[m2]; x2 = xh[m3]; y2 = yh[m3]; break;
            case 3: x1 = xh[m3]; y1 = yh[m3]; x2 = xh[m1]; y2 = yh[m1]; break;
            case 4: x1 = xh[m1]; y1 = yh[m1]; x2 = xsect(m2, m3); y2 = ysect(m2, m3); break;
            case 5: x1 = xh[m2]; y1 = yh[m2]; x2 = xsect(m3, m1); y2 = ysect(m3, m1); break;
            case 6: x1 = xh[m3]; y1 = yh[m3]; x2 = xsect(m1, m2); y2 = ysect(m1, m2); break;
            case 7: x1 = xsect(m1, m2); y1 = ysect(m1, m2); x2 = xsect(m2, m3); y2 = ysect(m2, m3); break;
            case 8: x1 = xsect(m2, m3); y1 = ysect(m2, m3); x2 = xsect(m3, m1); y2 = ysect(m3, m1); break;
            case 9: x1 = xsect(m3, m1); y1 = ysect(m3, m1); x2 = xsect(m1, m2); y2 = ysect(m1, m2); break;
          }
          emit(x1, y1, x2, y2, z[k]);
        }
      }
    }
  }
}

inline std::vector<ContourSegment> ReferenceContour(const double* const* d, int ilb, int iub, int jlb, int jub,
                                                    const double* x, const double* y, int nc, const double* z) {
  std::vector<ContourSegment> out;
  ClassicContour(d, ilb, iub, jlb, jub, x, y, nc, z,
                 [&](double x1, double y1, double x2, double y2, double level) { out.push_back({x1, y1, x2, y2, level}); });
  return out;
}
