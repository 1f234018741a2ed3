// The user at the toolkit's windows. Each action makes the toolkit report
// what it reports when a person does it: the same event, from the same
// control, after the control changed as the person changed it. Dialog
// boxes are met as they open, in order: one is shown and used, another
// answered without being shown (a message box's button, a file box's
// path).
#pragma once

#include <wx/modalhook.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

class wxDialog;
class wxTopLevelWindow;
class wxWindow;

namespace user {

// A control of a template by its number; fails the test when missing.
wxWindow& Control(wxWindow& root, int id);
std::vector<std::string> Entries(wxWindow& root, int id);

void Press(wxWindow& root, int id);
void PressButton(wxWindow& button);
void SelectEntries(wxWindow& root, int id, const std::vector<int>& indices);
void ChooseCombo(wxWindow& root, int id, int index);
void Click(wxWindow& root, int id);  // a check box or radio button
void CheckRow(wxWindow& root, int id, int row, bool checked);
void CloseBox(wxTopLevelWindow& window);
void PressEscape(wxWindow& window);

// Clicks `target` with the pointer, through the X server's input (not an
// event made by the test), then moves the pointer onto `witness` and waits
// until the witness sees it: input comes in order, so by then the toolkit
// has taken the click wherever it sends it. False when the server takes no
// simulated input.
bool MouseClick(wxWindow& target, wxWindow& witness);

// Runs the toolkit's loop until the window has drawn itself once more.
void AwaitDrawing(wxTopLevelWindow& window);

// Saves a picture of the window as the screen shows it, once it has been
// drawn, as test-artifacts/<name>.png; the path.
std::string Screenshot(wxTopLevelWindow& window, const std::string& name);

}  // namespace user

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
