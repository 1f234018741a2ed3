#include "platform/draw/recording_dc.h"

namespace fk::draw {

void RecordingDC::DrawLine(Point from, Point to) {
  m_primitives.push_back({Primitive::LINE, {from, to}, SelectedPen(), 0});
}

void RecordingDC::Polyline(std::span<const Point> points) {
  m_primitives.push_back({Primitive::POLYLINE, {points.begin(), points.end()}, SelectedPen(), 0});
}

void RecordingDC::Polygon(std::span<const Point> points) {
  m_primitives.push_back({Primitive::POLYGON, {points.begin(), points.end()}, SelectedPen(), SelectedBrush()});
}

}  // namespace fk::draw
