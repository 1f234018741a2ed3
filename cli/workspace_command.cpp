// formkit workspace: the workspace editor and loader run headless over a
// workspace file. `check` prints the tables the file opens with their
// status and cancels; `fix` mends their paths (relative, absolute in a
// folder, or current), unticks the rows given by --drop, sets the repairs,
// and presses OK, so the file is rewritten (with a backup unless
// --no-backup). `load` runs the file on the host at the loader's pace (or a
// statement per press with --step), printing the status list as it grows;
// a refused statement stops it unless --no-pause.
#include <chrono>
#include <cstdio>
#include <thread>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "host_session.h"
#include "platform/files/files.h"
#include "platform/loop/loop.h"
#include "platform/ui/headless/headless_ui.h"
#include "workspace/workspace_editor_dlg.h"
#include "workspace/workspace_loader_dlg.h"

namespace cli {
namespace {

using Box = CWorkspaceEditorDlg;

struct WorkspaceOptions {
  std::string file;
  bool relative = false, current = false;
  std::string absolute;  // the folder, when set
  std::vector<std::string> drop;
  bool interactive = false, noEditable = false, noPrinter = false, noBackup = false;
  bool step = false, noPause = false;
};

void PrintRows(const fk::ui::DialogView& view) {
  for (int row = 0; row < view.ListCtrlRowCount(Box::IDC_TABLES); ++row)
    std::printf("%-10s %s\n", view.ListCtrlText(Box::IDC_TABLES, row, 1).c_str(),
                view.ListCtrlText(Box::IDC_TABLES, row, 0).c_str());
}

void MendAndAccept(fk::ui::HeadlessDialog& box, const WorkspaceOptions& options) {
  if (options.relative) box.Press(Box::IDC_SET_RELATIVE);
  if (options.current) box.Press(Box::IDC_SET_CURRENT);
  if (!options.absolute.empty()) {
    fk::ui::DefaultHeadlessUi().Prompts().AnswerPath(options.absolute);
    box.Press(Box::IDC_SET_ABSOLUTE);
  }
  const fk::ui::DialogView& view = box.View();
  for (const std::string& path : options.drop) {
    bool found = false;
    for (int row = 0; row < view.ListCtrlRowCount(Box::IDC_TABLES); ++row) {
      if (view.ListCtrlText(Box::IDC_TABLES, row, 0) != path) continue;
      box.CheckRow(Box::IDC_TABLES, row, false);
      found = true;
    }
    if (!found) throw UsageError("--drop " + path + ": the workspace lists no such table");
  }
  box.SetCheck(Box::IDC_INTERACTIVE, options.interactive);
  box.SetCheck(Box::IDC_NO_EDITABLE, options.noEditable);
  box.SetCheck(Box::IDC_NO_PRINTER, options.noPrinter);
  box.SetCheck(Box::IDC_SAVE_BACKUP, !options.noBackup);
  PrintRows(view);
  box.Press(fk::ui::IDOK);
}

void RunWorkspace(const GlobalOptions& global, const WorkspaceOptions& options, bool fix) {
  if (!fk::FileExists(options.file)) throw UsageError("no such workspace: " + options.file);
  HostSession session(global);
  fk::ui::DefaultHeadlessUi().OnDialog(Box::IDD, [&](fk::ui::HeadlessDialog& box) {
    if (fix) return MendAndAccept(box, options);
    PrintRows(box.View());
    box.Press(fk::ui::IDCANCEL);
  });
  std::int32_t flags[4] = {0, 0, 0, 0};
  const int result = WorkspaceEditor(session.Handle(), options.file.c_str(), 0, 0, &flags[0], &flags[1], &flags[2],
                                     &flags[3]);
  if (fix && result != 1) throw ToolFailure("the workspace " + options.file + " was not rewritten");
  if (fix && !global.quiet) std::printf("%s: rewritten\n", options.file.c_str());
}

using Loader = CWorkspaceLoaderDlg;

// Prints the entries of the status list that are new since the last call;
// true when the last of them tells of a refused statement.
bool PrintNewEntries(const fk::ui::DialogView& view, int& printed) {
  bool refused = false;
  for (; printed < view.ListCount(Loader::IDC_STATUS); ++printed) {
    const std::string entry = view.ListText(Loader::IDC_STATUS, printed);
    std::printf("%s\n", entry.c_str());
    refused = entry.rfind("ERROR\t", 0) == 0;
  }
  std::fflush(stdout);
  return refused;
}

// Runs the loader to the end of the file; false when a refused statement
// stopped it.
bool RunLoader(fk::ui::HeadlessDialog& box, const WorkspaceOptions& options) {
  const fk::ui::DialogView& view = box.View();
  box.SetCheck(Loader::IDC_PAUSE_ON_ERROR, !options.noPause);
  box.SetCheck(Loader::IDC_STEP_BY_LINE, options.step);
  int printed = 0;
  bool refused = false;
  if (options.step) {
    // A refused statement stays in hand when stepping: it is skipped, or it
    // stops the run.
    while (view.IsShown(Loader::IDC_RUN) && !refused) {
      box.Press(Loader::IDC_RUN);
      refused = PrintNewEntries(view, printed);
      if (refused && options.noPause && view.IsEnabled(Loader::IDC_SKIP)) {
        box.Press(Loader::IDC_SKIP);
        refused = false;
      }
    }
  } else {
    box.Press(Loader::IDC_RUN);
    // The step timer runs on this thread's loop, pumped here as a host's
    // loop would; "Skip Line" comes on only when a refused statement pauses.
    while (view.IsShown(Loader::IDC_RUN) && !view.IsEnabled(Loader::IDC_SKIP)) {
      PrintNewEntries(view, printed);
      if (fk::PumpMessages(50) == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    refused = view.IsShown(Loader::IDC_RUN);
  }
  PrintNewEntries(view, printed);
  box.Press(fk::ui::IDOK);
  return !refused;
}

void LoadWorkspace(const GlobalOptions& global, const WorkspaceOptions& options) {
  if (!fk::FileExists(options.file)) throw UsageError("no such workspace: " + options.file);
  HostSession session(global);
  bool finished = false;
  fk::ui::DefaultHeadlessUi().OnDialog(Loader::IDD, [&](fk::ui::HeadlessDialog& box) {
    finished = RunLoader(box, options);
  });
  WorkspaceCustomLoad(session.Handle(), options.file.c_str());
  if (!finished) throw ToolFailure("stopped at a statement the host refused; mend it, or use --no-pause to pass over it");
}

}  // namespace

void AddWorkspaceCommand(CLI::App& app, const GlobalOptions& global) {
  auto options = std::make_shared<WorkspaceOptions>();
  CLI::App* command = app.add_subcommand("workspace", "Check and mend the tables a host workspace opens");
  command->require_subcommand(1);
  CLI::App* check = command->add_subcommand("check", "List the tables with Missing, Unused or - OK -");
  check->add_option("file", options->file, "The workspace (.wor)")->required();
  OnRun(check, global, [&global, options] { RunWorkspace(global, *options, false); });
  CLI::App* fix = command->add_subcommand("fix", "Mend the table paths and rewrite the workspace");
  fix->add_option("file", options->file, "The workspace (.wor)")->required();
  CLI::Option* relative = fix->add_flag("--relative", options->relative, "Paths relative to the workspace");
  CLI::Option* current = fix->add_flag("--current", options->current, "Paths cut to file name and extension");
  fix->add_option("--absolute", options->absolute, "Every table in this folder")
      ->type_name("FOLDER")->excludes(relative)->excludes(current);
  relative->excludes(current);
  fix->add_option("--drop", options->drop, "Remove the table whose path, as listed, is PATH")->type_name("PATH");
  fix->add_flag("--interactive", options->interactive, "Open every table with Interactive");
  fix->add_flag("--no-editable", options->noEditable, "Turn off editable layers");
  fix->add_flag("--no-printer", options->noPrinter, "Remove the printer settings");
  fix->add_flag("--no-backup", options->noBackup, "Keep no backup (<file>.bak)");
  OnRun(fix, global, [&global, options] { RunWorkspace(global, *options, true); });
  CLI::App* load = command->add_subcommand("load", "Run the workspace on the host, statement by statement");
  load->add_option("file", options->file, "The workspace (.wor)")->required();
  load->add_flag("--step", options->step, "One statement per step, as with Step Line by Line");
  load->add_flag("--no-pause", options->noPause, "Pass over a statement the host refuses");
  OnRun(load, global, [&global, options] { LoadWorkspace(global, *options); });
  command->footer(Example("cp {samples}/bendigo_missing.wor {samples}/collars.tab {samples}/collars.gpkg .\n"
                          "{formkit} workspace check bendigo_missing.wor\n"
                          "{formkit} workspace fix bendigo_missing.wor --current --drop drillholes_2019.tab\n"
                          "{formkit} workspace load bendigo_missing.wor --no-pause"));
}

}  // namespace cli
