// A progress window without a screen. On a terminal it draws a bar on
// standard error; elsewhere (a log, a pipe) it writes a plain line for each
// new text and each tenth of the way. Ctrl-C while it is shown asks to
// cancel, as the Cancel button would. It pumps the calling thread's main loop like the window does.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/ui/progress_view.h"

namespace fk::ui {

// What a progress window showed, kept after the window is gone.
struct ProgressRecord {
  std::string title;
  std::string text;
  int lower = 0, upper = 100, pos = 0;
  int titleChanges = 0;
  bool shown = false;
};

class HeadlessProgress : public ProgressView {
 public:
  // `cancelRequested` is asked at each pump whether to cancel; `record`
  // keeps what the window shows.
  HeadlessProgress(std::function<bool()> cancelRequested, std::shared_ptr<ProgressRecord> record);
  ~HeadlessProgress() override;

  void SetTitle(const std::string& title) override;
  void SetText(const std::string& text) override;
  void SetCancelLabel(const std::string&) override {}
  void SetRange(int lower, int upper) override;
  int SetPos(int position) override;
  void SetLayout(int textLines, int width) override;
  void Show() override;
  void Hide() override;
  bool IsVisible() const override { return m_record->shown; }
  void Center() override;
  ScreenPoint Position() const override { return m_position; }
  void Move(ScreenPoint topLeft) override { m_position = topLeft; }
  ScreenPoint ScreenSize() const override { return {1024, 768}; }
  bool Pump(bool escapeCancels) override;

  // Quiet windows show nothing on standard error (the command line's --quiet).
  static void SetQuiet(bool quiet);

 private:
  void Draw();
  void DrawBar(double fraction) const;
  void WriteLine(double fraction);

  std::function<bool()> m_cancelRequested;
  std::shared_ptr<ProgressRecord> m_record;
  int m_nWidth = 390, m_nHeight = 130;
  bool m_bTerminal = false;
  std::string m_strLastLine;
  ScreenPoint m_position;
};

}  // namespace fk::ui
