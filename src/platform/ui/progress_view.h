// The window of a long loop: a title, a few lines of text, a progress bar
// and a Cancel button, drawn by the backend.
#pragma once

#include <string>

namespace fk::ui {

struct ScreenPoint {
  int x = 0;
  int y = 0;
};

class ProgressView {
 public:
  virtual ~ProgressView() = default;
  virtual void SetTitle(const std::string& title) = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual void SetCancelLabel(const std::string& label) = 0;
  virtual void SetRange(int lower, int upper) = 0;
  // Moves the bar; the previous position.
  virtual int SetPos(int position) = 0;
  // Room for `textLines` lines of text in a window `width` pixels wide.
  virtual void SetLayout(int textLines, int width) = 0;
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual bool IsVisible() const = 0;
  virtual void Center() = 0;
  virtual ScreenPoint Position() const = 0;
  virtual void Move(ScreenPoint topLeft) = 0;
  virtual ScreenPoint ScreenSize() const = 0;
  // Handles what waits for the calling thread's main loop. True when the
  // user asked to cancel: the Cancel button, or Escape when it counts.
  virtual bool Pump(bool escapeCancels) = 0;
};

}  // namespace fk::ui
