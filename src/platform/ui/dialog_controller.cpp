#include "platform/ui/dialog_controller.h"

#include "platform/ui/ui_backend.h"

namespace fk::ui {

int DialogController::DoModal() {
  // However the run ends, the controller lets go of the view that is gone.
  struct Detach {
    DialogController& dialog;
    ~Detach() { dialog.Attach(nullptr, nullptr); }
  } detach{*this};
  return CurrentUi().RunModal(*this, GetDialogTemplate(m_nTemplateId));
}

}  // namespace fk::ui
