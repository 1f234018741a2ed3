// formkit import ogb: the images of a georeference file registered in the
// host, each by a raster registration table that the host then opens. The
// import's dialog box runs headless: the file is picked with its browse
// button, the projection with "Set Projection...", and OK is pressed; its
// messages are printed on standard error.
#include <cstdio>
#include <filesystem>

#include "box_entries.h"
#include "cli_errors.h"
#include "commands.h"
#include "exchange/ogb_import_dlg.h"
#include "exchange/ogb_reader.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

using Box = COGBImportDlg;

struct ImportOptions {
  std::string file, table, coordSys, projectionName;
  std::string xField = "X", yField = "Y";
  bool noTransparent = false;
};

void RequireUsableOptions(const GlobalOptions& global, const ImportOptions& options) {
  if (!std::filesystem::is_regular_file(options.file)) throw UsageError("no such georeference file: " + options.file);
  if (options.coordSys.empty() && !global.bus) throw UsageError("give the map projection with --coordsys");
  const int images = ReadOGBFile(options.file, {}, 0, 1);
  if (images > 1 && !options.table.empty())
    throw UsageError(options.file + " holds " + std::to_string(images) +
                     " images, each given a table named after it: leave out -o");
}

// The user's part: the file and the table, the mapping of the corners'
// numbers, the projection, then OK.
void FillAndAccept(fk::ui::HeadlessDialog& box, const ImportOptions& options) {
  box.Press(Box::IDC_BROWSE_INPUT);
  if (!options.table.empty()) box.Type(Box::IDC_OUTPUT_TABLE, options.table);
  box.ChooseCombo(Box::IDC_X_FIELD, ComboEntry(box.View(), Box::IDC_X_FIELD, options.xField));
  box.ChooseCombo(Box::IDC_Y_FIELD, ComboEntry(box.View(), Box::IDC_Y_FIELD, options.yField));
  if (options.noTransparent) box.SetCheck(Box::IDC_USE_TRANSPARENT, 0);
  box.Press(Box::IDC_SET_PROJECTION);
  box.Press(fk::ui::IDOK);
}

std::vector<std::string> OpenTables() {
  std::vector<std::string> tables;
  g_Cartoma.GetTableNames(tables);
  return tables;
}

void RunImport(const GlobalOptions& global, const ImportOptions& options) {
  RequireUsableOptions(global, options);
  HostSession session(global);
  if (!options.coordSys.empty())
    session.QueueProjection(options.coordSys,
                            options.projectionName.empty() ? options.coordSys : options.projectionName);
  const std::vector<std::string> before = OpenTables();
  fk::ui::HeadlessUi& ui = fk::ui::DefaultHeadlessUi();
  ui.Prompts().AnswerPath(std::filesystem::absolute(options.file).string());
  ui.OnDialog(Box::IDD, [options](fk::ui::HeadlessDialog& box) { FillAndAccept(box, options); });
  if (OGBImport(session.Handle()) != 1) throw ToolFailure("the images of " + options.file + " were not registered");
  if (global.quiet) return;
  for (const std::string& table : OpenTables())
    if (!Missing(before, {table}).empty())
      std::printf("%s: raster table %s opened in the host\n", g_Cartoma.GetTablePath(table).c_str(), table.c_str());
}

}  // namespace

void AddImportCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* command = app.add_subcommand("import", "Bring files of other programs into the host");
  command->require_subcommand(1);
  auto options = std::make_shared<ImportOptions>();
  CLI::App* ogb = command->add_subcommand("ogb", "Register the images of a georeference file (.ogb) in the host");
  ogb->add_option("file", options->file, "The georeference file")->required();
  ogb->add_option("-o,--output", options->table,
                  "The table of its one image (default: the file's name with .tab); it must lie beside the image");
  ogb->add_option("--coordsys", options->coordSys,
                  "The map projection, as the text after \"CoordSys\" (the projection picker's answer)");
  ogb->add_option("--projection-name", options->projectionName, "The projection's name as the picker shows it");
  ogb->add_option("--x-field", options->xField, "Which number of a corner is the map's X")
      ->check(CLI::IsMember({"X", "Y", "Z"}))
      ->capture_default_str();
  ogb->add_option("--y-field", options->yField, "Which number of a corner is the map's Y")
      ->check(CLI::IsMember({"X", "Y", "Z"}))
      ->capture_default_str();
  ogb->add_flag("--no-transparent", options->noTransparent, "Leave out the file's transparent colours");
  const std::string example =
      "cp {samples}/hillshade.jpg {samples}/hillshade.ogb .\n"
      "{formkit} import ogb hillshade.ogb \\\n"
      "    --coordsys 'Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000'";
  ogb->footer(Example(example));
  command->footer(Example(example));
  OnRun(ogb, global, [&global, options] { RunImport(global, *options); });
}

}  // namespace cli
