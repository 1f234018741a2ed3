// Selection handles: the host's selection shown in the 3D window as small
// solid boxes. The boxes live only in the selection file; every call
// rewrites it whole and has the viewer load it again, so adding handles
// replaces those that were there.
#pragma once

#include <string>
#include <vector>

#include "viewer/viewer_session.h"

// One handle: its centre, height, the height used when that is not above 0,
// and its tilt and turn in degrees.
struct SelectionBox {
  double x = 0, y = 0, z = 0;
  double height = 0, fallbackHeight = 0;
  double tilt = 0, turn = 0;
};

// Where the selection file named `path` is written. A path on a drive with
// no entry in the drive table goes to the temporary folder under its own
// name, so the default "c:\Selection.dxf" is written somewhere writable.
std::string SelectionFileOnDisk(const std::string& path);

// One box with all three edges `boxEdge`; the file is temporary.
int AddSelectionHandle(ViewerSession session, const std::string& file, double boxEdge, const SelectionBox& box);
// Every box with two edges `boxEdge` and its own height; temporary unless `permanent`.
int AddSelectionHandles(ViewerSession session, const std::string& file, double boxEdge,
                        const std::vector<SelectionBox>& boxes, int permanent);
int ClearSelectionHandles(ViewerSession session, const std::string& file);
int SelectIn3D(CViewerLink& viewer, const std::string& name, int value);
int SetAssociatedCoordSystem(CViewerLink& viewer, const std::string& name, const std::string& coordSys);
