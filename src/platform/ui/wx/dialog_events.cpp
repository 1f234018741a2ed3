#include "platform/ui/wx/dialog_events.h"

#include <wx/listctrl.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>
#include <wx/window.h>

namespace fk::ui {
namespace {

const wxEventType kPressEvents[] = {wxEVT_BUTTON, wxEVT_CHECKBOX, wxEVT_RADIOBUTTON, wxEVT_TOGGLEBUTTON};
const wxEventType kSelectionEvents[] = {wxEVT_LISTBOX, wxEVT_COMBOBOX, wxEVT_CHOICE};

}  // namespace

DialogEvents::DialogEvents(wxWindow& root, DialogController& controller, WxDialogView& view, ControllerCalls& calls)
    : m_root(root), m_controller(controller), m_view(view), m_calls(calls) {
  for (wxEventType type : kPressEvents)
    m_root.Bind(wxEventTypeTag<wxCommandEvent>(type), &DialogEvents::OnPressed, this);
  for (wxEventType type : kSelectionEvents)
    m_root.Bind(wxEventTypeTag<wxCommandEvent>(type), &DialogEvents::OnSelected, this);
  m_root.Bind(wxEVT_LIST_ITEM_CHECKED, &DialogEvents::OnRowChecked, this);
  m_root.Bind(wxEVT_LIST_ITEM_UNCHECKED, &DialogEvents::OnRowChecked, this);
  m_root.Bind(wxEVT_LIST_ITEM_ACTIVATED, &DialogEvents::OnRowActivated, this);
  m_root.Bind(wxEVT_TEXT, &DialogEvents::OnTextChanged, this);
}

DialogEvents::~DialogEvents() {
  for (wxEventType type : kPressEvents)
    m_root.Unbind(wxEventTypeTag<wxCommandEvent>(type), &DialogEvents::OnPressed, this);
  for (wxEventType type : kSelectionEvents)
    m_root.Unbind(wxEventTypeTag<wxCommandEvent>(type), &DialogEvents::OnSelected, this);
  m_root.Unbind(wxEVT_LIST_ITEM_CHECKED, &DialogEvents::OnRowChecked, this);
  m_root.Unbind(wxEVT_LIST_ITEM_UNCHECKED, &DialogEvents::OnRowChecked, this);
  m_root.Unbind(wxEVT_LIST_ITEM_ACTIVATED, &DialogEvents::OnRowActivated, this);
  m_root.Unbind(wxEVT_TEXT, &DialogEvents::OnTextChanged, this);
}

int DialogEvents::Source(const wxCommandEvent& event) const {
  return m_view.ControlNumber(dynamic_cast<const wxWindow*>(event.GetEventObject()));
}

void DialogEvents::OnPressed(wxCommandEvent& event) {
  const int id = Source(event);
  if (id < 0) return event.Skip();
  m_calls.Run([&] { m_controller.OnCommand(id); });
}

void DialogEvents::OnSelected(wxCommandEvent& event) {
  const int id = Source(event);
  if (id < 0) return event.Skip();
  m_calls.Run([&] { m_controller.OnSelectionChange(id); });
}

// Only what the user types: the view sets texts without this event.
void DialogEvents::OnTextChanged(wxCommandEvent& event) {
  const int id = Source(event);
  if (id < 0) return event.Skip();
  m_calls.Run([&] { m_controller.OnEditChange(id); });
}

void DialogEvents::OnRowChecked(wxListEvent& event) {
  const int id = Source(event);
  if (id < 0) return event.Skip();
  if (m_view.IsChangingChecks()) return;
  const int row = static_cast<int>(event.GetIndex());
  m_calls.Run([&] { m_controller.OnListCtrlCheck(id, row); });
}

void DialogEvents::OnRowActivated(wxListEvent& event) {
  const int id = Source(event);
  if (id < 0) return event.Skip();
  const int row = static_cast<int>(event.GetIndex());
  m_calls.Run([&] { m_controller.OnListCtrlActivate(id, row); });
}

}  // namespace fk::ui
