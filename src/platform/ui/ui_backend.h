// The user interface backend: runs dialog boxes, asks the prompter's
// questions, makes progress windows. Headless (in this library) or the
// toolkit one (libformkit-wx.so, loaded when first needed).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"
#include "platform/ui/dialog_template.h"
#include "platform/ui/progress_view.h"

namespace fk::ui {

class UiBackend {
 public:
  virtual ~UiBackend() = default;
  // Runs `dialog` over its template until it ends; its result.
  virtual int RunModal(DialogController& dialog, const DialogTemplate& dialogTemplate) = 0;
  // Runs the pages, each over its template, in one property sheet; IDOK or
  // IDCANCEL.
  virtual int RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages,
                               const std::vector<const DialogTemplate*>& templates) = 0;
  virtual Prompter& GetPrompter() = 0;
  virtual std::unique_ptr<ProgressView> CreateProgressView(bool smooth) = 0;
};

// The backend in use. FORMKIT_UI=headless or wx chooses; without it the
// toolkit backend is used when a display is present and can be loaded,
// the headless one otherwise.
UiBackend& CurrentUi();
// Runs the pages of a property sheet on the current backend.
int RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages);

// Puts `backend` in place (tests, the command line); null goes back to the
// choice above. The caller keeps ownership.
void SetCurrentUi(UiBackend* backend);

}  // namespace fk::ui
