// The toolkit backend: dialog boxes and property sheets from their
// templates, run modally on the calling thread; the prompter's boxes over
// the innermost dialog box that runs; progress windows.
#pragma once

#include "platform/ui/ui_backend.h"
#include "platform/ui/wx/running_dialogs.h"
#include "platform/ui/wx/template_library.h"
#include "platform/ui/wx/wx_prompter.h"

namespace fk::ui {

class WxBackend : public UiBackend {
 public:
  WxBackend() : m_prompter([this] { return m_running.Innermost(); }) {}

  int RunModal(DialogController& dialog, const DialogTemplate& dialogTemplate) override;
  int RunPropertySheet(const std::string& title, const std::vector<DialogController*>& pages,
                       const std::vector<const DialogTemplate*>& templates) override;
  Prompter& GetPrompter() override { return m_prompter; }
  std::unique_ptr<ProgressView> CreateProgressView(bool smooth) override;

 private:
  TemplateLibrary m_templates;
  RunningDialogs m_running;
  WxPrompter m_prompter;
};

}  // namespace fk::ui
