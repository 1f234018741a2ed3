// The property sheet "3D Options" with its pages "System" and "Display".
#pragma once

#include <string>

#include "viewer/viewer_link.h"
#include "viewer/viewer_options.h"

// Runs the sheet with the temporary directory and the delete-on-exit flag;
// on OK gives both back changed. IDOK or IDCANCEL.
int RunTvik3DOptions(ViewerOptions options, int variant, CViewerLink& viewer, std::string& tempDirectory,
                     int& deleteOnExit);
