// formkit viewer: the 3D viewer from a terminal. `register` records where
// the viewer program lies, as its installer would; the other commands start
// it, ask it, load files into it, save and load 3D states and stop it, each
// through the library's exports. A viewer that has not started within its
// time-out is not waited for further.
#include <cstdio>
#include <iostream>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "host_session.h"
#include "platform/files/files.h"
#include "platform/paths/paths.h"
#include "platform/registry/registry.h"
#include "platform/text/letter_case.h"
#include "platform/ui/dialog_view.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {

// The viewer running, started if need be; its process id.
int StartViewer() {
  fk::ui::DefaultHeadlessUi().Prompts().AnswerMessage(fk::ui::IDNO);  // no further wait
  const int pid = ExecuteTerravik3D();
  if (pid == -1 && IsTvik3DRunning()) return pid;  // a viewer this library did not start
  if (pid < 1) throw ToolFailure("the viewer is not available (" + std::to_string(pid) + ")");
  return pid;
}

namespace {

struct ViewerOptions {
  std::string program, file, kind, name;
  int timeout = 30000;
  bool zelvar = false, temporary = false, refresh = false;
};

void Register(const ViewerOptions& o) {
  if (!fk::FileExists(o.program)) throw UsageError("viewer register: no program " + o.program);
  const std::string key = o.zelvar ? "Software\\Orvex\\Zelvar3D" : "Software\\Orvex\\Terravik 3D";
  const std::string folder = o.program.substr(0, o.program.find_last_of("/\\") + 1);
  const fk::Hive hive = fk::Hive::LocalMachine;
  if (!fk::Registry::SetString(hive, key, "ProgramPath", o.program) ||
      !fk::Registry::SetString(hive, key, "Installation", folder.empty() ? "." : folder) ||
      !fk::Registry::SetDword(hive, key, "TIMEOUT", static_cast<std::uint32_t>(o.timeout)))
    throw ToolFailure("cannot write " + fk::Registry::HiveFile(hive).string());
  std::printf("HKLM\\%s  ProgramPath = \"%s\"  TIMEOUT = %d\n", key.c_str(), o.program.c_str(), o.timeout);
}


void Status() {
  if (!IsTvik3DRunning()) {
    std::printf("running: no\n");
    return;
  }
  ExecuteTerravik3D();
  char version[1024] = "";
  const int live = GetTvik3DVersion(version);
  std::printf("running: yes\nprocess: %d\nversion: %s%s\n", GetTvik3DProcessID(), version, live ? "" : " (last seen)");
}

void Load(const ViewerOptions& o) {
  StartViewer();
  const bool dxf = fk::ToUpper(o.file).ends_with(".DXF");
  const int permanent = o.temporary ? 0 : 1;
  const int done = dxf ? LoadPermDXFFile(o.file.c_str(), permanent) : LoadPermOGBFile(o.file.c_str(), permanent);
  if (done != 1) throw ToolFailure("the viewer did not take " + o.file);
}

void Grid(const ViewerOptions& o) {
  StartViewer();
  if (ViewGridIn3D(o.file.c_str()) != 1) throw ToolFailure("the viewer did not take " + o.file);
}

// A table file as a series; a series open already is refreshed with
// --refresh (the question answered Yes), else added again.
void Series(const ViewerOptions& o) {
  StartViewer();
  fk::ui::HeadlessPrompter& prompts = fk::ui::DefaultHeadlessUi().Prompts();
  prompts.Clear();  // the start's answer, when no question came
  prompts.AnswerMessage(o.refresh ? fk::ui::IDYES : fk::ui::IDNO);
  const int done = o.kind == "points" ? LoadTabPoints(o.name.c_str(), o.file.c_str())
                                      : LoadTabLines(o.name.c_str(), o.file.c_str());
  if (done != 1) throw ToolFailure("the viewer did not show " + o.file + " as " + o.kind);
}

// The series loaders as a command of their own: the series is named after
// the table file unless --name says otherwise.
void AddSeriesCommand(CLI::App& app, const GlobalOptions& options) {
  auto o = std::make_shared<ViewerOptions>();
  CLI::App* series = ProductLeaf(&app, options, "series", "Show a table file in the 3D viewer as a point or line series",
                                 [o] {
                                   if (o->name.empty()) o->name = fk::SplitPath(o->file).fname;
                                   Series(*o);
                                 });
  series->add_option("kind", o->kind, "points or lines")->required()->check(CLI::IsMember({"points", "lines"}));
  series->add_option("file", o->file, "The table file")->required();
  series->add_option("--name", o->name, "The series' display name");
  series->add_flag("--refresh", o->refresh, "Refresh a series open already");
  series->footer(Example(
      "dbus-run-session -- sh -c '{formkit} viewer register {viewer} && "
      "{formkit} series points {samples}/collars.tab && {formkit} series lines {samples}/objects.tab --name Plan && "
      "{formkit} viewer stop'"));
}

}  // namespace

void AddViewerCommand(CLI::App& app, const GlobalOptions& options) {
  auto o = std::make_shared<ViewerOptions>();
  CLI::App* viewer = app.add_subcommand("viewer", "Start, drive and stop the 3D viewer");
  viewer->require_subcommand(1);
  viewer->footer(Example("{formkit} viewer register {viewer} --timeout 5000\n{formkit} viewer status"));
  CLI::App* reg =
      ProductLeaf(viewer, options, "register", "Record where the viewer program lies", [o] { Register(*o); });
  reg->add_option("program", o->program, "The viewer's program file")->required();
  reg->add_option("--timeout", o->timeout, "Milliseconds to wait for it to start")->capture_default_str();
  reg->add_flag("--zelvar", o->zelvar, "Record the Zelvar3D viewer");
  ProductLeaf(viewer, options, "start", "Start the viewer unless it runs; print its process id",
              [] { std::printf("%d\n", StartViewer()); });
  ProductLeaf(viewer, options, "status", "Whether the viewer runs, its process id and version", Status);
  CLI::App* load = ProductLeaf(viewer, options, "load", "Load a DXF or OGB file into the viewer", [o] { Load(*o); });
  load->add_option("file", o->file, "The file")->required();
  load->add_flag("--temporary", o->temporary, "Delete the file when this command ends, unless saved with a state");
  ProductLeaf(viewer, options, "grid", "Show a grid in the viewer", [o] { Grid(*o); })
      ->add_option("file", o->file, "The grid file")
      ->required();
  ProductLeaf(viewer, options, "save-state", "Save the 3D state, with the host's workspace and the viewer's state",
              [&options, o] {
                HostSession host(options);
                if (Save3DState(o->file.c_str()) != 1) throw ToolFailure("the 3D state was not saved");
              })
      ->add_option("file", o->file, "The state file")
      ->required();
  ProductLeaf(viewer, options, "load-state", "Load a 3D state into the viewer and the host",
              [&options, o] {
                HostSession host(options);
                if (Load3DState(o->file.c_str()) != 1) throw ToolFailure("the viewer did not load " + o->file);
              })
      ->add_option("file", o->file, "The state file")
      ->required();
  CLI::App* series = ProductLeaf(viewer, options, "series", "Show a table file as a point or a line series",
                                 [o] { Series(*o); });
  series->add_option("kind", o->kind, "points or lines")->required()->check(CLI::IsMember({"points", "lines"}));
  series->add_option("name", o->name, "The series' display name")->required();
  series->add_option("file", o->file, "The table file")->required();
  series->add_flag("--refresh", o->refresh, "Refresh a series open already");
  ProductLeaf(viewer, options, "stop", "Ask the viewer to quit", [] { ShutdownTerravik3D(); });
  AddViewerSelectionCommands(viewer, options);
  AddSeriesCommand(app, options);
  AddViewerLinksCommand(viewer, options);
}

}  // namespace cli
