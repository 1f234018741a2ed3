#include "maptools/contour.h"

namespace {

// The kind of segment a triangle gives, by the signs (-1, 0, 1 read as 0,
// 1, 2) of its corner vertex, the cell's centre and the next corner.
constexpr int kCase[3][3][3] = {
    {{0, 0, 8}, {0, 2, 5}, {7, 6, 9}},
    {{0, 3, 4}, {1, 3, 1}, {4, 3, 0}},
    {{9, 6, 7}, {5, 2, 0}, {8, 0, 0}},
};

// Corner offsets of vertices 1 to 4: (i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1).
constexpr int kCornerI[4] = {0, 1, 1, 0};
constexpr int kCornerJ[4] = {0, 0, 1, 1};

double Min(double a, double b) { return a < b ? a : b; }
double Max(double a, double b) { return a > b ? a : b; }

int Sign(double h) { return h > 0.0 ? 1 : (h < 0.0 ? -1 : 0); }

// One cell at one level: vertex 0 is the centre, 1 to 4 the corners.
struct CellLevel {
  double h[5];
  double xh[5];
  double yh[5];
  int sh[5];

  // Where the edge from p to q crosses the level.
  double CrossX(int p, int q) const { return (h[q] * xh[p] - h[p] * xh[q]) / (h[q] - h[p]); }
  double CrossY(int p, int q) const { return (h[q] * yh[p] - h[p] * yh[q]) / (h[q] - h[p]); }
};

// The segment of triangle (a, b, c) for its case, given to `line`.
void EmitSegment(const CellLevel& c, int kind, int a, int b, int m3, double level, ContourLineFn line) {
  switch (kind) {
    case 1: line(c.xh[a], c.yh[a], c.xh[b], c.yh[b], level); break;
    case 2: line(c.xh[b], c.yh[b], c.xh[m3], c.yh[m3], level); break;
    case 3: line(c.xh[m3], c.yh[m3], c.xh[a], c.yh[a], level); break;
    case 4: line(c.xh[a], c.yh[a], c.CrossX(b, m3), c.CrossY(b, m3), level); break;
    case 5: line(c.xh[b], c.yh[b], c.CrossX(m3, a), c.CrossY(m3, a), level); break;
    case 6: line(c.xh[m3], c.yh[m3], c.CrossX(a, b), c.CrossY(a, b), level); break;
    case 7: line(c.CrossX(a, b), c.CrossY(a, b), c.CrossX(b, m3), c.CrossY(b, m3), level); break;
    case 8: line(c.CrossX(b, m3), c.CrossY(b, m3), c.CrossX(m3, a), c.CrossY(m3, a), level); break;
    case 9: line(c.CrossX(m3, a), c.CrossY(m3, a), c.CrossX(a, b), c.CrossY(a, b), level); break;
    default: break;
  }
}

void TraceCellLevel(const double* const* d, int i, int j, const double* x, const double* y, double level,
                    ContourLineFn line) {
  CellLevel c;
  for (int m = 1; m <= 4; ++m) {
    c.h[m] = d[i + kCornerI[m - 1]][j + kCornerJ[m - 1]] - level;
    c.xh[m] = x[i + kCornerI[m - 1]];
    c.yh[m] = y[j + kCornerJ[m - 1]];
  }
  c.h[0] = 0.25 * (c.h[1] + c.h[2] + c.h[3] + c.h[4]);
  c.xh[0] = 0.5 * (x[i] + x[i + 1]);
  c.yh[0] = 0.5 * (y[j] + y[j + 1]);
  for (int m = 0; m <= 4; ++m) c.sh[m] = Sign(c.h[m]);
  for (int m = 1; m <= 4; ++m) {
    const int next = m == 4 ? 1 : m + 1;
    const int kind = kCase[c.sh[m] + 1][c.sh[0] + 1][c.sh[next] + 1];
    if (kind != 0) EmitSegment(c, kind, m, 0, next, level, line);
  }
}

}  // namespace

int ContourGrid(const double* const* d, int ilb, int iub, int jlb, int jub, const double* x, const double* y, int nc,
                const double* z, ContourLineFn line) {
  if (nc <= 0) return 0;
  for (int j = jub - 1; j >= jlb; --j) {
    for (int i = ilb; i <= iub - 1; ++i) {
      const double dmin = Min(Min(d[i][j], d[i][j + 1]), Min(d[i + 1][j], d[i + 1][j + 1]));
      const double dmax = Max(Max(d[i][j], d[i][j + 1]), Max(d[i + 1][j], d[i + 1][j + 1]));
      if (dmax < z[0] || dmin > z[nc - 1]) continue;
      for (int k = 0; k < nc; ++k)
        if (dmin <= z[k] && z[k] <= dmax) TraceCellLevel(d, i, j, x, y, z[k], line);
    }
  }
  return 0;
}
