#include "platform/ui/dialog_controller.h"

#include "platform/ui/ui_backend.h"

namespace fk::ui {

int DialogController::DoModal() {
  const int result = CurrentUi().RunModal(*this, GetDialogTemplate(m_nTemplateId));
  Attach(nullptr, nullptr);
  return result;
}

}  // namespace fk::ui
