// Where the parts of the progress window stand.
#include "platform/ui/wx/progress_layout.h"

#include <gtest/gtest.h>

namespace {

using namespace fk::ui;

bool operator==(const LayoutBox& a, const LayoutBox& b) {
  return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

TEST(ProgressLayout, TextOnTopThenTheBarBesideTheButtonWithinMargins) {
  const ProgressLayout layout = LayOutProgress(4, 390, 16, 80, 30);
  EXPECT_TRUE(layout.text == (LayoutBox{10, 10, 370, 64}));
  EXPECT_TRUE(layout.button == (LayoutBox{300, 84, 80, 30}));
  EXPECT_TRUE(layout.gauge == (LayoutBox{10, 84, 280, 30}));
  EXPECT_EQ(layout.width, 390);
  EXPECT_EQ(layout.height, 124);
}

TEST(ProgressLayout, OneToFourLinesAndRoomForTheBarAndButton) {
  EXPECT_EQ(LayOutProgress(0, 390, 16, 80, 30).height, LayOutProgress(1, 390, 16, 80, 30).height);
  EXPECT_EQ(LayOutProgress(9, 390, 16, 80, 30).height, LayOutProgress(4, 390, 16, 80, 30).height);
  EXPECT_EQ(LayOutProgress(2, 390, 16, 80, 30).height - LayOutProgress(1, 390, 16, 80, 30).height, 16);

  const ProgressLayout narrow = LayOutProgress(1, 50, 16, 80, 30);
  EXPECT_EQ(narrow.width, 130) << "margins, the narrowest bar and the button";
  EXPECT_EQ(narrow.gauge.width, 20);
  EXPECT_EQ(narrow.button.x + narrow.button.width + 10, narrow.width);
}

}  // namespace
