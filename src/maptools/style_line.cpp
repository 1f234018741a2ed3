#include "maptools/style_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "maptools/style_line_measures.h"

namespace stylelines {

using fk::draw::Point;

bool CStyleLine::s_bNewRun = true;
Phase CStyleLine::s_previousPhase = PHASE_SPAN_END;

namespace {

// Events of no length in a row after which a program is taken to loop with
// nothing along the line (a loop of ticks, an opcode that never moves on).
constexpr int kMaxIdleEvents = 1024;

}  // namespace

std::uint8_t CStyleLine::Byte(std::size_t offset) const {
  const std::size_t at = m_pc + offset;
  return at < m_pProgram->size() ? static_cast<std::uint8_t>((*m_pProgram)[at]) : 0;
}

void CStyleLine::Skip(std::size_t bytes) { m_pc = std::min(m_pc + bytes, m_pProgram->size()); }

void CStyleLine::Advance(DPoint& pos, double length, const Heading& heading) const {
  pos.x += length * heading.cos;
  pos.y += AspectLength(length) * heading.sin;
}

void CStyleLine::Draw(fk::draw::DeviceContext& dc, const std::vector<std::string>& passes, std::uint32_t colour,
                      std::int16_t lineWidth, std::span<Point> points) {
  m_pDC = &dc;
  const int saved = dc.SaveDC();
  const int dotsPerInch = dc.LogPixelsX();
  m_dUnit = dotsPerInch > 0 ? static_cast<double>(kXResolution) / dotsPerInch : 1.0;
  m_nMaxPoints = kMaxPoints;
  m_points.assign(kMaxPoints, Point{});
  ClearState();
  m_nLineWidth = lineWidth;
  m_crDefault = colour;
  for (const std::string& program : passes) RunPass(program, points);
  dc.RestoreDC(saved);
  m_pDC = nullptr;
}

void CStyleLine::ClearState() {
  m_dBreakLength = m_dEndLength = m_dSpanDistance = 0;
  m_bDrawRest = m_bSkipRest = m_bWrapped = m_bToEnd = false;
  m_nCrossSections = m_nTotalPoints = m_nLeftCount = m_nRightCount = 0;
  m_dLeftOffset = m_dRightOffset = m_dLastAngle = m_dCornerX = m_dCornerY = 0;
  m_nRunStartX = m_nRunStartY = 0;
}

void CStyleLine::RunPass(const std::string& program, std::span<Point> points) {
  m_pProgram = &program;
  m_pc = m_mark = 0;
  m_bStalled = false;
  m_nPenStyle = kPenStyle;
  m_crColour = m_crDefault = m_crFill = m_crDefault;
  m_nWidth = static_cast<std::int16_t>(WidthOf(m_nLineWidth));
  m_hPen = m_pDC->CreatePen(m_nPenStyle, m_nWidth, m_crColour);
  const fk::draw::ObjectId linePen = m_pDC->CreatePen(m_nPenStyle, m_nWidth, m_crColour);
  const fk::draw::ObjectId brush = m_pDC->CreateSolidBrush(m_crColour);
  m_pDC->SelectObject(linePen);
  m_pDC->SelectObject(brush);
  if (!points.empty()) DrawStyledPolyline(points);
  m_pDC->DeleteObject(m_hPen);
  m_pDC->DeleteObject(linePen);
  m_pDC->DeleteObject(brush);
}

void CStyleLine::DrawStyledPolyline(std::span<Point> points) {
  NextBreak(true);
  m_pDC->MoveTo(points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) DrawSegment(points[i - 1], points[i], i + 1 == points.size());
  m_pDC->LineTo(points.back());
}

void CStyleLine::DrawSegment(Point p0, Point& p1, bool last) {
  if (std::exchange(s_bNewRun, false)) {
    m_nRunStartX = p0.x;
    m_nRunStartY = p0.y;
  }
  const double dx = static_cast<double>(p1.x) - m_nRunStartX;
  const double dyS = ToXUnits(static_cast<double>(p1.y) - m_nRunStartY);
  const double len = std::sqrt(dx * dx + dyS * dyS);
  if (!last && len <= m_dUnit) return;
  if (len <= 0) {
    s_bNewRun = true;
    return;
  }
  const Heading heading{dyS / len, dx / len, std::atan2(dyS, dx)};
  DPoint pos{static_cast<double>(m_nRunStartX), static_cast<double>(m_nRunStartY)};
  double rem = len;
  for (int idle = 0; !m_bDrawRest && !m_bSkipRest && !m_bToEnd && !m_bStalled && m_dBreakLength <= rem;) {
    const std::size_t pc = m_pc;
    if (m_dBreakLength > 0) {
      Advance(pos, m_dBreakLength, heading);
      rem -= m_dBreakLength;
      idle = 0;
    }
    ImageDash(pos, m_dBreakLength, PHASE_SPAN_END, heading);
    NextBreak(false);
    if (m_dBreakLength <= 0 && (m_pc == pc || ++idle > kMaxIdleEvents)) m_bStalled = true;
  }
  if (last) return DrawLastPart(p1, rem, len, heading);
  if (rem <= 0) {
    s_bNewRun = true;
    return;
  }
  ImageDash({static_cast<double>(p1.x), static_cast<double>(p1.y)}, rem, PHASE_CORNER, heading);
  m_dBreakLength -= rem;
  s_bNewRun = true;
}

// The line's last stretch: the last event, then the end-of-line rule, which
// moves the caller's last point back by the end length.
void CStyleLine::DrawLastPart(Point& p1, double rem, double len, const Heading& heading) {
  const bool finish = m_bDrawRest || m_bSkipRest || m_bToEnd;
  const bool toEnd = m_bToEnd;
  m_dBreakLength = rem;
  ImageDash({static_cast<double>(p1.x), static_cast<double>(p1.y)}, rem, PHASE_LINE_END, heading);
  NextBreak(false);
  double tail = 0;
  if (toEnd) {
    tail = std::min(m_dEndLength, len);
    if (tail > 0) {
      p1.x += Truncate16(-(heading.cos * tail));
      p1.y += Truncate16(-(AspectLength(tail) * heading.sin));
      m_pDC->MoveTo(p1);
    }
  }
  if (finish) FinishPass(p1, tail, heading);
  s_bNewRun = true;
}

void CStyleLine::FinishPass(Point p1, double tail, const Heading& heading) {
  m_pDC->MoveTo(p1);
  DPoint pos{static_cast<double>(p1.x), static_cast<double>(p1.y)};
  for (int idle = 0; !m_bWrapped && !m_bStalled;) {
    Advance(pos, m_dBreakLength, heading);
    ImageDash(pos, tail, PHASE_SPAN_END, heading);
    NextBreak(false);
    if (tail < m_dBreakLength) {
      Advance(pos, tail, heading);
      ImageDash(pos, tail, PHASE_LINE_END, heading);
      m_bWrapped = true;
    }
    tail -= m_dBreakLength;
    idle = m_dBreakLength > 0 ? 0 : idle + 1;
    if (idle > kMaxIdleEvents) m_bStalled = true;
  }
}

}  // namespace stylelines
