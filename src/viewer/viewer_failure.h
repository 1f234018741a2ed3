// A failure of the viewer caught where the system catches it: the caller's
// own text first, when it has one, then the failure reports itself.
#pragma once

#include "platform/automation/exceptions.h"

// Both in message boxes with an OK button; `text` 0 shows no text of its own.
void ReportViewerFailure(const fk::Exception& failure, unsigned text);
