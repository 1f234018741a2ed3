// The viewer's automation contract as the simulator serves it: the bus
// names and the dispatch ids of its three objects, spelled here on their own.
#pragma once

namespace tv {

inline constexpr const char* kViewerName = "TV.InterfaceCOM";
inline constexpr const char* kSurveyName = "TV.InterfaceSurveyCOM";
inline constexpr const char* kDatasetName = "TV.InterfaceDatasetCOM";
inline constexpr const char* kDebugViewerName = "TVD.InterfaceCOM";
inline constexpr const char* kDebugSurveyName = "TVD.InterfaceSurveyCOM";
inline constexpr const char* kDebugDatasetName = "TVD.InterfaceDatasetCOM";

namespace id {
// every object
inline constexpr int kAttach = 1, kDetach = 2;
// the viewer object
inline constexpr int kOpenFiles = 38, kGetMapWindow = 39, kAddObject = 41, kSelectDrillholes = 42, kSetLogFile = 43,
                     kShutdown = 44, kObjectExists = 45, kRemoveObject = 46, kFindObjects = 47,
                     kAddPointCloudSeries = 48, kFindDataset = 49, kShowHelpTopic = 51, kAddLineSeries = 52,
                     kSaveSession = 53, kLoadSession = 54, kShowHelpPanel = 55, kSetParentWindow = 69,
                     kListObjects = 71, kSendCommand = 77, kAddObjectAlternate = 79, kGetVersion = 80,
                     kShowAllToolbars = 81, kSelectObject = 93, kSetAssociatedCoordSystem = 107;
// the survey object
inline constexpr int kGetProjectCount = 4, kRefreshProject = 6, kIsProjectOpen = 7, kGetOpenProjectCount = 8;
// the dataset object
inline constexpr int kGetName = 3;
}  // namespace id

// Kinds of object in a view.
namespace kind {
inline constexpr int kDrillholeSeries = 4, kImage = 6, kTrenchSeries = 12, kImageMember = -2;
}

}  // namespace tv
