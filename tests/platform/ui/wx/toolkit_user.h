// The user at the toolkit's windows. Each action makes the toolkit report
// what it reports when a person does it: the same event, from the same
// control, after the control changed as the person changed it.
#pragma once

#include <string>
#include <vector>

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
void PressEscape(wxWindow& window);

// Clicks `target` with the pointer, through the X server's input (not an
// event made by the test), then moves the pointer onto `witness` and waits
// until the witness sees it: input comes in order, so by then the toolkit
// has taken the click wherever it sends it. False when the server takes no
// simulated input.
bool MouseClick(wxWindow& target, wxWindow& witness);

// Saves a picture of the window as the screen shows it, once it has been
// drawn, as test-artifacts/<name>.png; the path.
std::string Screenshot(wxTopLevelWindow& window, const std::string& name);

}  // namespace user
