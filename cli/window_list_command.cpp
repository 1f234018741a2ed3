// formkit window-list: the window choosers of the add-on's script, "Map
// Linking" (link) and "Cursor Position" (cursor), run headless as a user
// fills them: the rows named by --tick ticked and the others not, the
// method or the pan flag set, OK pressed. What the export gives back is
// printed: a line per window with its tick, then the method or the pan
// flag and the symbol.
#include <cstdio>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "host_session.h"
#include "maptools/window_list_dlg.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {
namespace {

struct WindowListOptions {
  std::vector<std::string> items;  // "\t" written as two characters stands for a tab
  std::vector<int> ticked;         // rows counted from 1
  bool fixedScale = false;
  bool pan = false;
  std::string symbol;
};

std::string WithTabs(std::string item) {
  for (std::size_t at; (at = item.find("\\t")) != std::string::npos;) item.replace(at, 2, "\t");
  return item;
}

// `choice` is the radio of the method, or the pan check box, set to `state`.
void TickAndAccept(fk::ui::HeadlessDialog& box, const WindowListOptions& options, int choice, int state) {
  const int rows = box.View().ListCtrlRowCount(CWindowListDlg::IDC_WINDOWS);
  for (int row = 0; row < rows; ++row) box.CheckRow(CWindowListDlg::IDC_WINDOWS, row, false);
  for (int row : options.ticked) {
    if (row < 1 || row > rows) throw UsageError("--tick " + std::to_string(row) + ": there are " +
                                                std::to_string(rows) + " windows");
    box.CheckRow(CWindowListDlg::IDC_WINDOWS, row - 1, true);
  }
  box.SetCheck(choice, state);
  box.Press(fk::ui::IDOK);
}

void RunWindowList(const GlobalOptions& global, const WindowListOptions& options, bool link) {
  HostSession session(global);
  std::vector<std::string> items;
  std::vector<const char*> texts;
  for (const std::string& item : options.items) items.push_back(WithTabs(item));
  for (const std::string& item : items) texts.push_back(item.c_str());
  std::vector<std::int32_t> ticks(items.size(), 0);
  const int method = options.fixedScale ? CLinkedWindowsDlg::IDC_FIXED_SCALE : CLinkedWindowsDlg::IDC_FIXED_EXTENTS;
  const int choice = link ? method : static_cast<int>(CCurPosDlg::IDC_PAN);
  const int state = link || options.pan ? 1 : 0;
  const unsigned box = link ? static_cast<unsigned>(CLinkedWindowsDlg::IDD) : static_cast<unsigned>(CCurPosDlg::IDD);
  fk::ui::DefaultHeadlessUi().OnDialog(box,
                                       [&](fk::ui::HeadlessDialog& box) { TickAndAccept(box, options, choice, state); });
  std::int32_t linkMethod = 0, pan = 0;
  std::string symbol = options.symbol;
  symbol.resize(symbol.size() + 256);  // the caller's buffer
  const std::int32_t count = static_cast<std::int32_t>(texts.size());
  const int result = link ? LinkWinodowListDialog(texts.data(), ticks.data(), count, &linkMethod, session.Handle())
                          : CurPosWinodowListDialog(texts.data(), ticks.data(), count, &pan, symbol.data());
  if (result != 1) throw ToolFailure("the window list box did not end with OK");
  for (std::size_t i = 0; i < items.size(); ++i) std::printf("[%c] %s\n", ticks[i] ? 'x' : ' ', options.items[i].c_str());
  if (link)
    std::printf("method: %s\n", linkMethod == 1 ? "fixed scale" : "fixed extents");
  else
    std::printf("pan: %s\nsymbol: %s\n", pan ? "yes" : "no", symbol.c_str());
}

}  // namespace

void AddWindowListCommand(CLI::App& app, const GlobalOptions& global) {
  auto options = std::make_shared<WindowListOptions>();
  CLI::App* command = app.add_subcommand("window-list", "Choose map windows to link, or to show a shared cursor");
  command->require_subcommand(1);
  for (const bool link : {true, false}) {
    CLI::App* box = command->add_subcommand(link ? "link" : "cursor",
                                            link ? "The Map Linking box" : "The Cursor Position box");
    box->add_option("items", options->items, "The windows: NAME, or NAME\\tSECOND-COLUMN")->required();
    box->add_option("--tick", options->ticked, "The rows to tick, counted from 1")->type_name("ROW");
    if (link) {
      box->add_flag("--fixed-scale", options->fixedScale, "Link by map scale (else by X extents)");
    } else {
      box->add_flag("--pan", options->pan, "Pan the mapper to show the cursor position");
      box->add_option("--symbol", options->symbol, "The cursor symbol, a host style");
    }
    OnRun(box, global, [&global, options, link] { RunWindowList(global, *options, link); });
  }
  command->footer(Example("{formkit} window-list link 'Pit\\tMGA Zone 55' 'Regional\\tLong/Lat' --tick 1 2 --fixed-scale"));
}

}  // namespace cli
