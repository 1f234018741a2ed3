// The 3D viewer's automation objects: their ProgIDs, the dispatch ids of
// the members the library calls, and the object kinds it names.
#pragma once

#include <cstdint>

inline constexpr const char* kViewerProgId = "TV.InterfaceCOM";
inline constexpr const char* kViewerDebugProgId = "TVD.InterfaceCOM";
inline constexpr const char* kSurveyProgId = "TV.InterfaceSurveyCOM";
inline constexpr const char* kSurveyDebugProgId = "TVD.InterfaceSurveyCOM";
inline constexpr const char* kDatasetProgId = "TV.InterfaceDatasetCOM";
inline constexpr const char* kDatasetDebugProgId = "TVD.InterfaceDatasetCOM";

// Every object: opening and ending a session.
enum : std::int32_t { DISPID_TV_ATTACH = 1, DISPID_TV_DETACH = 2 };

// The viewer object.
enum : std::int32_t {
  DISPID_TV_OPENFILES = 38,
  DISPID_TV_GETMAPWINDOW = 39,
  DISPID_TV_ADDOBJECT = 41,
  DISPID_TV_SELECTDRILLHOLES = 42,
  DISPID_TV_SETLOGFILE = 43,
  DISPID_TV_SHUTDOWN = 44,
  DISPID_TV_OBJECTEXISTS = 45,
  DISPID_TV_REMOVEOBJECT = 46,
  DISPID_TV_FINDOBJECTS = 47,
  DISPID_TV_ADDPOINTCLOUDSERIES = 48,
  DISPID_TV_FINDDATASET = 49,
  DISPID_TV_SHOWHELPTOPIC = 51,
  DISPID_TV_ADDLINESERIES = 52,
  DISPID_TV_SAVESESSION = 53,
  DISPID_TV_LOADSESSION = 54,
  DISPID_TV_SHOWHELPPANEL = 55,
  DISPID_TV_SETPARENTWINDOW = 69,
  DISPID_TV_LISTOBJECTS = 71,
  DISPID_TV_SENDCOMMAND = 77,
  DISPID_TV_ADDOBJECTALTERNATE = 79,
  DISPID_TV_GETVERSION = 80,
  DISPID_TV_SHOWALLTOOLBARS = 81,
  DISPID_TV_SELECTOBJECT = 93,
  DISPID_TV_SETASSOCIATEDCOORDSYSTEM = 107,
};

// The survey object.
enum : std::int32_t {
  DISPID_TVS_GETPROJECTCOUNT = 4,
  DISPID_TVS_REFRESHPROJECT = 6,
  DISPID_TVS_ISPROJECTOPEN = 7,
  DISPID_TVS_GETOPENPROJECTCOUNT = 8,
};

// The dataset object.
enum : std::int32_t { DISPID_TVD_GETNAME = 3 };

// Object kinds as the viewer numbers them.
enum ObjectKind : std::int32_t {
  OBJECT_GRID = 0,
  OBJECT_FILE = 1,
  OBJECT_VECTOR_FILE = 2,
  OBJECT_DRILLHOLE_SERIES = 4,
  OBJECT_FILE_DATASET = 5,
  OBJECT_IMAGE = 6,
  OBJECT_POINT_SERIES = 7,
  OBJECT_LINE_SERIES = 8,
  OBJECT_TRENCH_SERIES = 12,
  OBJECT_IMAGE_MEMBER = -2,
};

// Commands sent by number.
enum : std::int32_t {
  TV_COMMAND_REFRESH = 0x8003,
  TV_COMMAND_SAVE_DEFAULTS = 0x852A,
  TV_COMMAND_RESTORE_DEFAULTS = 0x852B
};
