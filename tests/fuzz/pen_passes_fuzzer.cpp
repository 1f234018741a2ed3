// The pen file reader on any bytes, under the sanitizers: every pen the
// directory names is read, and what comes back lies inside the file. Each
// pen read is then drawn along a polyline with corners, a short segment and
// a turn back, on a recording device context, at a thin and a thick width.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "host/pen_file.h"
#include "maptools/style_line.h"
#include "platform/draw/pen_and_brush_dc.h"

namespace {

using fuzz::Require;

const std::string& PenPath() {
  static const std::string path = fuzz::ScratchFolder("pen") + "/a.pen";
  return path;
}

// Counts what is drawn instead of keeping it: a recording of every dash
// would make each input a few thousand allocations.
class CountingDC : public fk::draw::PenAndBrushDC {
 public:
  CountingDC() : PenAndBrushDC(96) {}
  void Polyline(std::span<const fk::draw::Point> points) override { m_nPoints += points.size(); }
  void Polygon(std::span<const fk::draw::Point> points) override { m_nPoints += points.size(); }

 protected:
  void DrawLine(fk::draw::Point, fk::draw::Point) override { m_nPoints += 2; }

 private:
  std::size_t m_nPoints = 0;
};

void DrawEveryWay(const std::vector<std::string>& passes) {
  static stylelines::CStyleLine interpreter([](const char*) {});
  // A short line keeps a pen of many events per unit quick to run.
  for (const std::int16_t width : {1, 20}) {
    CountingDC dc;
    std::vector<fk::draw::Point> points = {{0, 0}, {12, 0}, {12, 1}, {20, 8}, {6, 14}, {6, 14}, {-2, 3}};
    interpreter.Draw(dc, passes, 0x123456, width, points);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::WriteFile(PenPath(), data, size);
  const int count = ReadPenCount(PenPath());
  std::vector<std::string> passes;
  for (int index = -1; index <= count && index < 8; ++index) {
    if (!ReadPenPasses(PenPath(), index, passes)) {
      Require(passes.empty());
      continue;
    }
    DrawEveryWay(passes);
    std::size_t bytes = 0;
    for (const std::string& pass : passes) bytes += pass.size() + 1;
    Require(index >= 0 && index < count && bytes + 3 <= size);  // the record head, then its passes
  }
  return 0;
}
