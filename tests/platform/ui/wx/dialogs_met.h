// Dialog boxes met as they open, in order: one is shown and used, another
// answered without being shown (a message box's button, a file box's
// path). The toolkit calls a modal dialog hook before any box shows.
#pragma once

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <deque>
#include <functional>

// The dialog boxes that open while it lives, each met by the next queued
// action. A box with nothing queued is a failure and is closed unanswered.
class DialogsMet : public wxModalDialogHook {
 public:
  DialogsMet() { Register(); }
  ~DialogsMet() override { EXPECT_TRUE(m_queue.empty()) << m_queue.size() << " dialog boxes expected did not open"; }

  // The next box is shown; `actions` run once its loop runs. A box the
  // actions left open is a failure, and is closed with Cancel.
  void Use(std::function<void(wxDialog&)> actions) { m_queue.push_back({std::move(actions), {}}); }
  // The next box is not shown: `answer` looks at it and gives the id of
  // the button pressed.
  void Answer(std::function<int(wxDialog&)> answer) { m_queue.push_back({{}, std::move(answer)}); }
  // How many boxes opened.
  int Met() const { return m_nMet; }

 protected:
  int Enter(wxDialog* dialog) override {
    ++m_nMet;
    if (m_queue.empty()) {
      ADD_FAILURE() << "a dialog box \"" << dialog->GetTitle().utf8_string() << "\" opened unexpected";
      return wxID_CANCEL;
    }
    Meeting meeting = std::move(m_queue.front());
    m_queue.pop_front();
    if (meeting.answer) return meeting.answer(*dialog);
    wxTheApp->CallAfter([dialog, actions = std::move(meeting.actions)] {
      try {
        actions(*dialog);
      } catch (const std::exception& error) {
        ADD_FAILURE() << "the user could not go on: " << error.what();
      }
      if (!dialog->IsModal()) return;
      ADD_FAILURE() << "the dialog box \"" << dialog->GetTitle().utf8_string() << "\" was left open";
      dialog->EndModal(wxID_CANCEL);
    });
    return wxID_NONE;
  }

 private:
  struct Meeting {
    std::function<void(wxDialog&)> actions;
    std::function<int(wxDialog&)> answer;
  };
  std::deque<Meeting> m_queue;
  int m_nMet = 0;
};
