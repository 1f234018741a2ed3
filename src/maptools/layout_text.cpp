#include "maptools/layout_text.h"

#include "platform/draw/text_metrics.h"

namespace {

// From screen pixels to the layout's units.
constexpr double kLayoutScale = 0.027;

}  // namespace

float LayoutTextHeight(const std::string& face, int points) {
  const auto size = fk::draw::MeasureScreenText(face, points, "A");
  return size ? static_cast<float>(static_cast<float>(size->height) * kLayoutScale) : 0.0f;
}

float LayoutTextLength(const std::string& text, const std::string& face, int points) {
  const auto size = fk::draw::MeasureScreenText(face, points, text + "XXX");
  return size ? static_cast<float>(static_cast<float>(size->width) * kLayoutScale) : 0.0f;
}
