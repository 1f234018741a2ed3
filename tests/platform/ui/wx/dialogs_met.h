// Dialog boxes met as they open, in order: one is shown and used, another
// answered without being shown (a message box's button, a file box's
// path). The toolkit calls a modal dialog hook before any box shows.
#pragma once

#include <wx/modalhook.h>

#include <deque>
#include <functional>

class wxDialog;

// The dialog boxes that open while it lives, each met by the next queued
// action. A box with nothing queued is a failure and is closed unanswered.
class DialogsMet : public wxModalDialogHook {
 public:
  DialogsMet() { Register(); }
  ~DialogsMet() override;

  // The next box is shown; `actions` run once its loop runs. A box the
  // actions left open is a failure, and is closed with Cancel.
  void Use(std::function<void(wxDialog&)> actions);
  // The next box is not shown: `answer` looks at it and gives the id of
  // the button pressed.
  void Answer(std::function<int(wxDialog&)> answer);
  // How many boxes opened.
  int Met() const { return m_nMet; }

 protected:
  int Enter(wxDialog* dialog) override;

 private:
  struct Meeting {
    std::function<void(wxDialog&)> actions;
    std::function<int(wxDialog&)> answer;
  };
  std::deque<Meeting> m_queue;
  int m_nMet = 0;
};
