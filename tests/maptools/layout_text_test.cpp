// Layout text sizes from the screen's metrics at 96 dots per inch.
#include <gtest/gtest.h>

#include "formkit/formkit.h"

TEST(LayoutText, SizesFollowTheFontAndTheText) {
  // 10 points at 96 dots per inch is an em of 96 / 72 * 10 pixels; a line of
  // text is taller than its em and less than one and a half of it.
  const double em = 96.0 / 72 * 10, scale = 0.027;
  const float height = GetLayoutTextHeight("DejaVu Sans", 10);
  EXPECT_GT(height, em * scale);
  EXPECT_LT(height, 1.5 * em * scale);
  EXPECT_GT(GetLayoutTextHeight("DejaVu Sans", 20), 1.8f * height);

  const float none = GetLayoutTextLength("", "DejaVu Sans", 10);
  const float some = GetLayoutTextLength("Bendigo", "DejaVu Sans", 10);
  EXPECT_GT(none, 0.0f) << "the three letters behind the text are measured too";
  EXPECT_GT(some, none);
  EXPECT_GT(GetLayoutTextLength("Bendigo Bendigo", "DejaVu Sans", 10), some);
}
