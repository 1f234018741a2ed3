// Whether the viewer holds an open drillhole project, as scripts ask it.
#pragma once

#include "viewer/viewer_link.h"

// 1 when the viewer runs, its viewer and survey objects attach, and it
// counts an open project; else 0. Each attachment is ended, the survey's
// first.
int IsDrillHoleProjectOpen(CViewerLink& viewer);
