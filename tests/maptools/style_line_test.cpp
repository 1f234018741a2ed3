// Line styles drawn through DrawCMStyleLine on a recording device context:
// each pen program of the table and the lines it must leave.
#include <gdal_priv.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "formkit/formkit.h"
#include "formkit/host.h"
#include "platform/draw/dc_handles.h"
#include "platform/draw/recording_dc.h"
#include "sim/host/pen_file_writer.h"
#include "support/session_fixture.h"

namespace {

using fk::draw::Point;
using fk::draw::Primitive;

// Opcodes as the pen file's language numbers them.
constexpr char END = 0, DRAWREST = 1, DRAW = 2, SKIP = 3, TICK = 4, MARK = 5, SETWIDTH = 6, SETCOLOR = 7,
               FILLSTART = 16, FILLNEXT = 17, DRAWTOEND = 23;

std::string Program(std::initializer_list<int> bytes) {
  std::string program;
  for (int byte : bytes) program += static_cast<char>(byte);
  return program;
}

struct Line {
  Point from, to;
  int width;
  std::uint32_t colour;
  bool operator==(const Line&) const = default;
};

void PrintTo(const Line& l, std::ostream* os) {
  *os << "(" << l.from.x << "," << l.from.y << ")-(" << l.to.x << "," << l.to.y << ") w" << l.width << " c"
      << std::hex << l.colour << std::dec;
}

// The lines that show: those of some length.
std::vector<Line> DrawnLines(const fk::draw::RecordingDC& dc) {
  std::vector<Line> lines;
  for (const Primitive& p : dc.Primitives())
    if (p.kind == Primitive::LINE && !(p.points[0] == p.points[1]))
      lines.push_back({p.points[0], p.points[1], p.pen.width, p.pen.colour});
  return lines;
}

// Dashes of `on` and `off` units along the x axis from 0 to `length`.
std::vector<Line> Dashes(double on, double off, double length, int width) {
  std::vector<Line> lines;
  for (double start = 0; start + on <= length; start += on + off)
    lines.push_back({{static_cast<int>(std::lround(start)), 0}, {static_cast<int>(std::lround(start + on)), 0},
                     width, 0x0000FF});
  return lines;
}

// The filled polygons, vertex by vertex.
std::vector<std::vector<Point>> Polygons(const fk::draw::RecordingDC& dc) {
  std::vector<std::vector<Point>> polygons;
  for (const Primitive& p : dc.Primitives())
    if (p.kind == Primitive::POLYGON) polygons.push_back(p.points);
  return polygons;
}

struct Case {
  const char* name;
  std::vector<std::string> passes;
  int width;
  std::vector<Point> points;
  std::vector<Line> lines;
  Point lastAfter;
  std::vector<std::vector<Point>> polygons = {};
};

const std::string kDash = Program({MARK, DRAW, 8, SKIP, 4, END});
// Tenths of a point from 10 up: width 12 is two tenths, at 96 dots per inch.
const double kTwoTenths = 2 * 96 / 720.0;

const std::vector<Case> kCases = {
    {"dash at width 1", {kDash}, 1, {{0, 0}, {48, 0}}, Dashes(8, 4, 48, 1), {48, 0}},
    {"dash at width 3", {kDash}, 3, {{0, 0}, {96, 0}}, Dashes(24, 12, 96, 3), {96, 0}},
    {"dash at width 12", {kDash}, 12, {{0, 0}, {32, 0}}, Dashes(8 * kTwoTenths, 4 * kTwoTenths, 32, 0), {32, 0}},
    {"a dash crossing a corner goes on after it",
     {kDash},
     1,
     {{0, 0}, {10, 0}, {10, 20}},
     {{{0, 0}, {8, 0}, 1, 0x0000FF}, {{10, 2}, {10, 10}, 1, 0x0000FF}, {{10, 14}, {10, 20}, 1, 0x0000FF}},
     {10, 20}},
    {"a filled band three units each side, 12 long, then the rest to the end",
     {Program({MARK, FILLSTART, 1, 3, 6, FILLNEXT, 12, 3, 6})},
     1,
     {{0, 0}, {20, 0}},
     {},
     {20, 0},
     {{{0, -3}, {12, -3}, {12, 3}, {0, 3}}, {{12, -3}, {20, -3}, {20, 3}, {12, 3}}}},
    {"three passes with their own pens",
     {Program({DRAWREST}), Program({SETCOLOR, 0x10, 0x20, 0x30, DRAWREST}), Program({SETWIDTH, 5, DRAWREST})},
     1,
     {{0, 0}, {30, 40}},
     {{{0, 0}, {30, 40}, 1, 0x0000FF}, {{0, 0}, {30, 40}, 1, 0x302010}, {{0, 0}, {30, 40}, 5, 0x0000FF}},
     {30, 40}},
    {"a segment under one unit merges into the next",
     {Program({DRAWREST})},
     1,
     {{0, 0}, {10, 0}, {10, 1}, {30, 1}},
     {{{0, 0}, {10, 0}, 1, 0x0000FF}, {{10, 0}, {30, 1}, 1, 0x0000FF}},
     {30, 1}},
    {"draw to end stops short and moves the last point",
     {Program({DRAWTOEND, 6, TICK, 0x33})},
     1,
     {{0, 0}, {40, 0}},
     {{{0, 0}, {34, 0}, 1, 0x0000FF}, {{34, -3}, {34, 3}, 1, 0x0000FF}, {{34, 3}, {34, 0}, 1, 0x0000FF}},
     {34, 0}},
};

TEST(StyleLine, PenProgramsDrawTheirLinesAndAnIndexPastTheLastPenNothing) {
  ScopedFolder folder;
  const std::string path = folder.Path() + "/styles.pen";
  for (const Case& c : kCases) {
    ASSERT_TRUE(sim::WritePenFile(path, {{Program({DRAWREST})}, c.passes}));
    auto dc = std::make_shared<fk::draw::RecordingDC>();
    std::vector<Point> points = c.points;
    DrawCMStyleLine(fk::draw::AddDeviceContext(dc), path.c_str(), 1, 0x0000FF, c.width, &points[0].x,
                    static_cast<int32_t>(points.size()));
    EXPECT_EQ(DrawnLines(*dc), c.lines) << c.name;
    EXPECT_EQ(Polygons(*dc), c.polygons) << c.name;
    EXPECT_EQ(points.back(), c.lastAfter) << c.name;
  }
  auto dc = std::make_shared<fk::draw::RecordingDC>();
  std::vector<Point> points = {{0, 0}, {50, 0}};
  DrawCMStyleLine(fk::draw::AddDeviceContext(dc), path.c_str(), GetCartomaPenCount(path.c_str()), 0, 1,
                  &points[0].x, 2);
  EXPECT_TRUE(dc->Primitives().empty());
}

// Ink (255 less the red level) of the PNG at `path`, row by row.
std::vector<std::vector<int>> Ink(const std::string& path) {
  GDALAllRegister();
  GDALDatasetUniquePtr picture(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
  std::vector<std::vector<int>> ink;
  if (!picture) return ink;
  const int width = picture->GetRasterXSize(), height = picture->GetRasterYSize();
  std::vector<std::uint8_t> row(static_cast<std::size_t>(width));
  for (int y = 0; y < height; ++y) {
    if (picture->GetRasterBand(1)->RasterIO(GF_Read, 0, y, width, 1, row.data(), width, 1, GDT_Byte, 0, 0) != CE_None)
      return {};
    ink.emplace_back();
    for (std::uint8_t level : row) ink.back().push_back(255 - level);
  }
  return ink;
}

int InkIn(const std::vector<std::vector<int>>& ink, int top, int bottom, int left, int right) {
  int sum = 0;
  for (int y = top; y < bottom; ++y)
    for (int x = left; x < right; ++x) sum += ink[y][x];
  return sum;
}

TEST(StyleLine, APictureHasInkOnTheDashesOnly) {
  ScopedFolder folder;
  const std::string pens = folder.Path() + "/styles.pen", png = folder.Path() + "/line.png";
  ASSERT_TRUE(sim::WritePenFile(pens, {{kDash}}));
  const std::int32_t dc = fk_create_file_dc(png.c_str(), 100, 40, 96);
  ASSERT_NE(dc, 0);
  std::vector<Point> points = {{10, 20}, {90, 20}};
  DrawCMStyleLine(dc, pens.c_str(), 0, 0x000000, 3, &points[0].x, 2);
  ASSERT_EQ(fk_close_dc(dc), 1);
  const auto ink = Ink(png);
  ASSERT_EQ(ink.size(), 40u);
  // Three units wide about y = 20: dashes of 24 from x = 10, 46 and 82, gaps of 12.
  EXPECT_EQ(InkIn(ink, 0, 18, 0, 100) + InkIn(ink, 22, 40, 0, 100), 0);
  EXPECT_EQ(InkIn(ink, 18, 22, 0, 10) + InkIn(ink, 18, 22, 35, 45) + InkIn(ink, 18, 22, 71, 81), 0);
  for (const int dashStart : {10, 46, 82})
    EXPECT_GT(InkIn(ink, 19, 21, dashStart + 1, std::min(dashStart + 23, 90)), 255 * 2 * 6) << dashStart;
}

}  // namespace
