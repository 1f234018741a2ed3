// A property sheet run modally: a page for each dialog box, made from its
// template, under the tab of the template's title, with the sheet's OK and
// Cancel below. OK (or Cancel, the close box, Escape) is sent to every page
// in turn; the sheet closes when each page ended, and stays open on the
// first page that didn't. A page that ends itself with its own button ends
// the sheet with its result.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"
#include "platform/ui/dialog_template.h"
#include "platform/ui/prompter.h"
#include "platform/ui/wx/running_dialogs.h"

namespace fk::ui {

class TemplateLibrary;

int RunPropertySheetDialog(TemplateLibrary& templates, Prompter& prompter, RunningDialogs& running,
                           const std::string& title, const std::vector<DialogController*>& pages,
                           const std::vector<const DialogTemplate*>& pageTemplates);

}  // namespace fk::ui
