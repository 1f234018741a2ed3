// What every device context keeps alike: the pens and brushes it made, the
// ones selected, the current position and the saved levels. A concrete
// context only draws.
#pragma once

#include <map>
#include <vector>

#include "platform/draw/device_context.h"

namespace fk::draw {

struct PenStyle {
  int style = 0;
  int width = 0;
  std::uint32_t colour = 0;
  bool operator==(const PenStyle&) const = default;
};

class PenAndBrushDC : public DeviceContext {
 public:
  explicit PenAndBrushDC(int dotsPerInch) : m_nDotsPerInch(dotsPerInch) {}

  int SaveDC() override;
  void RestoreDC(int level) override;
  int LogPixelsX() const override { return m_nDotsPerInch; }
  ObjectId CreatePen(int style, int width, std::uint32_t colour) override;
  ObjectId CreateSolidBrush(std::uint32_t colour) override;
  ObjectId SelectObject(ObjectId object) override;
  void DeleteObject(ObjectId object) override;
  void MoveTo(Point to) override { m_ptCurrent = to; }
  void LineTo(Point to) override;

 protected:
  // A line from `from` to `to` with the selected pen.
  virtual void DrawLine(Point from, Point to) = 0;
  const PenStyle& SelectedPen() const { return m_selected.pen; }
  std::uint32_t SelectedBrush() const { return m_selected.brush; }

 private:
  struct Object {
    bool isPen = true;
    PenStyle pen;
    std::uint32_t brush = 0;
  };
  struct Selection {
    ObjectId penId = 0;
    ObjectId brushId = 0;
    PenStyle pen{0, 1, 0};       // a black pen one unit wide
    std::uint32_t brush = 0xFFFFFF;  // a white brush
    Point position;
  };

  int m_nDotsPerInch;
  std::map<ObjectId, Object> m_objects;
  ObjectId m_nNextId = 1;
  Selection m_selected;
  Point m_ptCurrent;
  std::vector<Selection> m_saved;
};

}  // namespace fk::draw
