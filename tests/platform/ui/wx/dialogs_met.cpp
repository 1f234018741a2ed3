#include "dialogs_met.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>

#include <stdexcept>

DialogsMet::~DialogsMet() {
  EXPECT_TRUE(m_queue.empty()) << m_queue.size() << " dialog boxes expected did not open";
}

void DialogsMet::Use(std::function<void(wxDialog&)> actions) { m_queue.push_back({std::move(actions), {}}); }

void DialogsMet::Answer(std::function<int(wxDialog&)> answer) { m_queue.push_back({{}, std::move(answer)}); }

int DialogsMet::Enter(wxDialog* dialog) {
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
