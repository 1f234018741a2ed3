// The progress window of long exports and conversions: up to four lines of
// text, a bar, and a Cancel button. It pumps the calling thread's main loop
// itself, so a loop on that thread stays responsive and can be cancelled
// without a second thread. The title shows the percentage.
//
// Callers: construct; SetText; SetRange(0, n, 1); for each record StepIt,
// PeekAndPump(true), and leave the loop when Cancelled() is set.
#pragma once

#include <memory>
#include <string>

#include "platform/text/format.h"
#include "platform/ui/progress_view.h"

class CProgressWnd {
 public:
  // Made and shown at once; the title is "Progress" when none is given.
  explicit CProgressWnd(const std::string& title = {}, bool smooth = false);
  ~CProgressWnd();
  CProgressWnd(const CProgressWnd&) = delete;
  CProgressWnd& operator=(const CProgressWnd&) = delete;

  void SetRange(int lower, int upper, int step = 1);
  template <typename... Args>
  void SetText(std::string_view format, const Args&... args) {
    SetTextLine(fk::Format(format, args...));
  }
  // Moves the bar; the window's title follows the rounded percentage.
  int SetPos(int position);
  int StepIt();
  // Lets what waits run; Cancel (and Escape, when `cancelOnEscape`) ends
  // the work.
  void PeekAndPump(bool cancelOnEscape = true);
  void Show();
  void SetWindowSize(int textLines, int width = 390);
  void OnCancel();
  bool Cancelled() const { return m_bCancelled != 0; }

  int m_bCancelled = 0;
  int m_bModal = 0;
  int m_bPersistantPosition = 1;
  int m_nPrevPos = 0;
  int m_nPrevPercent = 0;
  int m_nStep = 1;
  int m_nMaxValue = 100;
  int m_nMinValue = 0;
  int m_nNumTextLines = 4;
  std::string m_strTitle;
  std::string m_strCancelLabel;

 private:
  void SetTextLine(const std::string& text);
  void GetPreviousSettings();
  void SaveCurrentSettings();

  std::unique_ptr<fk::ui::ProgressView> m_view;
};
