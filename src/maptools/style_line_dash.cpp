// image_dash: what the opcode at pc draws where an event falls, and how far
// pc then moves on.
#include "maptools/style_line.h"
#include "maptools/style_line_measures.h"

namespace stylelines {

using fk::draw::Point;

void CStyleLine::ImageDash(DPoint pos, double distance, Phase phase, const Heading& heading) {
  if (m_bStalled) return;
  const Point s{RoundCoord(pos.x), RoundCoord(pos.y)};
  const std::uint8_t op = Byte(0);
  const bool moveOn = phase != PHASE_CORNER;
  switch (op) {
    case OPC_DRAWREST: m_pDC->LineTo(s); m_pDC->MoveTo(s); if (moveOn) Skip(1); break;
    case OPC_DRAW: m_pDC->LineTo(s); if (moveOn) Skip(2); break;
    case OPC_SKIP: m_pDC->MoveTo(s); if (moveOn) Skip(2); break;
    case OPC_SKIPREST: m_pDC->MoveTo(s); if (moveOn) Skip(1); break;
    case OPC_TICK:
    case OPC_TICKFORE:
    case OPC_TICKBACK: Tick(op, pos, s, heading); Skip(2); break;
    case OPC_DRAWTOEND:
    case OPC_SKIPTOEND: ToEnd(op, pos, distance, phase, s, heading); if (moveOn) Skip(2); break;
    case OPC_FILLSTART:
    case OPC_LINESTART: StartBand(op == OPC_FILLSTART, pos, heading); break;
    case OPC_FILLNEXT:
    case OPC_LINENEXT: NextBand(op == OPC_FILLNEXT, pos, distance, phase, s, heading); break;
    default: m_say("XVTXLINE: image_dash had other than Draw,Skip,Tick or Polygon"); break;
  }
  s_previousPhase = phase;
}

// A tick across the line: the low four bits of the operand are the arm to
// the left, the high four the arm to the right; OPC_TICKFORE and
// OPC_TICKBACK lean them forward or back.
void CStyleLine::Tick(std::uint8_t op, DPoint pos, Point s, const Heading& h) {
  const double left = Scaled(Byte(1) & 0x0F);
  const double right = Scaled(Byte(1) >> 4);
  const auto at = [](double x, double y) { return Point{RoundCoord(x), RoundCoord(y)}; };
  if (op == OPC_TICK) {
    m_pDC->MoveTo(left != 0 ? at(pos.x + left * h.sin, pos.y - AspectLength(left) * h.cos) : s);
    m_pDC->LineTo(right != 0 ? at(pos.x - right * h.sin, pos.y + AspectLength(right) * h.cos) : s);
    return;
  }
  const double sign = op == OPC_TICKFORE ? 1 : -1;
  if (left == 0) {
    m_pDC->MoveTo(s);
  } else {
    m_pDC->MoveTo(at(pos.x + sign * (h.sin + h.cos) * left, pos.y + sign * AspectLength(left) * (h.sin - h.cos)));
    m_pDC->LineTo(s);
  }
  if (right != 0)
    m_pDC->LineTo(at(pos.x - sign * (h.sin - h.cos) * right, pos.y + sign * AspectLength(right) * (h.sin + h.cos)));
}

// OPC_DRAWTOEND and OPC_SKIPTOEND: at the line's end they stop short by
// their length, which becomes the end length; elsewhere they go on to S.
void CStyleLine::ToEnd(std::uint8_t op, DPoint pos, double distance, Phase phase, Point s, const Heading& h) {
  const bool draw = op == OPC_DRAWTOEND;
  double length = 0;
  if (phase == PHASE_LINE_END) {
    length = Scaled(Byte(1));
    const Point end = OffsetPoint(-length, 0, pos.x, pos.y, h.sin, h.cos);
    if (!draw) m_pDC->MoveTo(end);
    else if (length <= distance) m_pDC->LineTo(end);
  } else if (draw) {
    m_pDC->LineTo(s);
  } else {
    m_pDC->MoveTo(s);
  }
  m_dEndLength = length;
}

}  // namespace stylelines
