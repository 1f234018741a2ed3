// The drillhole and trench wizards, one procedure over a table of
// constants: the user chooses holes of a project that lives in the host as
// a collar, a survey and data tables; the tables may be cut down to those
// holes; the viewer then shows the project as one series restricted to the
// chosen holes.
#pragma once

#include <string>
#include <vector>

#include "viewer/viewer_session.h"
#include "wizards/wizard_kind.h"

struct SeriesWizardArgs {
  std::string collarTable;  // every ".tab" in it is taken out
  std::string startFolder;  // where the folder picker starts
  std::string collarFile;
  std::string surveyFile;  // empty: no survey
  std::vector<std::string> dataFiles;
  bool showDialog = true;  // false: no box, no name, the tables whole
};

// On a connected host session: 1 when the series reached the viewer, else 0.
int RunSeriesWizard(ViewerSession session, const std::string& tempDirectory, const SeriesWizardKind& kind,
                    const SeriesWizardArgs& args);
