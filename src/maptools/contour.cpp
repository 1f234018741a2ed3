#include "maptools/contour.h"

#include <algorithm>

namespace {

// The kind of segment a triangle gives, by the signs (-1, 0, 1 read as 0,
// 1, 2) of its corner vertex, the cell's centre and the next corner.
constexpr int kCase[3][3][3] = {
    {{0, 0, 8}, {0, 2, 5}, {7, 6, 9}},
    {{0, 3, 4}, {1, 3, 1}, {4, 3, 0}},
    {{9, 6, 7}, {5, 2, 0}, {8, 0, 0}},
};

// Along i the cells lie in different rows of d: the row a few cells ahead
// is fetched early, which hides most of the wait for memory on large grids.
constexpr int kPrefetchAhead = 16;

double Min(double a, double b) { return a < b ? a : b; }
double Max(double a, double b) { return a > b ? a : b; }

int Sign(double h) { return h > 0.0 ? 1 : (h < 0.0 ? -1 : 0); }

// One cell: vertex 0 is its centre, 1 to 4 its corners (i, j), (i + 1, j),
// (i + 1, j + 1), (i, j + 1).
struct Cell {
  double value[5];
  double xh[5];
  double yh[5];

  Cell(const double* const* d, int i, int j, const double* x, const double* y)
      : value{0, d[i][j], d[i + 1][j], d[i + 1][j + 1], d[i][j + 1]},
        xh{0.5 * (x[i] + x[i + 1]), x[i], x[i + 1], x[i + 1], x[i]},
        yh{0.5 * (y[j] + y[j + 1]), y[j], y[j], y[j + 1], y[j + 1]} {}

  double Min() const { return ::Min(::Min(value[1], value[4]), ::Min(value[2], value[3])); }
  double Max() const { return ::Max(::Max(value[1], value[4]), ::Max(value[2], value[3])); }
};

// The cell seen from one level: heights above it and their signs.
struct CellLevel {
  const Cell& cell;
  double h[5];
  int sh[5];

  CellLevel(const Cell& c, double level) : cell(c) {
    for (int m = 1; m <= 4; ++m) h[m] = c.value[m] - level;
    h[0] = 0.25 * (h[1] + h[2] + h[3] + h[4]);
    for (int m = 0; m <= 4; ++m) sh[m] = Sign(h[m]);
  }

  // Where the edge from p to q crosses the level.
  double CrossX(int p, int q) const { return (h[q] * cell.xh[p] - h[p] * cell.xh[q]) / (h[q] - h[p]); }
  double CrossY(int p, int q) const { return (h[q] * cell.yh[p] - h[p] * cell.yh[q]) / (h[q] - h[p]); }
};

// The segment of triangle (a, b, c) for its case, given to `line`.
void EmitSegment(const CellLevel& t, int kind, int a, int b, int c, double level, ContourLineFn line) {
  const double* xh = t.cell.xh;
  const double* yh = t.cell.yh;
  switch (kind) {
    case 1: line(xh[a], yh[a], xh[b], yh[b], level); break;
    case 2: line(xh[b], yh[b], xh[c], yh[c], level); break;
    case 3: line(xh[c], yh[c], xh[a], yh[a], level); break;
    case 4: line(xh[a], yh[a], t.CrossX(b, c), t.CrossY(b, c), level); break;
    case 5: line(xh[b], yh[b], t.CrossX(c, a), t.CrossY(c, a), level); break;
    case 6: line(xh[c], yh[c], t.CrossX(a, b), t.CrossY(a, b), level); break;
    case 7: line(t.CrossX(a, b), t.CrossY(a, b), t.CrossX(b, c), t.CrossY(b, c), level); break;
    case 8: line(t.CrossX(b, c), t.CrossY(b, c), t.CrossX(c, a), t.CrossY(c, a), level); break;
    case 9: line(t.CrossX(c, a), t.CrossY(c, a), t.CrossX(a, b), t.CrossY(a, b), level); break;
    default: break;
  }
}

// The four triangles (corner m, centre, next corner) at one level.
void TraceCellLevel(const Cell& cell, double level, ContourLineFn line) {
  const CellLevel t(cell, level);
  for (int m = 1; m <= 4; ++m) {
    const int next = m == 4 ? 1 : m + 1;
    const int kind = kCase[t.sh[m] + 1][t.sh[0] + 1][t.sh[next] + 1];
    if (kind != 0) EmitSegment(t, kind, m, 0, next, level, line);
  }
}

// True when every level is at most the next one (no nan among them).
bool Ascending(const double* z, int nc) {
  return std::adjacent_find(z, z + nc, [](double a, double b) { return !(a <= b); }) == z + nc;
}

// The levels from dmin to dmax, in order. With ascending levels the first
// is found by bisection and the walk stops behind dmax; otherwise every
// level is tested. Either way the same levels come in the same order.
void TraceCell(const Cell& cell, double dmin, double dmax, const double* z, int nc, bool ascending,
               ContourLineFn line) {
  if (ascending) {
    for (int k = static_cast<int>(std::lower_bound(z, z + nc, dmin) - z); k < nc && z[k] <= dmax; ++k)
      if (dmin <= z[k]) TraceCellLevel(cell, z[k], line);  // false only for a nan among the values
  } else {
    for (int k = 0; k < nc; ++k)
      if (dmin <= z[k] && z[k] <= dmax) TraceCellLevel(cell, z[k], line);
  }
}

}  // namespace

int ContourGrid(const double* const* d, int ilb, int iub, int jlb, int jub, const double* x, const double* y, int nc,
                const double* z, ContourLineFn line) {
  if (nc <= 0) return 0;
  const bool ascending = Ascending(z, nc);
  for (int j = jub - 1; j >= jlb; --j) {
    for (int i = ilb; i <= iub - 1; ++i) {
      if (i + kPrefetchAhead <= iub) __builtin_prefetch(d[i + kPrefetchAhead] + j);
      const Cell cell(d, i, j, x, y);
      const double dmin = cell.Min(), dmax = cell.Max();
      if (dmax < z[0] || dmin > z[nc - 1]) continue;
      TraceCell(cell, dmin, dmax, z, nc, ascending, line);
    }
  }
  return 0;
}
