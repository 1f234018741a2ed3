// A saved 3D session: the state file the caller names, a host workspace
// (".wor") and the viewer's own state (".ogs") beside it.
#pragma once

#include <string>

#include "viewer/viewer_session.h"

// The workspace and viewer state paths that go with a state file.
struct StatePaths {
  std::string workspace;
  std::string viewerState;
};
StatePaths StatePathsOf(const std::string& statePath);

int Save3DState(ViewerSession session, const std::string& statePath);
int Load3DState(ViewerSession session, const std::string& statePath);
// Passes the viewer's state through a scratch file in `tempDirectory`.
int Refresh3D(ViewerSession session, const std::string& tempDirectory);
