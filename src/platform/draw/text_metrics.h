// The size of a text on the screen, which is taken to have 96 dots per inch.
#pragma once

#include <optional>
#include <string>

namespace fk::draw {

struct TextSize {
  double width = 0;
  double height = 0;
};

inline constexpr double kScreenDotsPerInch = 96;

// The logical size in pixels of `text` in the font `face` of `points` size;
// nothing when text can't be measured.
std::optional<TextSize> MeasureScreenText(const std::string& face, double points, const std::string& text);

}  // namespace fk::draw
