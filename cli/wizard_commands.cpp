// formkit drillholes and formkit trenches: a drillhole or trench project of
// the host shown in the 3D viewer as one series, through the wizards'
// exports. The wizard's box runs headless: the holes named by --holes are
// chosen (or the host's selection on the collar table is kept with
// --from-selection), the tables are whole or cut to those holes, and OK is
// pressed. The series goes to the viewer registered with `viewer register`.
#include <cstdio>
#include <filesystem>

#include "box_entries.h"
#include "cli_errors.h"
#include "commands.h"
#include "data_tables.h"
#include "formkit/formkit.h"
#include "host_session.h"
#include "platform/ui/headless/headless_ui.h"
#include "wizards/drillhole_wiz_dlg.h"

namespace cli {
namespace {

struct WizardOptions {
  std::string collar, survey;
  std::vector<std::string> data, holes;
  bool fromSelection = false, subset = false;
  std::string permanent, suffix;
};

struct ProjectTable {
  std::string name, path;
};

// A table by its file, opened in the host, or by the name of an open table.
ProjectTable FindProjectTable(HostSession& host, const std::string& table) {
  if (std::filesystem::is_regular_file(table)) {
    const std::string path = std::filesystem::absolute(table).string();
    const std::string name = TableNameOf(path);
    host.Do("Open Table \"" + path + "\" As " + name);
    return {name, path};
  }
  ColumnsOfOpenTable(table);  // a usage error when no such table is open
  return {table, host.Eval("TableInfo(" + table + ", 19)")};
}

// The user's part: the holes chosen, the mode and the suffix, then OK; a
// hole the box doesn't list is reported, and the box cancelled.
void ChooseHoles(fk::ui::HeadlessDialog& box, const WizardOptions& o, std::vector<std::string>& chosen,
                 std::vector<std::string>& missing) {
  using Box = CDrillholeWizDlg;
  if (!o.fromSelection) {
    box.Press(Box::IDC_REMOVE_ALL);
    missing = Missing(box.View().ListTexts(Box::IDC_AVAILABLE), o.holes);
    if (!missing.empty()) return box.Press(fk::ui::IDCANCEL);
    box.SelectEntries(Box::IDC_AVAILABLE, ListEntries(box.View(), Box::IDC_AVAILABLE, o.holes));
    box.Press(Box::IDC_ADD);
  }
  chosen = box.View().ListTexts(Box::IDC_SELECTED);
  if (o.subset || !o.permanent.empty()) box.SetCheck(Box::IDC_SUBSET, 1);
  if (!o.permanent.empty()) box.SetCheck(Box::IDC_SAVE_PERMANENTLY, 1);
  if (!o.suffix.empty()) box.Type(Box::IDC_SUFFIX, o.suffix);
  box.Press(fk::ui::IDOK);
}

void RunWizard(const GlobalOptions& global, const WizardOptions& o, decltype(DrillHoleWiz)* wizard) {
  HostSession host(global);
  const ProjectTable collar = FindProjectTable(host, o.collar);
  const ProjectTable survey = FindProjectTable(host, o.survey);
  std::vector<std::string> dataFiles;
  for (const std::string& table : o.data) dataFiles.push_back(FindProjectTable(host, table).path);
  std::vector<const char*> data;
  for (const std::string& file : dataFiles) data.push_back(file.c_str());

  fk::ui::HeadlessUi& ui = fk::ui::DefaultHeadlessUi();
  std::vector<std::string> chosen, missing;
  ui.OnDialog(CDrillholeWizDlg::IDD, [&](fk::ui::HeadlessDialog& box) { ChooseHoles(box, o, chosen, missing); });
  if (!o.permanent.empty()) ui.Prompts().AnswerPath(std::filesystem::absolute(o.permanent).string());
  const int shown = wizard(host.Handle(), collar.name.c_str(), "", collar.path.c_str(), survey.path.c_str(), nullptr,
                           nullptr, static_cast<int32_t>(data.size()), data.data(), 1);
  if (!missing.empty()) throw UsageError("no hole " + missing.front() + " in " + collar.name);
  if (shown != 1) throw ToolFailure("the series did not reach the viewer");
  std::printf("%zu holes in the viewer:", chosen.size());
  for (const std::string& hole : chosen) std::printf(" %s", hole.c_str());
  std::printf("\n");
}

void AddWizardCommand(CLI::App& app, const GlobalOptions& options, const char* name, const char* description,
                      decltype(DrillHoleWiz)* wizard) {
  auto o = std::make_shared<WizardOptions>();
  CLI::App* command = app.add_subcommand(name, description);
  command->add_option("collar", o->collar, "The collar table: an open table (see --data) or a table file")->required();
  command->add_option("survey", o->survey, "The survey table")->required();
  command->add_option("data", o->data, "The downhole data tables");
  CLI::Option* holes = command->add_option("--holes", o->holes, "The hole ids to show")->type_name("ID");
  CLI::Option* selection =
      command->add_flag("--from-selection", o->fromSelection, "The holes the host has selected (with --bus)");
  holes->excludes(selection);
  command->add_flag("--subset", o->subset, "Cut the tables to the holes, in the temporary folder");
  command->add_option("--permanent", o->permanent, "Cut the tables to the holes, into this folder")
      ->check(CLI::ExistingDirectory);
  command->add_option("--suffix", o->suffix, "The suffix of the subset tables, and the series' name");
  command->footer(Example(std::string("dbus-run-session -- sh -c '{formkit} viewer register {viewer} && "
                                      "{formkit} --data {samples} ") +
                          name +
                          " collars surveys assays lithology --holes BD001 BD003 BD005 --permanent . && "
                          "{formkit} viewer stop'"));
  OnRun(command, options, [&options, o, wizard] {
    if (o->holes.empty() && !o->fromSelection) throw UsageError("name the holes with --holes, or --from-selection");
    RunWizard(options, *o, wizard);
  });
}

}  // namespace

void AddWizardCommands(CLI::App& app, const GlobalOptions& options) {
  AddWizardCommand(app, options, "drillholes", "Show a drillhole project in the 3D viewer as one series", DrillHoleWiz);
  AddWizardCommand(app, options, "trenches", "Show a trench project in the 3D viewer as one series", TrenchWiz);
}

}  // namespace cli
