// One host table brought into another projection. The host converts the
// coordinates itself when a table is committed under a new coordinate
// clause; what is done here is the order of the statements, the rule that
// earth and non-earth systems don't mix, and what stays behind when a step
// fails. A raster table is written anew from its control points, each
// converted by the host.
#pragma once

#include <string>

#include "platform/ui/prompter.h"

struct ReprojectTarget {
  std::string projection;  // the picker's answer: an earth clause without "Earth Projection", or "NonEarth ..."
  bool overwrite = false;  // else a new table beside the old one, or in `directory`
  bool inDirectory = false;
  std::string directory;
  bool withSuffix = false;
  std::string suffix;
};

// The clause to commit a table of the system named `sourceName` under, or
// "" when one of the two systems is an earth system and the other is not.
std::string ReprojectionClause(const std::string& targetProjection, const std::string& sourceName);

// Where the new table of the table file `tablePath` goes.
std::string NewTablePath(const std::string& tablePath, const ReprojectTarget& target);

// Reprojects the host table `table`; every failure is told to the user at
// once. False when a step failed; a table that can't be converted is told
// and skipped, which is no failure.
bool ReprojectTable(const std::string& table, const ReprojectTarget& target, fk::ui::Prompter& prompter);
