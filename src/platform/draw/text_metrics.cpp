#include "platform/draw/text_metrics.h"

#include "platform/draw/cairo/cairo_service.h"
#include "platform/draw/cairo_dc.h"

namespace fk::draw {

std::optional<TextSize> MeasureScreenText(const std::string& face, double points, const std::string& text) {
  const fk_cairo_service* service = CairoService();
  TextSize size;
  if (!service || !service->measure(face.c_str(), points, kScreenDotsPerInch, text.c_str(), &size.width, &size.height))
    return std::nullopt;
  return size;
}

}  // namespace fk::draw
