// The line style interpreter: draws a polyline in a style of the host's pen
// file, pass by pass, running each pass's byte program along the line.
// Not re-entrant: the line state is one set for the module.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/draw/device_context.h"

namespace stylelines {

// The opcodes of a pass's program.
enum Opcode : std::uint8_t {
  OPC_ENDPASS, OPC_DRAWREST, OPC_DRAW, OPC_SKIP, OPC_TICK, OPC_MARK, OPC_SETWIDTH, OPC_SETCOLOR, OPC_DEFCOLOR,
  OPC_DEFWIDTH, OPC_ADDWIDTH, OPC_MINWIDTH, OPC_MAXWIDTH, OPC_TICKFORE, OPC_TICKBACK, OPC_SKIPREST,
  OPC_FILLSTART, OPC_FILLNEXT, OPC_LINESTART, OPC_LINENEXT, OPC_FILLCOLOR, OPC_DEFFILL, OPC_NOP,
  OPC_DRAWTOEND, OPC_SKIPTOEND, OPC_LAST = OPC_SKIPTOEND
};

inline constexpr int kMaxPoints = 512;
inline constexpr int kPenStyle = 512;

// Where an event falls: a corner inside a span, the end of a span, the end of the line.
enum Phase { PHASE_CORNER = 0, PHASE_SPAN_END = 1, PHASE_LINE_END = 2 };

struct DPoint {
  double x = 0;
  double y = 0;
};

// The direction of the present segment.
struct Heading {
  double sin = 0;
  double cos = 1;
  double angle = 0;
};

class CStyleLine {
 public:
  // `say` shows the interpreter's messages, as a message box would.
  explicit CStyleLine(std::function<void(const char*)> say) : m_say(std::move(say)) {}

  // Draws `points` with each pass of a pen in turn, in `colour` and at
  // `lineWidth`. The end-of-line rule may move the last point.
  void Draw(fk::draw::DeviceContext& dc, const std::vector<std::string>& passes, std::uint32_t colour,
            std::int16_t lineWidth, std::span<fk::draw::Point> points);

 private:
  void ClearState();
  void RunPass(const std::string& program, std::span<fk::draw::Point> points);
  void DrawStyledPolyline(std::span<fk::draw::Point> points);
  void DrawSegment(fk::draw::Point p0, fk::draw::Point& p1, bool last);
  void DrawLastPart(fk::draw::Point& p1, double rem, double len, const Heading& heading);
  void FinishPass(fk::draw::Point p1, double tail, const Heading& heading);
  void Advance(DPoint& pos, double length, const Heading& heading) const;

  // nextbreak and its opcodes
  void NextBreak(bool init);
  bool ScanOne(bool init, int& endPasses, std::uint32_t& lastSetColour);
  void NewPen();
  int WidthOf(int w) const;
  double BaseWidthOf(int w) const;
  double Scaled(double v) const;

  // image_dash and the polygon bands
  void ImageDash(DPoint pos, double distance, Phase phase, const Heading& heading);
  void Tick(std::uint8_t op, DPoint pos, fk::draw::Point s, const Heading& heading);
  void ToEnd(std::uint8_t op, DPoint pos, double distance, Phase phase, fk::draw::Point s, const Heading& h);
  void StartBand(bool filled, DPoint pos, const Heading& heading);
  void NextBand(bool filled, DPoint pos, double distance, Phase phase, fk::draw::Point s, const Heading& h);
  void AddCorner(bool filled, const Heading& heading);
  void AddVertices(bool filled, DPoint pos, const Heading& heading);
  void SetOffsets(bool filled, double remaining, double distance);
  void CloseUp(bool filled);
  void DrawBand(bool filled);

  // The program, bounded: bytes past its end read as 0 (OPC_ENDPASS), and
  // pc never goes past its end.
  std::uint8_t Byte(std::size_t offset) const;
  void Skip(std::size_t bytes);

  // Kept from one call to the next.
  static bool s_bNewRun;
  static Phase s_previousPhase;

  std::function<void(const char*)> m_say;  // said per event: a literal, no allocation
  fk::draw::DeviceContext* m_pDC = nullptr;
  const std::string* m_pProgram = nullptr;
  bool m_bStalled = false;  // the program loops with nothing along the line

  // the line state
  std::size_t m_pc = 0;
  std::size_t m_mark = 0;
  double m_dBreakLength = 0;
  bool m_bDrawRest = false, m_bSkipRest = false, m_bWrapped = false, m_bToEnd = false;
  std::int16_t m_nMaxPoints = kMaxPoints;
  double m_dEndLength = 0;
  double m_dUnit = 1;
  std::vector<fk::draw::Point> m_points;
  std::int16_t m_nLineWidth = 0;
  fk::draw::ObjectId m_hPen = 0;
  std::int32_t m_nPenStyle = kPenStyle;
  std::uint32_t m_crColour = 0;
  std::int32_t m_nWidth = 0;
  std::uint32_t m_crDefault = 0;
  std::uint32_t m_crFill = 0;
  std::int16_t m_nCrossSections = 0;
  std::int16_t m_nTotalPoints = 0, m_nLeftCount = 0, m_nRightCount = 0;
  double m_dSpanDistance = 0;
  double m_dLeftOffset = 0, m_dRightOffset = 0;
  double m_dLastAngle = 0;
  double m_dCornerX = 0, m_dCornerY = 0;
  std::int32_t m_nRunStartX = 0, m_nRunStartY = 0;
};

// What draws a polyline in a pen of the file at `path`: nothing when the
// file or the pen can't be read.
void DrawCMStyleLine(fk::draw::DeviceContext& dc, const std::string& path, int index, std::uint32_t colour,
                     std::int16_t lineWidth, std::span<fk::draw::Point> points);

}  // namespace stylelines
