// The toolkit's events of one dialog box's controls, as the dialog box's
// calls: a button, check box or radio button pressed goes to OnCommand, a
// list or combo box's new selection to OnSelectionChange, a list control
// row's check box to OnListCtrlCheck, text typed in an edit control to
// OnEditChange. Only controls of the template count;
// events of other windows go on to the parent.
#pragma once

#include "platform/ui/dialog_controller.h"
#include "platform/ui/wx/controller_calls.h"
#include "platform/ui/wx/wx_dialog_view.h"

class wxCommandEvent;
class wxListEvent;
class wxWindow;

namespace fk::ui {

class DialogEvents {
 public:
  // Listens below `root`, the dialog box or a property sheet's page.
  DialogEvents(wxWindow& root, DialogController& controller, WxDialogView& view, ControllerCalls& calls);
  ~DialogEvents();
  DialogEvents(const DialogEvents&) = delete;
  DialogEvents& operator=(const DialogEvents&) = delete;

 private:
  void OnPressed(wxCommandEvent& event);
  void OnSelected(wxCommandEvent& event);
  void OnRowChecked(wxListEvent& event);
  void OnRowActivated(wxListEvent& event);
  void OnTextChanged(wxCommandEvent& event);
  int Source(const wxCommandEvent& event) const;

  wxWindow& m_root;
  DialogController& m_controller;
  WxDialogView& m_view;
  ControllerCalls& m_calls;
};

}  // namespace fk::ui
