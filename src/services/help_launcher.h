// The Help button of every dialog box: the product's help file at the
// dialog box's topic.
#pragma once

#include <string>

#include "platform/ui/prompter.h"

enum HelpTopic {
  HELP_CURPOS = 7080,
  HELP_LINKED_WINDOWS = 7081,
  HELP_DATAMINE_EXPORT = 7083,
  HELP_MINESIGHT_EXPORT = 7084,
  HELP_REPROJECT = 7085,
  HELP_OGB_IMPORT = 601098,
  HELP_WORKSPACE_EDITOR = 601099,
  HELP_WORKSPACE_LOADER = 601100,
};

// The parameters for `topic` in the product's directory; empty for a
// variant outside the four. The cursor position box spells one help file
// its own way.
std::string HelpParameters(int variant, int topic, const std::string& productDir, bool cursorPositionBox);

// Runs the help program; when it can't start, says so with the program and
// the parameters.
void LaunchHelp(fk::ui::Prompter& prompter, int topic, bool cursorPositionBox = false);

// The viewer's own help file at the link manager's page.
void LaunchLinkManagerHelp(fk::ui::Prompter& prompter);
