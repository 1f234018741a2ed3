// Putting files into the viewer's 3D map window: DXF and OGB files, the log
// OGB file of drillhole projects, grids. Each load tells the session's file
// records what was loaded.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "viewer/viewer_session.h"

// The nine values with which a DXF file is shown as a vector object.
extern const std::vector<std::int32_t> kShownVectorValues;

// With the help flag on, the viewer's help panel at `topic`.
void ShowHelpHint(ViewerSession session, const char* topic);

// The three helpers of every file load, on an attached link.
int IsFileInViewer(CViewerLink& viewer, int view, const std::string& file);
int RemoveFileFromViewer(CViewerLink& viewer, int view, const std::string& file);
int ShowFileInViewer(ViewerSession session, int view, const std::string& file);

int LoadPermDXFFile(ViewerSession session, const std::string& file, int permanent);
int LoadPermOGBFile(ViewerSession session, const std::string& file, int permanent);
int LoadPermLogOGBFile(ViewerSession session, const std::string& file, int show, int permanent);
int AddOGBFilePart(ViewerSession session, const std::string& ogbFile, const std::string& part, int load);
int ClearLogOGBFile(ViewerSession session);
int RemoveOGBFileIfUnused(ViewerSession session, const std::string& file);
int ViewGridIn3D(ViewerSession session, const std::string& grid);
