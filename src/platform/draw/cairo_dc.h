// A device context over a picture file (PNG, SVG or PDF) drawn with Cairo,
// which is loaded on first use. Lines drawn end to end with one pen are
// stroked as one polyline, so their corners join.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/draw/pen_and_brush_dc.h"

struct fk_cairo_service;

namespace fk::draw {

class CairoDC : public PenAndBrushDC {
 public:
  // A white picture of width × height device units; null when Cairo can't be
  // loaded or the file can't be made.
  static std::unique_ptr<CairoDC> Create(const std::string& path, int width, int height, int dotsPerInch);
  ~CairoDC() override;

  void Polyline(std::span<const Point> points) override;
  void Polygon(std::span<const Point> points) override;
  // A label, not part of what styles draw: `text` with its top left at `at`.
  void DrawLabel(Point at, const std::string& font, double points, const std::string& text);
  // Writes the file; true when written. Nothing is drawn afterwards.
  bool Close();

 protected:
  void DrawLine(Point from, Point to) override;

 private:
  CairoDC(const fk_cairo_service& service, void* picture, int dotsPerInch);
  void Flush();

  const fk_cairo_service& m_service;
  void* m_pPicture;
  std::vector<std::int32_t> m_path;  // x, y pairs of lines not stroked yet
  PenStyle m_pathPen;
};

// Cairo's service table, loaded on first use; null when it can't be loaded.
const fk_cairo_service* CairoService();

}  // namespace fk::draw
