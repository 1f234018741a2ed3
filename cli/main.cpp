// formkit: the library's tools from a terminal and from shell scripts.
// It is a host like any other: it starts the host emulator (or talks to one
// on the session bus), connects the library to it and runs the library's
// own code; dialog boxes run on the headless backend, filled from the
// options. Exit codes: 0 done, 1 the tool failed or was cancelled, 2 bad
// usage.
#include <CLI/CLI.hpp>

#include <iostream>

#include "cli_errors.h"
#include "commands.h"

namespace {

void AddGlobalOptions(CLI::App& app, cli::GlobalOptions& options) {
  app.add_option("--data", options.data,
                 "A table file, vector data (GeoPackage, shapefile, GeoJSON, CSV...) or a folder of them, "
                 "opened in the host before the tool runs, each under its file's name (repeatable)")
      ->type_name("PATH");
  app.add_option("--product", options.product, "The product the library runs for")
      ->check(CLI::IsMember({"Terravik", "Zelvar", "Zelvar3D", "Vigilprofiler"}))
      ->capture_default_str();
  app.add_flag("--quiet,-q", options.quiet, "No progress bars and no summaries; errors and results only");
  app.add_flag("--bus", options.bus,
               "Use the host that serves \"Cartoma.Application\" on the session bus (cartoma-sim) "
               "instead of starting one in this process");
  app.set_version_flag("--version", std::string(FORMKIT_VERSION));
}

int Fail(int code, const std::string& message) {
  std::cerr << "formkit: " << message << "\n";
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"The Formkit library's tools from a terminal, on the host emulator.", "formkit"};
  cli::SetProgramName(argv[0]);
  cli::GlobalOptions options;
  AddGlobalOptions(app, options);
  app.require_subcommand(1);
  app.footer(cli::Example("{formkit} --data {samples} host -e 'NumTables()'\n"
                          "{formkit} contour {samples}/dem.tif -o dem.dxf --interval 2"));
  cli::AddHostCommand(app, options);
  cli::AddContourCommand(app, options);
  cli::AddRegisterImageCommand(app, options);
  cli::AddFieldsCommand(app, options);
  cli::AddSettingsCommand(app, options);
  cli::AddExportCommand(app, options);
  cli::AddImportCommand(app, options);
  cli::AddHotlinksCommand(app, options);
  cli::AddViewerCommand(app, options);
  cli::AddReprojectCommand(app, options);
  cli::AddColorObjectsCommand(app, options);
  cli::AddSectionPlaneCommand(app, options);
  cli::AddWindowListCommand(app, options);
  cli::AddWorkspaceCommand(app, options);
  cli::AddWizardCommands(app, options);
  cli::AddPenCommand(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e) == 0 ? cli::kDone : cli::kBadUsage;
  } catch (const cli::UsageError& e) {
    return Fail(cli::kBadUsage, e.what());
  } catch (const cli::ToolFailure& e) {
    return Fail(cli::kFailed, e.what());
  } catch (const std::exception& e) {
    return Fail(cli::kFailed, e.what());
  }
  return cli::kDone;
}
