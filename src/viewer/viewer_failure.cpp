#include "viewer/viewer_failure.h"

#include "platform/text/string_table.h"
#include "platform/ui/ui_backend.h"

void ReportViewerFailure(const fk::Exception& failure, unsigned text) {
  fk::ui::Prompter& prompter = fk::ui::CurrentUi().GetPrompter();
  if (text) prompter.MessageBox(fk::LoadString(text), fk::ui::MB_OK);
  prompter.MessageBox(failure.GetErrorMessage(1024), fk::ui::MB_OK);
}
