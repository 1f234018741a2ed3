// What the viewer operations work on, all owned by the application object:
// the link, the viewer's process id, the session's files, the help flag and
// the log OGB file's name.
#pragma once

#include <string>

#include "settings/temp_file_array.h"
#include "viewer/viewer_link.h"

struct ViewerSession {
  CViewerLink& viewer;
  int& nViewerProcessID;
  CTempFileArray& tempFiles;
  const int& bShowHelp;
  std::string& strLogOGBFile;
};
