// A device context that keeps what is drawn on it, primitive by primitive,
// with the pen and brush of each: what tests look at.
#pragma once

#include <vector>

#include "platform/draw/pen_and_brush_dc.h"

namespace fk::draw {

struct Primitive {
  enum Kind { LINE, POLYLINE, POLYGON } kind = LINE;
  std::vector<Point> points;  // a line: its two ends
  PenStyle pen;
  std::uint32_t brush = 0;    // a polygon's fill
};

class RecordingDC : public PenAndBrushDC {
 public:
  explicit RecordingDC(int dotsPerInch = 96) : PenAndBrushDC(dotsPerInch) {}

  void Polyline(std::span<const Point> points) override;
  void Polygon(std::span<const Point> points) override;
  const std::vector<Primitive>& Primitives() const { return m_primitives; }

 protected:
  void DrawLine(Point from, Point to) override;

 private:
  std::vector<Primitive> m_primitives;
};

}  // namespace fk::draw
