// The polygon bands: a filled band or a line that follows the line at an
// offset, vertex by vertex, with a mitred vertex at each corner; the left
// side fills the point buffer from the front, a filled band's right side
// from the back.
#include <cmath>
#include <span>

#include "maptools/style_line.h"
#include "maptools/style_line_measures.h"

namespace stylelines {

using fk::draw::Point;

namespace {

constexpr double kHalfTurn = 3.14159;

}  // namespace

void CStyleLine::StartBand(bool filled, DPoint pos, const Heading& h) {
  m_nCrossSections = Byte(1);
  m_nTotalPoints = static_cast<std::int16_t>(filled ? 2 * m_nCrossSections + 2 : m_nCrossSections + 1);
  m_nLeftCount = m_nRightCount = 0;
  m_dLeftOffset = AspectLength(Scaled(Byte(2)));
  if (filled) m_dRightOffset = AspectLength(Scaled(Byte(2) - Byte(3)));
  AddVertices(filled, pos, h);
  m_dSpanDistance = 0;
  Skip(filled ? 4 : 3);
}

void CStyleLine::NextBand(bool filled, DPoint pos, double distance, Phase phase, Point s, const Heading& h) {
  if (s_previousPhase == PHASE_CORNER) AddCorner(filled, h);
  const double spanLength = Scaled(Byte(1));
  if (phase == PHASE_SPAN_END) {
    m_dLeftOffset = AspectLength(Scaled(Byte(2)));
    if (filled) m_dRightOffset = AspectLength(Scaled(Byte(2) - Byte(3)));
    AddVertices(filled, pos, h);
    m_dSpanDistance = 0;
  } else if (phase == PHASE_CORNER) {
    m_dSpanDistance += distance;
    SetOffsets(filled, spanLength - m_dSpanDistance, distance);
    m_dCornerX = pos.x;
    m_dCornerY = pos.y;
    m_dLastAngle = h.angle;
  } else {
    SetOffsets(filled, spanLength - (m_dSpanDistance + distance), distance);
    AddVertices(filled, pos, h);
    CloseUp(filled);
    m_dSpanDistance = 0;
  }
  if (m_nLeftCount + m_nRightCount == m_nTotalPoints) {
    DrawBand(filled);
    m_pDC->MoveTo(s);
  }
  if (phase != PHASE_CORNER) Skip(filled ? 4 : 3);
}

// Both sides' offsets part of the way from where they are to the span's width.
void CStyleLine::SetOffsets(bool filled, double remaining, double distance) {
  const double covered = Truncate16(distance);
  m_dLeftOffset = InterpolateWidth(remaining, AspectLength(Scaled(Byte(2))), covered, m_dLeftOffset);
  if (filled)
    m_dRightOffset = InterpolateWidth(remaining, AspectLength(Scaled(Byte(2) - Byte(3))), covered, m_dRightOffset);
}

// A vertex on each side at `pos`; none once the band's slots are taken.
void CStyleLine::AddVertices(bool filled, DPoint pos, const Heading& h) {
  if (m_nLeftCount + m_nRightCount < m_nTotalPoints)
    m_points[m_nLeftCount++] = OffsetPoint(0, m_dLeftOffset, pos.x, pos.y, h.sin, h.cos);
  if (filled && m_nLeftCount + m_nRightCount < m_nTotalPoints)
    m_points[m_nTotalPoints - 1 - m_nRightCount++] = OffsetPoint(0, m_dRightOffset, pos.x, pos.y, h.sin, h.cos);
}

// The vertices of the last corner, on the line that halves it.
void CStyleLine::AddCorner(bool filled, const Heading& h) {
  const int room = filled ? 2 : 1;
  if (m_nTotalPoints + room <= m_nMaxPoints) {
    for (int k = m_nRightCount - 1; k >= 0; --k)
      m_points[m_nTotalPoints + room - m_nRightCount + k] = m_points[m_nTotalPoints - m_nRightCount + k];
    m_nTotalPoints = static_cast<std::int16_t>(m_nTotalPoints + room);
  }
  double mitre = (m_dLastAngle + h.angle) / 2;
  if ((h.angle < 0 && h.angle < m_dLastAngle - kHalfTurn) || (h.angle > 0 && h.angle > m_dLastAngle + kHalfTurn))
    mitre += kHalfTurn;
  const Heading corner{std::sin(mitre), std::cos(mitre), mitre};
  AddVertices(filled, {m_dCornerX, m_dCornerY}, corner);
}

// Unused slots between the two sides are closed up.
void CStyleLine::CloseUp(bool filled) {
  const int used = m_nLeftCount + m_nRightCount;
  if (used >= m_nTotalPoints) return;
  if (filled)
    for (int k = 0; k < m_nRightCount; ++k) m_points[m_nLeftCount + k] = m_points[m_nTotalPoints - m_nRightCount + k];
  m_nTotalPoints = static_cast<std::int16_t>(used);
}

void CStyleLine::DrawBand(bool filled) {
  if (m_nTotalPoints < 2) return;  // no band was started: nothing to draw
  const std::span<const Point> vertices(m_points.data(), static_cast<std::size_t>(m_nTotalPoints));
  m_pDC->SelectObject(m_hPen);
  if (!filled) return m_pDC->Polyline(vertices);
  const fk::draw::ObjectId brush = m_pDC->CreateSolidBrush(m_crFill);
  const fk::draw::ObjectId before = m_pDC->SelectObject(brush);
  m_pDC->Polygon(vertices);
  m_pDC->SelectObject(before);
  m_pDC->DeleteObject(brush);
}

}  // namespace stylelines
