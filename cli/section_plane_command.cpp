// formkit section-plane: the "Window in Plain" box over a table. With
// --origin the box runs headless as a user fills it: the table chosen, the
// origin and bearing typed, OK pressed, and the table becomes a section;
// without, the plane the box shows for the table is printed and the box
// cancelled.
#include <cstdio>

#include "box_entries.h"
#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "maptools/section_dlg.h"
#include "platform/text/format.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

using Box = CSectionDlg;

struct SectionOptions {
  std::string table;
  std::vector<double> origin;
  double bearing = 0;
};

struct ShownPlane {
  std::string x, y, z, bearing;
};

void ChooseTable(fk::ui::HeadlessDialog& box, const std::string& table) {
  const int entry = ComboEntry(box.View(), Box::IDC_LAYER, table);
  if (entry < 0) throw UsageError("no table of objects named " + table + " is open");
  box.ChooseCombo(Box::IDC_LAYER, entry);
}

void FillAndAccept(fk::ui::HeadlessDialog& box, const SectionOptions& options) {
  ChooseTable(box, options.table);
  const int edits[] = {Box::IDC_X, Box::IDC_Y, Box::IDC_Z};
  for (int i = 0; i < 3; ++i) box.Type(edits[i], fk::Format("%.17g", options.origin[static_cast<std::size_t>(i)]));
  box.Type(Box::IDC_BEARING, fk::Format("%.17g", options.bearing));
  box.Press(fk::ui::IDOK);
}

void ReadAndCancel(fk::ui::HeadlessDialog& box, const SectionOptions& options, ShownPlane& shown) {
  ChooseTable(box, options.table);
  const fk::ui::DialogView& view = box.View();
  shown = {view.Text(Box::IDC_X), view.Text(Box::IDC_Y), view.Text(Box::IDC_Z), view.Text(Box::IDC_BEARING)};
  box.Press(fk::ui::IDCANCEL);
}

void RunSectionPlane(const GlobalOptions& global, const SectionOptions& options) {
  HostSession session(global);
  fk::ui::HeadlessUi& ui = fk::ui::DefaultHeadlessUi();
  if (options.origin.empty()) {
    ShownPlane shown;
    ui.OnDialog(Box::IDD, [&](fk::ui::HeadlessDialog& box) { ReadAndCancel(box, options, shown); });
    SetLayerSectionPlane(session.Handle());
    if (shown.x.empty()) throw ToolFailure("the section plane box did not open");
    std::printf("%s: origin %s %s %s, bearing %s\n", options.table.c_str(), shown.x.c_str(), shown.y.c_str(),
                shown.z.c_str(), shown.bearing.c_str());
    return;
  }
  ui.OnDialog(Box::IDD, [&](fk::ui::HeadlessDialog& box) { FillAndAccept(box, options); });
  if (SetLayerSectionPlane(session.Handle()) != 1) throw ToolFailure("the section plane was not set");
  if (!global.quiet) std::printf("%s: a section, its plane kept in the table's metadata\n", options.table.c_str());
}

}  // namespace

void AddSectionPlaneCommand(CLI::App& app, const GlobalOptions& global) {
  auto options = std::make_shared<SectionOptions>();
  CLI::App* command = app.add_subcommand("section-plane", "Show or set the vertical section plane of a table");
  command->add_option("table", options->table, "An open table of objects (see --data)")->required();
  CLI::Option* origin =
      command->add_option("--origin", options->origin, "The plane's origin: X Y Z")->expected(3)->type_name("X Y Z");
  command->add_option("--bearing", options->bearing, "The plane's bearing in degrees")->needs(origin);
  command->footer(Example("cp {samples}/collars.tab {samples}/collars.gpkg .\n"
                          "{formkit} --data collars.tab section-plane collars --origin 255100 5925200 0 --bearing 90"));
  OnRun(command, global, [&global, options] { RunSectionPlane(global, *options); });
}

}  // namespace cli
