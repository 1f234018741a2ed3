#include "platform/draw/pen_and_brush_dc.h"

#include <utility>

namespace fk::draw {

int PenAndBrushDC::SaveDC() {
  Selection saved = m_selected;
  saved.position = m_ptCurrent;
  m_saved.push_back(saved);
  return static_cast<int>(m_saved.size());
}

void PenAndBrushDC::RestoreDC(int level) {
  if (level < 1 || level > static_cast<int>(m_saved.size())) return;
  m_selected = m_saved[level - 1];
  m_ptCurrent = m_selected.position;
  m_saved.resize(level - 1);
}

ObjectId PenAndBrushDC::CreatePen(int style, int width, std::uint32_t colour) {
  m_objects[m_nNextId] = Object{true, PenStyle{style, width, colour}, 0};
  return m_nNextId++;
}

ObjectId PenAndBrushDC::CreateSolidBrush(std::uint32_t colour) {
  m_objects[m_nNextId] = Object{false, {}, colour};
  return m_nNextId++;
}

ObjectId PenAndBrushDC::SelectObject(ObjectId object) {
  const auto found = m_objects.find(object);
  if (found == m_objects.end()) return 0;
  if (found->second.isPen) {
    m_selected.pen = found->second.pen;
    return std::exchange(m_selected.penId, object);
  }
  m_selected.brush = found->second.brush;
  return std::exchange(m_selected.brushId, object);
}

void PenAndBrushDC::DeleteObject(ObjectId object) { m_objects.erase(object); }

void PenAndBrushDC::LineTo(Point to) {
  DrawLine(m_ptCurrent, to);
  m_ptCurrent = to;
}

}  // namespace fk::draw
