// The subcommands of the command line. Each adds itself to the program
// with its options, its example and the work it runs: options in, the
// library's own code, results out.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

#include "global_options.h"

namespace cli {

void AddHostCommand(CLI::App& app, const GlobalOptions& options);
void AddContourCommand(CLI::App& app, const GlobalOptions& options);
void AddRegisterImageCommand(CLI::App& app, const GlobalOptions& options);
void AddFieldsCommand(CLI::App& app, const GlobalOptions& options);
void AddSettingsCommand(CLI::App& app, const GlobalOptions& options);
void AddExportCommand(CLI::App& app, const GlobalOptions& options);
void AddImportCommand(CLI::App& app, const GlobalOptions& options);
void AddHotlinksCommand(CLI::App& app, const GlobalOptions& options);
void AddViewerCommand(CLI::App& app, const GlobalOptions& options);
// viewer select-boxes and viewer options, under `viewer`.
void AddViewerSelectionCommands(CLI::App* viewer, const GlobalOptions& options);
// The viewer running, started if need be; its process id.
int StartViewer();
// `viewer links`, under the viewer command.
void AddViewerLinksCommand(CLI::App* viewer, const GlobalOptions& options);
void AddReprojectCommand(CLI::App& app, const GlobalOptions& options);
void AddColorObjectsCommand(CLI::App& app, const GlobalOptions& options);
void AddSectionPlaneCommand(CLI::App& app, const GlobalOptions& options);
void AddWindowListCommand(CLI::App& app, const GlobalOptions& options);
void AddWorkspaceCommand(CLI::App& app, const GlobalOptions& options);
// drillholes and trenches
void AddWizardCommands(CLI::App& app, const GlobalOptions& options);
void AddPenCommand(CLI::App& app, const GlobalOptions& options);

// Runs `work` when `command` is chosen, with the terminal set up for the
// options: headless dialog boxes, message boxes and progress on standard
// error.
void OnRun(CLI::App* command, const GlobalOptions& options, std::function<void()> work);
// A subcommand of `parent` that starts the library for the product, with
// no host, before its work.
CLI::App* ProductLeaf(CLI::App* parent, const GlobalOptions& global, const char* name, const char* description,
                      std::function<void()> work);

// The help text's closing lines: an example that works when pasted, with
// "{formkit}" standing for the program as it was called, "{samples}" for
// the folder of the sample data and "{viewer}" for the viewer simulator.
std::string Example(const std::string& lines);
void SetProgramName(const std::string& program);

}  // namespace cli
