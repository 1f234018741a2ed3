// One dialog box run modally on the calling thread: made from its
// template, given to the dialog box's code (Attach, OnInitDialog), then
// shown until that code ends it. The close box and Escape are Cancel,
// sent to the dialog box's code like the Cancel button, which decides.
#pragma once

#include "platform/ui/dialog_controller.h"
#include "platform/ui/dialog_template.h"
#include "platform/ui/prompter.h"
#include "platform/ui/wx/running_dialogs.h"

namespace fk::ui {

class TemplateLibrary;

// The result given to EndDialog. An exception of the dialog box's code
// closes the box and is thrown again here.
// It stands over the innermost of `running`, and is the innermost itself
// while it runs.
int RunModalDialog(TemplateLibrary& templates, Prompter& prompter, RunningDialogs& running, DialogController& dialog,
                   const DialogTemplate& dialogTemplate);

}  // namespace fk::ui
