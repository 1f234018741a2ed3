#include "platform/ui/wx/wx_backend.h"

#include <wx/thread.h>

#include <stdexcept>

#include "platform/ui/wx/modal_dialog.h"
#include "platform/ui/wx/property_sheet.h"
#include "platform/ui/wx/toolkit_start.h"
#include "platform/ui/wx/wx_progress_view.h"

namespace fk::ui {
namespace {

// The toolkit's windows belong to the thread that started it; another
// thread's dialog box would corrupt them.
void RequireToolkitThread() {
  if (!wxIsMainThread()) throw std::logic_error("dialog boxes run on the thread that opened the first one");
}

}  // namespace

int WxBackend::RunModal(DialogController& dialog, const DialogTemplate& dialogTemplate) {
  RequireToolkitThread();
  return RunModalDialog(m_templates, m_prompter, m_running, dialog, dialogTemplate);
}

int WxBackend::RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages,
                                const std::vector<const DialogTemplate*>& templates) {
  RequireToolkitThread();
  return RunPropertySheetDialog(m_templates, m_prompter, m_running, title, pages, templates);
}

std::unique_ptr<ProgressView> WxBackend::CreateProgressView(bool smooth) {
  RequireToolkitThread();
  return std::make_unique<WxProgressView>(smooth);
}

}  // namespace fk::ui

// The library's entry point: starts the toolkit on the first call and
// gives the backend, kept for the process's life (never destroyed: the
// toolkit stays up until the process ends). Null when the toolkit can't
// start, e.g. without a display.
extern "C" __attribute__((visibility("default"))) fk::ui::UiBackend* fk_wx_backend() {
  static fk::ui::UiBackend* backend = fk::ui::StartToolkit() ? new fk::ui::WxBackend : nullptr;
  return backend;
}
