// nextbreak: runs the program from pc to the next event along the line,
// carrying out the opcodes that change the pen on the way.
#include "maptools/style_line.h"
#include "maptools/style_line_measures.h"

namespace stylelines {

namespace {

// The fill colour that OPC_FILLCOLOR takes when no OPC_SETCOLOR ran before
// it in the same scan: black.
constexpr std::uint32_t kNoSetColour = 0x000000;

std::uint32_t Rgb(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  return r | static_cast<std::uint32_t>(g) << 8 | static_cast<std::uint32_t>(b) << 16;
}

}  // namespace

double CStyleLine::BaseWidthOf(int w) const { return BaseWidth(w, true, m_dUnit); }

int CStyleLine::WidthOf(int w) const { return Truncate32(BaseWidthOf(w)); }

double CStyleLine::Scaled(double v) const { return ScaleByWidth(v, m_nLineWidth, m_dUnit); }

void CStyleLine::NewPen() {
  m_pDC->DeleteObject(m_hPen);
  m_hPen = m_pDC->CreatePen(m_nPenStyle, m_nWidth, m_crColour);
  m_pDC->SelectObject(m_hPen);
}

void CStyleLine::NextBreak(bool init) {
  m_dBreakLength = 0;
  m_bDrawRest = m_bSkipRest = m_bWrapped = m_bToEnd = false;
  int endPasses = 0;
  std::uint32_t lastSetColour = kNoSetColour;
  while (!m_bStalled && ScanOne(init, endPasses, lastSetColour)) {
  }
}

// Carries out the opcode at pc; false when it stops the scan.
bool CStyleLine::ScanOne(bool init, int& endPasses, std::uint32_t& lastSetColour) {
  const std::uint8_t op = Byte(0);
  switch (op) {
    case OPC_ENDPASS:
      if (init) m_say("XVTXLINE: hit OPC_ENDPASS during nextbreak init");
      m_pc = m_mark;
      m_bWrapped = true;
      // A second end in one scan: the loop from mark holds no event.
      if (++endPasses > 1) m_bStalled = true;
      return true;
    case OPC_DRAWREST: m_bDrawRest = true; return false;
    case OPC_DRAW:
    case OPC_SKIP:
    case OPC_FILLNEXT:
    case OPC_LINENEXT: m_dBreakLength = Scaled(Byte(1)); return false;
    case OPC_TICK:
    case OPC_TICKFORE:
    case OPC_TICKBACK:
    case OPC_FILLSTART:
    case OPC_LINESTART: return false;
    case OPC_MARK: Skip(1); m_mark = m_pc; return true;
    case OPC_SETWIDTH: m_nWidth = Truncate16(RoundCoord(Scaled(Byte(1)))); NewPen(); Skip(2); return true;
    case OPC_SETCOLOR:
      m_crColour = lastSetColour = Rgb(Byte(1), Byte(2), Byte(3));
      NewPen();
      Skip(4);
      return true;
    case OPC_DEFCOLOR: m_crColour = m_crDefault; NewPen(); Skip(1); return true;
    case OPC_DEFWIDTH: m_nWidth = WidthOf(m_nLineWidth); NewPen(); Skip(1); return true;
    case OPC_ADDWIDTH:
      m_nWidth = static_cast<std::int16_t>(WidthOf(Byte(1)) + WidthOf(m_nLineWidth));
      NewPen();
      Skip(2);
      return true;
    case OPC_MINWIDTH:
    case OPC_MAXWIDTH: {
      const int limit = WidthOf(Byte(1));
      if (op == OPC_MINWIDTH ? m_nWidth < limit : m_nWidth > limit) {
        m_nWidth = limit;
        NewPen();
      }
      Skip(2);
      return true;
    }
    case OPC_SKIPREST: m_bSkipRest = true; return false;
    case OPC_FILLCOLOR: m_crFill = lastSetColour; Skip(4); return true;
    case OPC_DEFFILL: m_crFill = m_crDefault; Skip(1); return true;
    case OPC_NOP: Skip(1); return true;
    case OPC_DRAWTOEND:
    case OPC_SKIPTOEND: m_bToEnd = true; return false;
    default: return false;  // above OPC_LAST: stops, leaving everything as it is
  }
}

}  // namespace stylelines
