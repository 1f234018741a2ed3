// Subset mode of the wizards: the chosen holes go into a working table of
// the host, and each table of the project is cut down to those holes into
// a table file of its own, named after the table with the suffix.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "wizards/drillhole_wiz_dlg.h"
#include "wizards/wizard_kind.h"

// The table files of a project, as the viewer will be given them.
struct ProjectFiles {
  std::string collar;
  std::string survey;
  std::vector<std::string> data;
};

// Where the subset tables go: a folder the user picks, starting at `start`,
// when they are saved permanently (nothing on cancel); else the
// application's temporary folder, with no question.
std::optional<std::string> SubsetFolder(bool permanent, const std::string& start, const std::string& tempDirectory);

// Writes the subsets of the box's selected holes into `folder`. Each file
// of `files` whose subset was written becomes the subset's path; a table
// the host does not have open, or a subset that failed, stays whole. The
// selected row numbers become positions in the subset.
void MakeSubsetTables(const SeriesWizardKind& kind, CDrillholeWizDlg& dialog, const std::string& collarTable,
                      const std::string& idColumn, const std::string& folder, ProjectFiles& files);
