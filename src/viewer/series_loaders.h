// Host table files shown in the viewer as a point series or a line series:
// the short form of the drillhole wizard, for a table file the calling
// script has prepared. Only the viewer is driven; nothing is sent to the
// host and no file is written.
#pragma once

#include <string>

#include "viewer/viewer_session.h"

// What tells the two loaders apart.
struct TabSeriesKind {
  const char* nameFormat;     // the series name from the display name
  int seriesKind;
  unsigned refreshQuestion;   // asked when the series is open already
  bool lines;                 // AddLineSeries, else AddPointCloudSeries
  const char* helpTopic;
  unsigned loadFailedText;    // shown before the viewer's own report, or 0
  unsigned addFailedText;
};

extern const TabSeriesKind TAB_POINTS;
extern const TabSeriesKind TAB_LINES;

// 1 when the series was added, else 0.
int LoadTabSeries(ViewerSession session, const TabSeriesKind& kind, const std::string& displayName,
                  const std::string& path);
