#include "viewer/series_loaders.h"

#include "platform/automation/exceptions.h"
#include "platform/paths/paths.h"
#include "platform/text/format.h"
#include "platform/text/string_table.h"
#include "platform/ui/ui_backend.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_failure.h"
#include "viewer/viewer_loading.h"
#include "viewer/viewer_process.h"

const TabSeriesKind TAB_POINTS = {"%s as Points", OBJECT_POINT_SERIES, 2013, false, "Points.htm", 0, 0};
const TabSeriesKind TAB_LINES = {"%s as Lines", OBJECT_LINE_SERIES, 2014, true, "Lines.htm", 2015, 2016};

namespace {

// The file's dataset, for all rows of its table.
constexpr int kTableDataset = 4;
const std::vector<std::int32_t> kAllRows = {-1};

fk::ui::Prompter& Prompter() { return fk::ui::CurrentUi().GetPrompter(); }

// The series removed, and its file's project refreshed when the viewer
// knows a dataset for it.
void RefreshSeries(CViewerLink& viewer, const TabSeriesKind& kind, int view, const std::string& series,
                   const std::vector<std::string>& filePair) {
  viewer.RemoveSeriesObject(view, kind.seriesKind, series, false);
  const std::int32_t dataset = viewer.FindDataset(filePair, kTableDataset);
  if (dataset < 0) return;
  viewer.AttachDataset(dataset);
  viewer.GetDatasetName();
  viewer.DetachDataset();
  viewer.AttachSurvey();
  viewer.RefreshProject(dataset);
  viewer.DetachSurvey();
}

}  // namespace

int LoadTabSeries(ViewerSession session, const TabSeriesKind& kind, const std::string& displayName,
                  const std::string& path) {
  const fk::PathParts parts = fk::SplitPath(path);
  const std::vector<std::string> filePair = {parts.drive + parts.dir, parts.fname + parts.ext};
  const std::string series = fk::Format(kind.nameFormat, displayName);
  CViewerLink& viewer = session.viewer;
  if (EnsureViewerRunning(viewer, session.nViewerProcessID, true) < 1) return 0;
  if (!viewer.Attach()) return 0;
  const std::int32_t view = viewer.GetMapWindow(true);
  std::int32_t found = 0;
  viewer.FindSeries(view, kind.seriesKind, series, found);
  // Yes refreshes; on either answer the series is added again under its name.
  if (found != 0 &&
      Prompter().MessageBox(fk::FormatString(kind.refreshQuestion, {displayName}), fk::ui::MB_YESNO) == fk::ui::IDYES)
    RefreshSeries(viewer, kind, view, series, filePair);
  if (view < 0) {
    viewer.Detach();
    return 0;
  }
  int result = 1;
  try {
    // Both loaders look for the file, and open it, under the point series' kind.
    if (!viewer.ObjectExists(view, path, OBJECT_POINT_SERIES) &&
        viewer.OpenFiles(view, filePair, OBJECT_POINT_SERIES) != 1)
      result = 0;
  } catch (const fk::Exception& failure) {
    ReportViewerFailure(failure, kind.loadFailedText);
    result = 0;
  }
  if (result) {
    try {
      viewer.AddSeriesObject(view, kind.seriesKind, series);
      const std::int32_t dataset = viewer.FindDataset(filePair, kTableDataset);
      if (kind.lines)
        viewer.AddLineSeries(view, series, dataset, kAllRows);
      else
        viewer.AddPointCloudSeries(view, series, dataset, kAllRows);
      ShowHelpHint(session, kind.helpTopic);
    } catch (const fk::Exception& failure) {
      ReportViewerFailure(failure, kind.addFailedText);
      result = 0;
    }
  }
  viewer.Detach();
  return result;
}
