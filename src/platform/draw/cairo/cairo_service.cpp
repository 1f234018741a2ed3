// libformkit-cairo.so: pictures on Cairo surfaces (PNG, SVG, PDF) and text
// measured with Pango. Shows only its entry point.
#include "platform/draw/cairo/cairo_service.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <pango/pangocairo.h>

#include <string>

namespace {

struct Picture {
  cairo_surface_t* surface = nullptr;
  cairo_t* cr = nullptr;
  std::string pngPath;  // empty for a vector picture, written as it is drawn
};

bool EndsWith(const std::string& text, const char* tail) {
  const std::string end(tail);
  if (text.size() < end.size()) return false;
  std::string last = text.substr(text.size() - end.size());
  for (char& c : last) c = static_cast<char>(c | 0x20);
  return last == end;
}

cairo_surface_t* MakeSurface(const std::string& path, int width, int height, double pointsPerUnit) {
  if (EndsWith(path, ".svg")) return cairo_svg_surface_create(path.c_str(), width * pointsPerUnit, height * pointsPerUnit);
  if (EndsWith(path, ".pdf")) return cairo_pdf_surface_create(path.c_str(), width * pointsPerUnit, height * pointsPerUnit);
  if (EndsWith(path, ".png")) return cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
  return nullptr;
}

void SetColour(cairo_t* cr, std::uint32_t colour) {
  cairo_set_source_rgb(cr, (colour & 0xFF) / 255.0, (colour >> 8 & 0xFF) / 255.0, (colour >> 16 & 0xFF) / 255.0);
}

void* OpenPicture(const char* path, std::int32_t width, std::int32_t height, std::int32_t dpi) {
  if (!path || width <= 0 || height <= 0 || dpi <= 0) return nullptr;
  const double pointsPerUnit = 72.0 / dpi;
  cairo_surface_t* surface = MakeSurface(path, width, height, pointsPerUnit);
  if (!surface || cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
    if (surface) cairo_surface_destroy(surface);
    return nullptr;
  }
  auto* picture = new Picture{surface, cairo_create(surface), EndsWith(path, ".png") ? path : ""};
  if (picture->pngPath.empty()) cairo_scale(picture->cr, pointsPerUnit, pointsPerUnit);
  SetColour(picture->cr, 0xFFFFFF);
  cairo_paint(picture->cr);
  return picture;
}

int ClosePicture(void* opened) {
  auto* picture = static_cast<Picture*>(opened);
  if (!picture) return 0;
  cairo_destroy(picture->cr);
  bool written = picture->pngPath.empty() ||
                 cairo_surface_write_to_png(picture->surface, picture->pngPath.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_finish(picture->surface);
  written = written && cairo_surface_status(picture->surface) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(picture->surface);
  delete picture;
  return written ? 1 : 0;
}

void AddPath(cairo_t* cr, const std::int32_t* xy, std::int32_t count) {
  cairo_new_path(cr);
  for (std::int32_t i = 0; i < count; ++i) {
    if (i == 0) cairo_move_to(cr, xy[0], xy[1]);
    else cairo_line_to(cr, xy[2 * i], xy[2 * i + 1]);
  }
}

// A pen of width 0 or less draws one unit wide, as the platform's pens do.
void SetPen(cairo_t* cr, std::int32_t width, std::uint32_t colour) {
  cairo_set_line_width(cr, width > 0 ? width : 1);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
  SetColour(cr, colour);
}

void Stroke(void* picture, const std::int32_t* xy, std::int32_t count, std::int32_t width, std::uint32_t colour) {
  cairo_t* cr = static_cast<Picture*>(picture)->cr;
  AddPath(cr, xy, count);
  SetPen(cr, width, colour);
  cairo_stroke(cr);
}

void Fill(void* picture, const std::int32_t* xy, std::int32_t count, std::uint32_t fill, std::int32_t width,
          std::uint32_t colour) {
  cairo_t* cr = static_cast<Picture*>(picture)->cr;
  AddPath(cr, xy, count);
  cairo_close_path(cr);
  SetColour(cr, fill);
  cairo_fill_preserve(cr);
  SetPen(cr, width, colour);
  cairo_stroke(cr);
}

PangoLayout* MakeLayout(cairo_t* cr, const char* font, double points, const char* text) {
  PangoLayout* layout = pango_cairo_create_layout(cr);
  PangoFontDescription* description = pango_font_description_from_string(font);
  pango_font_description_set_size(description, static_cast<gint>(points * PANGO_SCALE));
  pango_layout_set_font_description(layout, description);
  pango_font_description_free(description);
  pango_layout_set_text(layout, text, -1);
  return layout;
}

void Text(void* picture, std::int32_t x, std::int32_t y, const char* font, double points, const char* text,
          std::uint32_t colour) {
  cairo_t* cr = static_cast<Picture*>(picture)->cr;
  PangoLayout* layout = MakeLayout(cr, font, points, text);
  SetColour(cr, colour);
  cairo_move_to(cr, x, y);
  pango_cairo_show_layout(cr, layout);
  g_object_unref(layout);
}

int Measure(const char* font, double points, double dpi, const char* text, double* width, double* height) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1);
  cairo_t* cr = cairo_create(surface);
  PangoLayout* layout = MakeLayout(cr, font, points, text);
  pango_cairo_context_set_resolution(pango_layout_get_context(layout), dpi);
  pango_layout_context_changed(layout);
  PangoRectangle logical{};
  pango_layout_get_pixel_extents(layout, nullptr, &logical);
  *width = logical.width;
  *height = logical.height;
  g_object_unref(layout);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
  return 1;
}

const fk_cairo_service kService = {OpenPicture, ClosePicture, Stroke, Fill, Text, Measure};

}  // namespace

extern "C" __attribute__((visibility("default"))) const fk_cairo_service* fk_cairo_service_table() {
  return &kService;
}
