// One row of the exchange tools' long loops under their progress window:
// the bar moves and what waits runs, so that Cancel (or Escape) can end
// the work between rows.
#pragma once

#include <string>

#include "services/progress_wnd.h"

// True when the user cancelled, with "Operation aborted by user." in `message`.
bool CancelledAtStep(CProgressWnd& progress, std::string& message);
