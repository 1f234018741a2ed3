// The segments that a level gives in a cell, worked out once for every
// combination of signs, so that tracing a level is a table lookup rather
// than a chain of tests on the data.
//
// A cell is cut into four triangles around its centre: triangle m (1 to 4)
// has corner m, the centre (vertex 0) and the next corner. Each triangle
// gives at most one segment, of one of nine kinds by the signs of its
// vertices; a segment's ends are vertices of the triangle or the points
// where its edges cross the level.
#pragma once

#include <array>
#include <cstdint>

namespace fk::contour {

// The kind of segment a triangle gives, by the signs (-1, 0, 1 read as 0,
// 1, 2) of its corner vertex, the cell's centre and the next corner.
inline constexpr int kKind[3][3][3] = {
    {{0, 0, 8}, {0, 2, 5}, {7, 6, 9}},
    {{0, 3, 4}, {1, 3, 1}, {4, 3, 0}},
    {{9, 6, 7}, {5, 2, 0}, {8, 0, 0}},
};

// One end of a segment: vertex `from` itself when `to` is the same vertex,
// otherwise the point where the edge from `from` to `to` crosses the level.
struct SegmentEnd {
  std::uint8_t from, to;
};

struct SegmentShape {
  SegmentEnd ends[2];
};

// A segment of a level, coded as its triangle m and kind: m * 10 + kind.
inline constexpr int kSegmentCodes = 50;

constexpr int NextCorner(int m) { return m == 4 ? 1 : m + 1; }

// The ends of the segment of a kind in triangle (a, b, c).
constexpr SegmentShape ShapeOfKind(int kind, std::uint8_t a, std::uint8_t b, std::uint8_t c) {
  switch (kind) {
    case 1: return {{{a, a}, {b, b}}};
    case 2: return {{{b, b}, {c, c}}};
    case 3: return {{{c, c}, {a, a}}};
    case 4: return {{{a, a}, {b, c}}};
    case 5: return {{{b, b}, {c, a}}};
    case 6: return {{{c, c}, {a, b}}};
    case 7: return {{{a, b}, {b, c}}};
    case 8: return {{{b, c}, {c, a}}};
    case 9: return {{{c, a}, {a, b}}};
    default: return {{{a, a}, {a, a}}};
  }
}

// The shape of each segment code.
inline constexpr std::array<SegmentShape, kSegmentCodes> kShapes = [] {
  std::array<SegmentShape, kSegmentCodes> shapes{};
  for (int m = 1; m <= 4; ++m)
    for (int kind = 1; kind <= 9; ++kind)
      shapes[m * 10 + kind] =
          ShapeOfKind(kind, static_cast<std::uint8_t>(m), 0, static_cast<std::uint8_t>(NextCorner(m)));
  return shapes;
}();

// The segments of one level in a cell, triangle 1 first: up to four codes
// of 16 bits, the first in the lowest bits, and how many there are.
struct LevelSegments {
  std::uint64_t codes = 0;
  std::uint8_t count = 0;
};

// Index of the segments of a level, by which corners lie above it (bit
// m - 1 of `corners` for corner m), which below (bit m + 3), and the sign
// of the centre (0, 1, 2 for below, on, above).
constexpr int LevelIndex(int corners, int centre) { return corners * 3 + centre; }

inline constexpr std::array<LevelSegments, 16 * 16 * 3> kLevelSegments = [] {
  std::array<LevelSegments, 16 * 16 * 3> table{};
  for (int above = 0; above < 16; ++above)
    for (int below = 0; below < 16; ++below) {
      if (above & below) continue;
      const auto sign = [&](int m) { return (above >> (m - 1) & 1) ? 2 : (below >> (m - 1) & 1) ? 0 : 1; };
      for (int centre = 0; centre < 3; ++centre) {
        LevelSegments& level = table[LevelIndex(above | below << 4, centre)];
        for (int m = 1; m <= 4; ++m) {
          const int kind = kKind[sign(m)][centre][sign(NextCorner(m))];
          if (kind != 0) level.codes |= static_cast<std::uint64_t>(m * 10 + kind) << (16 * level.count++);
        }
      }
    }
  return table;
}();

}  // namespace fk::contour
