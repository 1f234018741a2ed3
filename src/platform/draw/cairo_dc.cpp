#include "platform/draw/cairo_dc.h"

#include "platform/draw/cairo/cairo_service.h"
#include "platform/plugins/service_library.h"

#include <utility>

namespace fk::draw {
namespace {

std::vector<std::int32_t> Flat(std::span<const Point> points) {
  std::vector<std::int32_t> xy;
  for (const Point& point : points) xy.insert(xy.end(), {point.x, point.y});
  return xy;
}

}  // namespace

const fk_cairo_service* CairoService() {
  const auto entry = reinterpret_cast<fk_cairo_service_fn>(ServiceEntry(kCairoLibrary, kCairoServiceEntry));
  return entry ? entry() : nullptr;
}

std::unique_ptr<CairoDC> CairoDC::Create(const std::string& path, int width, int height, int dotsPerInch) {
  const fk_cairo_service* service = CairoService();
  void* picture = service ? service->open_picture(path.c_str(), width, height, dotsPerInch) : nullptr;
  if (!picture) return nullptr;
  return std::unique_ptr<CairoDC>(new CairoDC(*service, picture, dotsPerInch));
}

CairoDC::CairoDC(const fk_cairo_service& service, void* picture, int dotsPerInch)
    : PenAndBrushDC(dotsPerInch), m_service(service), m_pPicture(picture) {}

CairoDC::~CairoDC() { Close(); }

bool CairoDC::Close() {
  if (!m_pPicture) return false;
  Flush();
  return m_service.close_picture(std::exchange(m_pPicture, nullptr)) == 1;
}

void CairoDC::Flush() {
  if (m_pPicture && m_path.size() >= 4)
    m_service.stroke(m_pPicture, m_path.data(), static_cast<std::int32_t>(m_path.size() / 2), m_pathPen.width,
                     m_pathPen.colour);
  m_path.clear();
}

void CairoDC::DrawLine(Point from, Point to) {
  const bool continues = !m_path.empty() && m_pathPen == SelectedPen() && m_path[m_path.size() - 2] == from.x &&
                         m_path.back() == from.y;
  if (!continues) {
    Flush();
    m_pathPen = SelectedPen();
    m_path = {from.x, from.y};
  }
  m_path.insert(m_path.end(), {to.x, to.y});
}

void CairoDC::Polyline(std::span<const Point> points) {
  Flush();
  if (!m_pPicture || points.size() < 2) return;
  const std::vector<std::int32_t> xy = Flat(points);
  m_service.stroke(m_pPicture, xy.data(), static_cast<std::int32_t>(points.size()), SelectedPen().width,
                   SelectedPen().colour);
}

void CairoDC::Polygon(std::span<const Point> points) {
  Flush();
  if (!m_pPicture || points.size() < 2) return;
  const std::vector<std::int32_t> xy = Flat(points);
  m_service.fill(m_pPicture, xy.data(), static_cast<std::int32_t>(points.size()), SelectedBrush(),
                 SelectedPen().width, SelectedPen().colour);
}

void CairoDC::DrawLabel(Point at, const std::string& font, double points, const std::string& text) {
  Flush();
  if (m_pPicture) m_service.text(m_pPicture, at.x, at.y, font.c_str(), points, text.c_str(), 0);
}

}  // namespace fk::draw
