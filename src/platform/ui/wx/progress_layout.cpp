#include "platform/ui/wx/progress_layout.h"

#include <algorithm>

namespace fk::ui {
namespace {
constexpr int kNarrowestGauge = 20;
}  // namespace

ProgressLayout LayOutProgress(int textLines, int width, int lineHeight, int buttonWidth, int buttonHeight) {
  const int lines = std::clamp(textLines, 1, kProgressMaxLines);
  ProgressLayout layout;
  layout.width = std::max(width, 3 * kProgressMargin + kNarrowestGauge + buttonWidth);
  layout.text = {kProgressMargin, kProgressMargin, layout.width - 2 * kProgressMargin, lines * lineHeight};
  const int rowTop = layout.text.y + layout.text.height + kProgressMargin;
  layout.button = {layout.width - kProgressMargin - buttonWidth, rowTop, buttonWidth, buttonHeight};
  layout.gauge = {kProgressMargin, rowTop, layout.button.x - 2 * kProgressMargin, buttonHeight};
  layout.height = rowTop + buttonHeight + kProgressMargin;
  return layout;
}

}  // namespace fk::ui
