// formkit reproject: open tables brought into another projection, each
// overwritten in place or written as a new table. The "Reproject multiple
// tables" box runs headless as a user fills it: the tables ticked, the
// projection picked (the picker answers with --to), the options set, OK
// pressed. Its messages are printed on standard error; a table that can't
// be converted is told and left, and the others go on.
#include <cstdio>

#include "box_entries.h"
#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "maptools/reproject_dlg.h"
#include "maptools/reproject_table.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

using Box = CReProjectDlg;

struct ReprojectOptions {
  std::vector<std::string> tables;
  std::string projection, projectionName, directory;
  std::string suffix = "_reproject";
  bool overwrite = false;

  ReprojectTarget Target() const {
    return {projection, overwrite, !directory.empty(), directory, !suffix.empty(), suffix};
  }
};

void RequireOpenTables(const ReprojectOptions& options) {
  std::vector<std::string> tables;
  g_Cartoma.GetVectorTableNames(tables);
  for (const std::string& missing : Missing(tables, options.tables))
    throw UsageError("no table of objects named " + missing + " is open (see --data)");
}

void TickTables(fk::ui::HeadlessDialog& box, const std::vector<std::string>& tables) {
  std::vector<std::string> rows;
  for (int row = 0; row < box.View().ListCtrlRowCount(Box::IDC_TABLES); ++row)
    rows.push_back(box.View().ListCtrlText(Box::IDC_TABLES, row, 0));
  for (int row = 0; row < static_cast<int>(rows.size()); ++row)
    if (Missing(tables, {rows[static_cast<std::size_t>(row)]}).empty()) box.CheckRow(Box::IDC_TABLES, row, true);
}

void FillAndAccept(fk::ui::HeadlessDialog& box, const ReprojectOptions& options) {
  TickTables(box, options.tables);
  box.Press(Box::IDC_NEW_PROJECTION);
  if (options.overwrite) {
    box.SetCheck(Box::IDC_OVERWRITE, 1);
  } else {
    if (!options.directory.empty()) {
      box.SetCheck(Box::IDC_IN_DIRECTORY, 1);
      box.Type(Box::IDC_DIRECTORY, options.directory);
    }
    if (options.suffix.empty())
      box.SetCheck(Box::IDC_WITH_SUFFIX, 0);
    else
      box.Type(Box::IDC_SUFFIX, options.suffix);
  }
  box.Press(fk::ui::IDOK);
}

// What became of each table that could be converted.
void PrintResults(const ReprojectOptions& options) {
  for (const std::string& table : options.tables) {
    const std::string path = g_Cartoma.GetTablePath(table);
    if (ReprojectionClause(options.projection, g_Cartoma.GetTableCoordSysName(table)).empty()) continue;
    if (options.overwrite)
      std::printf("%s: table %s reprojected in place\n", path.c_str(), table.c_str());
    else
      std::printf("%s: table %s reprojected into a new table\n", NewTablePath(path, options.Target()).c_str(),
                  table.c_str());
  }
}

void RunReproject(const GlobalOptions& global, const ReprojectOptions& options) {
  HostSession session(global);
  RequireOpenTables(options);
  session.QueueProjection(options.projection,
                          options.projectionName.empty() ? options.projection : options.projectionName);
  fk::ui::DefaultHeadlessUi().OnDialog(Box::IDD,
                                       [options](fk::ui::HeadlessDialog& box) { FillAndAccept(box, options); });
  if (MultiReProject(session.Handle()) != 1) throw ToolFailure("the tables were not all reprojected");
  if (!global.quiet) PrintResults(options);
}

}  // namespace

void AddReprojectCommand(CLI::App& app, const GlobalOptions& global) {
  auto options = std::make_shared<ReprojectOptions>();
  CLI::App* command = app.add_subcommand("reproject", "Bring open tables into another projection");
  command->add_option("tables", options->tables, "Open tables of objects (see --data)")->type_name("TABLE")->required();
  command
      ->add_option("--to", options->projection,
                   "The projection as the projection picker gives it: the text after \"Earth Projection\" "
                   "(e.g. '8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000'), or 'NonEarth Units \"m\" ...'")
      ->type_name("PROJECTION")
      ->required();
  command->add_option("--projection-name", options->projectionName, "The projection's name as the picker shows it");
  CLI::Option* overwrite = command->add_flag("--overwrite", options->overwrite, "Overwrite each table in place");
  command
      ->add_option("--dir", options->directory, "The folder of the new tables (default: beside each table)")
      ->type_name("FOLDER")
      ->excludes(overwrite);
  command
      ->add_option("--suffix", options->suffix, "Added to each new table's file name; '' for none")
      ->type_name("TEXT")
      ->capture_default_str()
      ->excludes(overwrite);
  command->footer(Example("cp {samples}/objects.tab {samples}/objects.gpkg {samples}/sites.tab {samples}/sites.gpkg .\n"
                          "{formkit} --data objects.tab --data sites.tab reproject objects sites \\\n"
                          "    --to '8, 104, \"m\", 147, 0, 0.9996, 500000, 10000000' --suffix _utm"));
  OnRun(command, global, [&global, options] { RunReproject(global, *options); });
}

}  // namespace cli
