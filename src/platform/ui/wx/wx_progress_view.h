// The progress window over the toolkit: a small frame that stays on top,
// 390 by 130 at first, with up to four lines of text, a bar and a Cancel
// button. It runs no loop of its own: Pump handles what waits for the
// calling thread, without blocking, and tells whether Cancel (the button,
// the close box, or Escape when that counts) was asked for since the last
// pump.
#pragma once

#include <memory>

#include "platform/ui/progress_view.h"
#include "platform/ui/wx/progress_layout.h"

class wxButton;
class wxEventLoopBase;
class wxFrame;
class wxGauge;
class wxPanel;
class wxStaticText;

namespace fk::ui {

class WxProgressView : public ProgressView {
 public:
  explicit WxProgressView(bool smooth);
  ~WxProgressView() override;
  WxProgressView(const WxProgressView&) = delete;
  WxProgressView& operator=(const WxProgressView&) = delete;

  void SetTitle(const std::string& title) override;
  void SetText(const std::string& text) override;
  void SetCancelLabel(const std::string& label) override;
  void SetRange(int lower, int upper) override;
  int SetPos(int position) override;
  void SetLayout(int textLines, int width) override;
  void Show() override;
  void Hide() override;
  bool IsVisible() const override;
  void Center() override;
  ScreenPoint Position() const override;
  void Move(ScreenPoint topLeft) override;
  ScreenPoint ScreenSize() const override;
  bool Pump(bool escapeCancels) override;

 private:
  ProgressLayout PlaceParts(int textLines, int width);
  void ShowPosition();
  void DispatchPending();

  wxFrame* m_frame = nullptr;
  wxPanel* m_panel = nullptr;
  wxStaticText* m_text = nullptr;
  wxGauge* m_gauge = nullptr;
  wxButton* m_cancel = nullptr;
  std::unique_ptr<wxEventLoopBase> m_loop;  // pumps when no loop runs
  int m_nLines = 0;
  int m_nWidth = 0;
  int m_nLower = 0, m_nUpper = 100, m_nPos = 0;
  bool m_bCancelPressed = false;
  bool m_bEscapePressed = false;
};

}  // namespace fk::ui
