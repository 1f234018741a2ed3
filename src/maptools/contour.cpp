#include "maptools/contour.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "maptools/contour_cases.h"

namespace {

using namespace fk::contour;

// Two doubles worked on together: x and y of a point, or one value twice.
// The compiler's vector types give the same arithmetic as on single doubles,
// in one instruction where the processor has one.
using Pair = double __attribute__((vector_size(16)));
using PairMask = std::int64_t __attribute__((vector_size(16)));

Pair Both(double value) { return Pair{value, value}; }

// For each segment code, a mask of both lanes for each end that is a vertex.
struct EndMasks {
  PairMask atVertex[2];
};
constexpr std::array<EndMasks, kSegmentCodes> kEndMasks = [] {
  std::array<EndMasks, kSegmentCodes> masks{};
  for (int code = 0; code < kSegmentCodes; ++code)
    for (int e = 0; e < 2; ++e) {
      const std::int64_t vertex = kShapes[code].ends[e].from == kShapes[code].ends[e].to ? -1 : 0;
      masks[code].atVertex[e] = PairMask{vertex, vertex};
    }
  return masks;
}();

// Along i the cells lie in different rows of d: the row a few cells ahead
// is fetched early, which hides most of the wait for memory on large grids.
constexpr int kPrefetchAhead = 16;

double Min(double a, double b) { return a < b ? a : b; }
double Max(double a, double b) { return a > b ? a : b; }

// One cell: vertex 0 is its centre, 1 to 4 its corners (i, j), (i + 1, j),
// (i + 1, j + 1), (i, j + 1).
struct Cell {
  Pair corners12, corners34;  // values of corners 1 and 2, 3 and 4
  Pair xy[5];                 // each vertex's x and y

  Cell(const double* const* d, int i, int j, const double* x, const double* y)
      : corners12{d[i][j], d[i + 1][j]},
        corners34{d[i + 1][j + 1], d[i][j + 1]},
        xy{{0.5 * (x[i] + x[i + 1]), 0.5 * (y[j] + y[j + 1])},
           {x[i], y[j]},
           {x[i + 1], y[j]},
           {x[i + 1], y[j + 1]},
           {x[i], y[j + 1]}} {}

  double Min() const { return ::Min(::Min(corners12[0], corners34[1]), ::Min(corners12[1], corners34[0])); }
  double Max() const { return ::Max(::Max(corners12[0], corners34[1]), ::Max(corners12[1], corners34[0])); }
};

// Which corners lie above the level (bits 0 to 3) and which below (bits 4
// to 7), from their heights above it.
int CornerSigns(Pair h12, Pair h34) {
  const Pair zero = Both(0.0);
  const PairMask bits = ((h12 > zero) & PairMask{1, 2}) | ((h34 > zero) & PairMask{4, 8}) |
                        ((h12 < zero) & PairMask{16, 32}) | ((h34 < zero) & PairMask{64, 128});
  return static_cast<int>(bits[0] | bits[1]);
}

// `a` in the lanes that `mask` sets, `b` in the others.
Pair Select(PairMask mask, Pair a, Pair b) {
  return reinterpret_cast<Pair>((reinterpret_cast<PairMask>(a) & mask) | (reinterpret_cast<PairMask>(b) & ~mask));
}

// A batch of levels through one cell. Adding a level works out its heights
// and the codes of the segments it gives, with no branch on the data; the
// segments are then drawn one after the other, each from its shape, again
// with no branch on its kind.
class LevelBatch {
 public:
  static constexpr int kLevels = 16;

  bool Full() const { return m_levels == kLevels; }

  void Add(const Cell& cell, double level) {
    const Pair h12 = cell.corners12 - Both(level), h34 = cell.corners34 - Both(level);
    const double centre = 0.25 * (h12[0] + h12[1] + h34[0] + h34[1]);
    Pair* h = m_heights[m_levels];
    h[0] = Both(centre);
    h[1] = Both(h12[0]);
    h[2] = Both(h12[1]);
    h[3] = Both(h34[0]);
    h[4] = Both(h34[1]);
    const LevelSegments& found = kLevelSegments[LevelIndex(CornerSigns(h12, h34), (centre > 0.0) - (centre < 0.0) + 1)];
    // Four codes are written whatever the count; only `count` of them stay.
    const std::uint64_t codes = found.codes | static_cast<std::uint64_t>(m_levels << 6) * 0x0001000100010001ull;
    std::memcpy(m_segments + m_count, &codes, sizeof codes);
    m_count += found.count;
    m_value[m_levels++] = level;
  }

  // Gives the batch's segments to `line`, in order, and empties the batch.
  void Draw(const Cell& cell, ContourLineFn line) {
    for (int s = 0; s < m_count; ++s) {
      const int slot = m_segments[s] >> 6;
      const int code = m_segments[s] & 63;
      const Pair first = EndPoint(cell, m_heights[slot], kShapes[code].ends[0], kEndMasks[code].atVertex[0]);
      const Pair second = EndPoint(cell, m_heights[slot], kShapes[code].ends[1], kEndMasks[code].atVertex[1]);
      line(first[0], first[1], second[0], second[1], m_value[slot]);
    }
    m_levels = m_count = 0;
  }

 private:
  // The vertex itself, or where the edge crosses the level:
  // (h[to] * p[from] - h[from] * p[to]) / (h[to] - h[from]) for x and y.
  // Both are worked out and one is kept, which costs less than a branch
  // that the data would decide.
  static Pair EndPoint(const Cell& cell, const Pair* h, SegmentEnd end, PairMask atVertex) {
    const Pair from = cell.xy[end.from], to = cell.xy[end.to];
    const Pair cross = (h[end.to] * from - h[end.from] * to) / (h[end.to] - h[end.from]);
    return Select(atVertex, from, cross);
  }

  Pair m_heights[kLevels][5];  // heights above each level, centre first, twice
  double m_value[kLevels];
  std::uint16_t m_segments[kLevels * 4 + 4];  // level in the batch << 6 | segment code
  int m_levels = 0;
  int m_count = 0;
};

// True when every level is at most the next one (no nan among them).
bool Ascending(const double* z, int nc) {
  return std::adjacent_find(z, z + nc, [](double a, double b) { return !(a <= b); }) == z + nc;
}

// The levels from dmin to dmax, in order. With ascending levels the first
// is found by bisection and the walk stops behind dmax; otherwise every
// level is tested. Either way the same levels come in the same order.
void TraceCell(const Cell& cell, double dmin, double dmax, const double* z, int nc, bool ascending,
               ContourLineFn line) {
  LevelBatch batch;
  const auto take = [&](double level) {
    batch.Add(cell, level);
    if (batch.Full()) batch.Draw(cell, line);
  };
  if (ascending) {
    for (int k = static_cast<int>(std::lower_bound(z, z + nc, dmin) - z); k < nc && z[k] <= dmax; ++k)
      if (dmin <= z[k]) take(z[k]);  // false only for a nan among the values
  } else {
    for (int k = 0; k < nc; ++k)
      if (dmin <= z[k] && z[k] <= dmax) take(z[k]);
  }
  batch.Draw(cell, line);
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
