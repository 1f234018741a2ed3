// The two gates of every viewer operation, and the operations on the viewer
// program as a whole: its version, its parent window, stopping it.
#pragma once

#include <cstdint>
#include <string>

#include "viewer/viewer_link.h"

// 1 when a viewer program runs under any of its four names, whatever the product.
int IsViewerRunning();

// The viewer's process id as stored in `nViewerProcessID`, starting the
// viewer of the product when none runs. Below 1 the viewer is not available:
// 0 nothing known, -1 a viewer this library did not start, or a launch code.
int EnsureViewerRunning(CViewerLink& viewer, int& nViewerProcessID, bool bQueryVersion);

// The live viewer's version, kept as "LastVersion": 1. Else the kept one: 0.
int GetViewerVersion(CViewerLink& viewer, std::string& version);

// Gives the viewer its parent window; 1 when it was passed on.
int SetViewerParent(CViewerLink& viewer, std::int32_t window);

// Asks a running viewer to quit and lets go of every driver.
void ShutdownViewer(CViewerLink& viewer);
