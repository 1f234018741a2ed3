// formkit hotlinks: the hotlinks of a table edited on a handheld rewritten
// as desktop paths, then the table saved to a new file. The converter's
// dialog box runs headless: the table and fields are chosen, the options
// set, and OK is pressed.
#include <cstdio>

#include "box_entries.h"
#include "cli_errors.h"
#include "commands.h"
#include "exchange/hotlink_converter_dlg.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

using Box = CHotLinkConverterDlg;

struct HotlinksOptions {
  std::string table, output, directory;
  std::vector<std::string> fields;
  bool keepPocketWord = false, keepPocketExcel = false;
};

void RequireTableAndFields(const HotlinksOptions& options) {
  std::vector<std::string> tables;
  g_Cartoma.GetMappableTableNames(tables);
  RequireTableWithColumns(tables, options.table, options.fields);
}

void FillAndAccept(fk::ui::HeadlessDialog& box, const HotlinksOptions& options) {
  box.ChooseCombo(Box::IDC_TABLE, ComboEntry(box.View(), Box::IDC_TABLE, options.table));
  box.SelectEntries(Box::IDC_FIELDS, ListEntries(box.View(), Box::IDC_FIELDS, options.fields));
  if (!options.directory.empty()) {
    box.SetCheck(Box::IDC_CHANGE_DIRECTORY, 1);
    box.Type(Box::IDC_NEW_DIRECTORY, options.directory);
  }
  if (options.keepPocketWord) box.SetCheck(Box::IDC_POCKET_WORD, 0);
  if (options.keepPocketExcel) box.SetCheck(Box::IDC_POCKET_EXCEL, 0);
  box.Press(fk::ui::IDOK);
}

void RunHotlinks(const GlobalOptions& global, const HotlinksOptions& options) {
  HostSession session(global);
  RequireTableAndFields(options);
  fk::ui::DefaultHeadlessUi().OnDialog(Box::IDD, [options](fk::ui::HeadlessDialog& box) { FillAndAccept(box, options); });
  if (ConvertHotlinks(session.Handle()) != 1) throw ToolFailure("the hotlinks of " + options.table + " were not converted");
  if (!g_Cartoma.CommitTableAs(options.table, options.output, nullptr, 0))
    throw ToolFailure("cannot save " + options.output + ": " + g_Cartoma.m_strLastError);
  if (!global.quiet)
    std::printf("%s: table %s with the hotlinks of %zu fields converted\n", options.output.c_str(),
                options.table.c_str(), options.fields.size());
}

}  // namespace

void AddHotlinksCommand(CLI::App& app, const GlobalOptions& global) {
  auto options = std::make_shared<HotlinksOptions>();
  CLI::App* command =
      app.add_subcommand("hotlinks", "Rewrite the hotlinks of a table edited on a handheld as desktop paths");
  command->add_option("table", options->table, "An open table of objects (see --data)")->required();
  command->add_option("--fields", options->fields, "The columns that hold hotlinks")->type_name("COLUMN")->required();
  command->add_option("--directory", options->directory,
                      "The folder the linked files are in now, with its separator at the end")
      ->type_name("FOLDER");
  command->add_flag("--keep-pocket-word", options->keepPocketWord, "Leave .psw extensions as they are");
  command->add_flag("--keep-pocket-excel", options->keepPocketExcel, "Leave .pxl extensions as they are");
  command->add_option("-o,--output", options->output, "The table file to save the converted table to")->required();
  command->footer(Example("{formkit} --data {samples}/sites.tab hotlinks sites --fields Report Survey \\\n"
                          "    --directory 'C:\\Surveys\\' -o sites_desktop.tab"));
  OnRun(command, global, [&global, options] { RunHotlinks(global, *options); });
}

}  // namespace cli
