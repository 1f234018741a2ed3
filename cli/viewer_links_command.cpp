// formkit viewer links: the 3D link manager run headless. OGB files given
// as parts of a composite are put into the viewer first; the box then
// lists every file and part with its check, switches the ones named by
// --off and --on, and saves the checked ones with --save.
#include <cstdio>
#include <memory>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "platform/ui/dialog_view.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

constexpr int kLinkManagerBox = 1016;
constexpr int kLinks = 1094;
constexpr int kSaveState = 1004;

struct LinksOptions {
  std::string composite, save;
  std::vector<std::string> parts, off, on;
};

void PrintRows(const fk::ui::HeadlessDialog& box) {
  for (int row = 0; row < box.View().ListCtrlRowCount(kLinks); ++row)
    std::printf("[%c] %s\t%s\n", box.View().ListCtrlCheck(kLinks, row) ? 'x' : ' ',
                box.View().ListCtrlText(kLinks, row, 0).c_str(), box.View().ListCtrlText(kLinks, row, 1).c_str());
}

// The first row whose name or file is `name`.
int RowNamed(const fk::ui::HeadlessDialog& box, const std::string& name) {
  for (int row = 0; row < box.View().ListCtrlRowCount(kLinks); ++row)
    if (box.View().ListCtrlText(kLinks, row, 0) == name || box.View().ListCtrlText(kLinks, row, 1) == name) return row;
  throw UsageError("viewer links: no file or part " + name);
}

void RunBox(fk::ui::HeadlessDialog& box, const LinksOptions& o) {
  for (const std::string& name : o.off) box.CheckRow(kLinks, RowNamed(box, name), false);
  for (const std::string& name : o.on) box.CheckRow(kLinks, RowNamed(box, name), true);
  if (!o.save.empty()) {
    fk::ui::DefaultHeadlessUi().Prompts().AnswerPath(o.save);
    box.Press(kSaveState);
  }
  PrintRows(box);
  box.Press(fk::ui::IDOK);
}

void Links(const LinksOptions& o) {
  fk::ui::DefaultHeadlessUi().Prompts().AnswerMessage(fk::ui::IDNO);  // no further wait for a late viewer
  for (const std::string& part : o.parts)
    if (AddOGBFilePart(o.composite.c_str(), part.c_str(), 1) != 1) throw ToolFailure("the viewer did not take " + part);
  fk::ui::DefaultHeadlessUi().OnDialog(kLinkManagerBox, [o](fk::ui::HeadlessDialog& box) { RunBox(box, o); });
  if (TempFileManager() != 1) throw ToolFailure("the viewer is not running");
}

}  // namespace

void AddViewerLinksCommand(CLI::App* viewer, const GlobalOptions& options) {
  auto o = std::make_shared<LinksOptions>();
  CLI::App* links = ProductLeaf(viewer, options, "links", "List the viewer's files and parts with their checks; switch or save them",
                                [o] { Links(*o); });
  links->add_option("parts", o->parts, "OGB files to show first, as parts of the composite")->type_name("PART");
  links->add_option("--composite", o->composite, "The composite OGB file the parts go into")->type_name("FILE.ogb");
  links->add_option("--off", o->off, "Uncheck the file or part of this name")->type_name("FILE|PART");
  links->add_option("--on", o->on, "Check the file or part of this name")->type_name("FILE|PART");
  links->add_option("--save", o->save, "Save the checked files and parts as one OGB file")->type_name("FILE.ogb");
  links->footer(Example(
      "dbus-run-session -- sh -c '{formkit} viewer register {viewer} && "
      "printf \"GeoreferenceImage Begin\\nGeoreferenceImage End\\n\" > /tmp/north.ogb && "
      "cp /tmp/north.ogb /tmp/south.ogb && "
      "{formkit} viewer links --composite /tmp/site.ogb /tmp/north.ogb /tmp/south.ogb --off south --save /tmp/kept.ogb; "
      "{formkit} viewer stop'"));
}

}  // namespace cli
