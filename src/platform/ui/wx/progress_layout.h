// Where the parts of the progress window stand, in client coordinates:
// the text at the top, as wide as the window less its margins and as high
// as its lines; under it the Cancel button at the right and the bar
// filling the row beside it.
#pragma once

namespace fk::ui {

struct LayoutBox {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

struct ProgressLayout {
  LayoutBox text;
  LayoutBox gauge;
  LayoutBox button;
  int width = 0;   // the client area
  int height = 0;
};

constexpr int kProgressMargin = 10;
constexpr int kProgressMaxLines = 4;

// The layout for `textLines` lines (1 to 4; others are brought into that
// range) of `lineHeight` pixels in a window `width` pixels wide, with a
// button of the given size. A window too narrow for the button and a bar
// is widened to fit them.
ProgressLayout LayOutProgress(int textLines, int width, int lineHeight, int buttonWidth, int buttonHeight);

}  // namespace fk::ui
