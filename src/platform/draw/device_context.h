// The device context that line styles are drawn on: the few drawing calls of
// the platform's graphics interface that the style renderer uses, in device
// units (one unit a pixel), with colours as 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <span>

namespace fk::draw {

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const Point&) const = default;
};

// A pen or a brush made by a device context; 0 is none.
using ObjectId = std::int32_t;

// The pen style of flat line ends.
inline constexpr int PS_ENDCAP_FLAT = 0x200;

class DeviceContext {
 public:
  virtual ~DeviceContext() = default;

  // Saves the selected pen and brush and the current position; the level.
  virtual int SaveDC() = 0;
  // Goes back to what SaveDC saved at `level`.
  virtual void RestoreDC(int level) = 0;
  // Dots per inch across.
  virtual int LogPixelsX() const = 0;

  virtual ObjectId CreatePen(int style, int width, std::uint32_t colour) = 0;
  virtual ObjectId CreateSolidBrush(std::uint32_t colour) = 0;
  // Selects a pen or a brush; the one of its kind selected before.
  virtual ObjectId SelectObject(ObjectId object) = 0;
  // Drops an object; a selected one stays in use until another replaces it.
  virtual void DeleteObject(ObjectId object) = 0;

  virtual void MoveTo(Point to) = 0;
  // A line with the selected pen from the current position, which moves to `to`.
  virtual void LineTo(Point to) = 0;
  virtual void Polyline(std::span<const Point> points) = 0;
  // A closed area filled with the selected brush and outlined with the pen.
  virtual void Polygon(std::span<const Point> points) = 0;
};

}  // namespace fk::draw
