// Where the parts of the progress window stand.
#include "platform/ui/wx/progress_layout.h"

#include <gtest/gtest.h>

namespace {

using namespace fk::ui;

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
