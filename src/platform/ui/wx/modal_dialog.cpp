#include "platform/ui/wx/modal_dialog.h"

#include <wx/dialog.h>
#include <wx/sizer.h>

#include "platform/ui/wx/controller_calls.h"
#include "platform/ui/wx/dialog_events.h"
#include "platform/ui/wx/template_library.h"
#include "platform/ui/wx/wx_dialog_view.h"

namespace fk::ui {
namespace {

void EndIfRunning(wxDialog& window, int result) {
  if (window.IsModal()) window.EndModal(result);
}

// Sizes the box to what OnInitDialog put in it, and puts it over its
// parent (or the screen's centre).
void Arrange(wxDialog& window) {
  if (wxSizer* sizer = window.GetSizer()) sizer->SetSizeHints(&window);
  window.Layout();
  window.CentreOnParent();
}

}  // namespace

int RunModalDialog(TemplateLibrary& templates, Prompter& prompter, RunningDialogs& running, DialogController& dialog,
                   const DialogTemplate& dialogTemplate) {
  wxDialog window;
  templates.LoadDialog(window, running.Innermost(), dialogTemplate);
  RunningDialogs::Scope innermost(running, window);
  ControllerCalls calls([&] { EndIfRunning(window, IDCANCEL); });
  WxDialogView view(window, dialogTemplate, [&](int result) { EndIfRunning(window, result); });
  DialogEvents events(window, dialog, view, calls);
  window.Bind(wxEVT_CLOSE_WINDOW, [&](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();
    calls.Run([&] { dialog.OnCommand(IDCANCEL); });
  });
  window.Bind(wxEVT_CHAR_HOOK, [&](wxKeyEvent& event) {
    if (event.GetKeyCode() != WXK_ESCAPE) return event.Skip();
    calls.Run([&] { dialog.OnCommand(IDCANCEL); });
  });

  dialog.Attach(&view, &prompter);
  dialog.OnInitDialog();
  if (view.Result()) return *view.Result();  // ended before it was shown
  Arrange(window);
  const int shown = window.ShowModal();
  calls.RethrowAny();
  return view.Result().value_or(shown);
}

}  // namespace fk::ui
