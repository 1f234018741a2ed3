// A dialog box: the fields and handlers of one dialog template. It is run
// modally by the current backend, which gives it a view of its controls and
// a prompter, calls OnInitDialog, then OnCommand for each button pressed,
// until the dialog ends. Everything a backend calls is inline here, so that
// the toolkit backend, a library of its own, needs nothing else of this one.
#pragma once

#include <stdexcept>

#include "platform/ui/dialog_view.h"
#include "platform/ui/prompter.h"

namespace fk::ui {

class DialogController {
 public:
  explicit DialogController(unsigned templateId) : m_nTemplateId(templateId) {}
  virtual ~DialogController() = default;
  DialogController(const DialogController&) = delete;
  DialogController& operator=(const DialogController&) = delete;

  unsigned TemplateId() const { return m_nTemplateId; }

  // Runs the dialog box on the current backend; the result given to EndDialog.
  int DoModal();

  // The backend's side.
  void Attach(DialogView* view, Prompter* prompter) {
    m_pView = view;
    m_pPrompter = prompter;
  }
  virtual bool OnInitDialog() { return true; }
  // A button was pressed: OK and Cancel go to OnOK and OnCancel, any other
  // button to OnButton.
  void OnCommand(int id) {
    if (id == IDOK)
      OnOK();
    else if (id == IDCANCEL)
      OnCancel();
    else
      OnButton(id);
  }
  // The selection of a list or combo changed.
  virtual void OnSelectionChange(int /*id*/) {}
  // A check box of a list control row changed.
  virtual void OnListCtrlCheck(int /*id*/, int /*row*/) {}
  // A row of a list control was double-clicked (or Enter pressed on it).
  virtual void OnListCtrlActivate(int /*id*/, int /*row*/) {}
  // The user changed the text of an edit control.
  virtual void OnEditChange(int /*id*/) {}

 protected:
  virtual void OnOK() { EndDialog(IDOK); }
  virtual void OnCancel() { EndDialog(IDCANCEL); }
  virtual void OnButton(int /*id*/) {}

  void EndDialog(int result) { View().EndDialog(result); }
  DialogView& View() const {
    if (!m_pView) throw std::logic_error("the dialog box is not running");
    return *m_pView;
  }
  Prompter& Prompt() const {
    if (!m_pPrompter) throw std::logic_error("the dialog box is not running");
    return *m_pPrompter;
  }

 private:
  unsigned m_nTemplateId;
  DialogView* m_pView = nullptr;
  Prompter* m_pPrompter = nullptr;
};

}  // namespace fk::ui
