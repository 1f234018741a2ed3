// formkit export datamine|minesight: a host table's objects written node
// by node to a Datamine text file or a MineSight string file. The export's
// dialog box runs headless: the options are put into its controls (numbers
// in the user's locale, as a user types them) and OK is pressed; its
// messages, such as the rows it skipped, are printed on standard error.
#include <cstdio>
#include <fstream>

#include "box_entries.h"
#include "cli_errors.h"
#include "commands.h"
#include "exchange/minesight_export_dlg.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "platform/text/user_numbers.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

using Box = CDatamineExportDlg;

struct ExportOptions {
  bool mineSight = false;
  std::string table, output, zColumn;
  double z = 0.0;
  std::vector<double> multiply{1.0, 1.0, 1.0}, add{0.0, 0.0, 0.0};
  std::vector<std::string> attributes;
  bool flipXY = false;
};

void RequireTableAndColumns(const ExportOptions& options) {
  std::vector<std::string> tables;
  g_Cartoma.GetVectorTableNames(tables);
  std::vector<std::string> wanted = options.attributes;
  if (!options.zColumn.empty()) wanted.push_back(options.zColumn);
  RequireTableWithColumns(tables, options.table, wanted);
}

// The user's part: every control as the options say, then OK.
void FillAndAccept(fk::ui::HeadlessDialog& box, const ExportOptions& options) {
  box.ChooseCombo(Box::IDC_TABLE, ComboEntry(box.View(), Box::IDC_TABLE, options.table));
  box.Type(Box::IDC_OUTPUT_FILE, options.output);
  if (!options.zColumn.empty())
    box.ChooseCombo(Box::IDC_Z_COLUMN, ComboEntry(box.View(), Box::IDC_Z_COLUMN, options.zColumn));
  box.Type(Box::IDC_DEFAULT_Z, fk::UserNumberText(options.z));
  const int multiply[] = {Box::IDC_MULTIPLY_X, Box::IDC_MULTIPLY_Y, Box::IDC_MULTIPLY_Z};
  const int add[] = {Box::IDC_ADD_X, Box::IDC_ADD_Y, Box::IDC_ADD_Z};
  for (int i = 0; i < 3; ++i) {
    box.Type(multiply[i], fk::UserNumberText(options.multiply[i]));
    box.Type(add[i], fk::UserNumberText(options.add[i]));
  }
  box.SelectEntries(Box::IDC_ATTRIBUTES, ListEntries(box.View(), Box::IDC_ATTRIBUTES, options.attributes));
  if (options.flipXY) box.SetCheck(CMineSightExportDlg::IDC_FLIP_XY, 1);
  box.Press(fk::ui::IDOK);
}

long LinesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  long lines = 0;
  for (std::string line; std::getline(in, line);) ++lines;
  return lines;
}

void RunExport(const GlobalOptions& global, const ExportOptions& options) {
  HostSession session(global);
  RequireTableAndColumns(options);
  const unsigned templateId = options.mineSight ? unsigned{CMineSightExportDlg::IDD} : unsigned{CDatamineExportDlg::IDD};
  fk::ui::DefaultHeadlessUi().OnDialog(templateId, [options](fk::ui::HeadlessDialog& box) { FillAndAccept(box, options); });
  const int done = options.mineSight ? MineSightExport(session.Handle()) : DatamineExport(session.Handle());
  if (done != 1) throw ToolFailure("the export to " + options.output + " did not finish");
  // A Datamine file has eleven header lines and one per attribute.
  const long head = options.mineSight ? 0 : 11 + static_cast<long>(options.attributes.size());
  if (!global.quiet)
    std::printf("%s: %ld nodes of table %s\n", options.output.c_str(), LinesOf(options.output) - head,
                options.table.c_str());
}

void AddFormat(CLI::App& parent, const GlobalOptions& global, bool mineSight) {
  auto options = std::make_shared<ExportOptions>();
  options->mineSight = mineSight;
  CLI::App* command = parent.add_subcommand(mineSight ? "minesight" : "datamine",
                                            mineSight ? "Write a MineSight string file (.srg)"
                                                      : "Write a Datamine text file (.txt)");
  command->add_option("table", options->table, "An open table of objects (see --data)")->required();
  command->add_option("-o,--output", options->output, "The file to write (an existing one is overwritten)")
      ->required();
  command->add_option("--z-column", options->zColumn, "The column that gives each object's Z")->type_name("COLUMN");
  command->add_option("--z", options->z, "The Z of objects without one (default 0)")->type_name("Z");
  command->add_option("--multiply", options->multiply, "Factors of X, Y and Z (default 1 1 1)")
      ->type_name("X Y Z")
      ->expected(3);
  command->add_option("--add", options->add, "What is added to X, Y and Z after the factors (default 0 0 0)")
      ->type_name("X Y Z")
      ->expected(3);
  command->add_option("--attributes", options->attributes, "Columns written behind each node, in the table's order")
      ->type_name("COLUMN");
  if (mineSight) command->add_flag("--flip-xy", options->flipXY, "Write Y before X (after the transform)");
  command->footer(Example(mineSight ? "{formkit} --data {samples}/objects.tab export minesight objects -o objects.srg "
                                      "--flip-xy --multiply 2 1 1"
                                    : "{formkit} --data {samples}/objects.tab export datamine objects -o objects.txt "
                                      "--attributes Name"));
  OnRun(command, global, [&global, options] { RunExport(global, *options); });
}

}  // namespace

void AddExportCommand(CLI::App& app, const GlobalOptions& options) {
  CLI::App* command = app.add_subcommand("export", "Write a table's objects, node by node, for a mine planning package");
  command->require_subcommand(1);
  AddFormat(*command, options, false);
  AddFormat(*command, options, true);
  command->footer(Example(
      "{formkit} --data {samples}/objects.tab export datamine objects -o objects.txt --attributes Name\n"
      "{formkit} --data {samples}/objects.tab export minesight objects -o objects.srg --flip-xy --multiply 2 1 1"));
}

}  // namespace cli
