// Contouring through the export: hand-worked cells, and random grids
// against the plain routine of contour_reference.h.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "formkit/formkit.h"
#include "maptools/contour_reference.h"

using ::testing::ElementsAre;

void PrintTo(const ContourSegment& s, std::ostream* out) {
  *out << "(" << s.x1 << "," << s.y1 << ")-(" << s.x2 << "," << s.y2 << ")@" << s.level;
}

namespace {

std::vector<ContourSegment> g_segments;

void Collect(double x1, double y1, double x2, double y2, double level) { g_segments.push_back({x1, y1, x2, y2, level}); }

// A grid of columns i, each holding the values along j.
struct Grid {
  std::vector<std::vector<double>> columns;
  std::vector<double> x, y;

  std::vector<const double*> Rows() const {
    std::vector<const double*> rows;
    for (const auto& column : columns) rows.push_back(column.data());
    return rows;
  }
};

std::vector<ContourSegment> ContourThroughExport(const Grid& g, int ilb, int iub, int jlb, int jub,
                                                 const std::vector<double>& z) {
  g_segments.clear();
  const std::vector<const double*> rows = g.Rows();
  Contour(rows.data(), ilb, iub, jlb, jub, g.x.data(), g.y.data(), static_cast<int32_t>(z.size()), z.data(), Collect);
  return g_segments;
}

TEST(ContourTest, ACellOnTheLevelGivesItsTriangleSidesWithRepeatsAndNoCellsNothing) {
  // Two flat cells: each triangle gives its outer side (case 3), so the
  // edge the cells share comes once from each.
  const Grid flat{{{5, 5}, {5, 5}, {5, 5}}, {0, 1, 2}, {0, 1}};
  EXPECT_THAT(ContourThroughExport(flat, 0, 2, 0, 1, {5}),
              ElementsAre(ContourSegment{1, 0, 0, 0, 5}, ContourSegment{1, 1, 1, 0, 5},
                          ContourSegment{0, 1, 1, 1, 5}, ContourSegment{0, 0, 0, 1, 5},
                          ContourSegment{2, 0, 1, 0, 5}, ContourSegment{2, 1, 2, 0, 5},
                          ContourSegment{1, 1, 2, 1, 5}, ContourSegment{1, 0, 1, 1, 5}));
  // Corners on the level on one diagonal, above and below on the other:
  // the centre is on the level too, and the diagonal comes in halves, twice
  // (cases 1 and 2).
  const Grid ridge{{{5, 4}, {6, 5}}, {0, 1}, {0, 1}};
  EXPECT_THAT(ContourThroughExport(ridge, 0, 1, 0, 1, {5}),
              ElementsAre(ContourSegment{0, 0, 0.5, 0.5, 5}, ContourSegment{0.5, 0.5, 1, 1, 5},
                          ContourSegment{1, 1, 0.5, 0.5, 5}, ContourSegment{0.5, 0.5, 0, 0, 5}));

  // No levels, or no cells, give nothing.
  const Grid g{{{1, 2, 3}, {4, 5, 6}}, {0, 1}, {0, 1, 2}};
  EXPECT_TRUE(ContourThroughExport(g, 0, 1, 0, 2, {}).empty());
  EXPECT_TRUE(ContourThroughExport(g, 0, 0, 0, 2, {3.5}).empty()) << "one column";
  EXPECT_TRUE(ContourThroughExport(g, 0, 1, 1, 1, {3.5}).empty()) << "one row";
  EXPECT_FALSE(ContourThroughExport(g, 0, 1, 0, 2, {3.5}).empty());
}

// Values and levels on whole numbers put corners and centres exactly on
// levels; unordered and repeated levels take the plain road; sub-ranges of
// the grid move the bounds away from 0.
TEST(ContourTest, RandomGridsGiveTheSegmentsOfThePlainRoutineInItsOrder) {
  std::mt19937 random(20240611);
  std::size_t total = 0;
  for (int round = 0; round < 400; ++round) {
    const int columns = 2 + static_cast<int>(random() % 24), rows = 2 + static_cast<int>(random() % 24);
    const bool whole = round % 2 == 0;
    std::uniform_real_distribution<double> value(-50, 50);
    Grid g;
    g.columns.assign(columns, std::vector<double>(rows));
    for (auto& column : g.columns)
      for (double& v : column) v = whole ? static_cast<double>(random() % 7) : value(random);
    double at = value(random);
    for (int i = 0; i < columns; ++i) g.x.push_back(at += 0.5 + random() % 3);
    for (int j = 0; j < rows; ++j) g.y.push_back(at -= 0.25 + random() % 2);

    std::vector<double> z(random() % 40);  // at times more levels in a cell than are traced at once
    for (double& level : z) level = whole ? static_cast<double>(random() % 8) - 0.5 * (random() % 2) : value(random);
    if (round % 5 != 0) std::sort(z.begin(), z.end());
    const int ilb = static_cast<int>(random() % columns) / 3, jlb = static_cast<int>(random() % rows) / 3;
    const int iub = columns - 1 - static_cast<int>(random() % (columns - ilb)) / 3;
    const int jub = rows - 1 - static_cast<int>(random() % (rows - jlb)) / 3;

    const std::vector<const double*> pointers = g.Rows();
    const auto expected = ReferenceContour(pointers.data(), ilb, iub, jlb, jub, g.x.data(), g.y.data(),
                                           static_cast<int>(z.size()), z.data());
    ASSERT_EQ(ContourThroughExport(g, ilb, iub, jlb, jub, z), expected) << "round " << round;
    total += expected.size();
  }
  EXPECT_GT(total, 10000u) << "the rounds draw contours at all";
}

}  // namespace
