// Statements on the session: progress bars, menu commands and the dialog
// boxes they open, scripts, workspaces, windows and layers.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

#include "errors.h"
#include "host.h"
#include "platform/paths/paths.h"
#include "text_util.h"

namespace sim {
namespace {

constexpr int kMenuOpenTable = 102;
constexpr int kMenuSymbolStyle = 304;
constexpr int kMenuLineStyle = 503;

// A window's printer settings as a statement whose settings stand on
// indented lines of their own.
template <typename Line>
void WritePrinter(const Window& window, const Line& line) {
  if (window.printer.empty()) return;
  line("Set Window FrontWindow() Printer");
  for (const auto& [word, value] : window.printer) {
    const bool quoted = word == "NAME";
    std::string name = Lower(word);
    name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
    line("  " + name + " " + (quoted ? Quote(value) : value));
  }
}

std::vector<std::string> RealNames(Host& host, const std::vector<std::string>& tables) {
  std::vector<std::string> names;
  for (const std::string& table : tables) names.push_back(host.RequireTable(table).Name());
  return names;
}

}  // namespace

void Host::Run(const SetProgressBarsStmt& s) { m_bProgressBars = s.on; }

void Host::MenuCommand(int command) {
  if (command == kMenuOpenTable) {
    if (m_openFiles.empty()) throw HostError("The Open Table dialog box was cancelled");
    const std::string path = m_openFiles.front();
    m_openFiles.pop_front();
    OpenTableStmt open;
    Expr text;
    text.kind = ExprKind::Text;
    text.text = path;
    open.path = std::make_shared<const Expr>(text);
    Run(open);
  } else if (command == kMenuSymbolStyle || command == kMenuLineStyle) {
    auto& answers = command == kMenuSymbolStyle ? m_symbols : m_pens;
    if (answers.empty()) return;  // cancelled: the current style stays
    const Style style = ParseStyleText(answers.front());
    answers.pop_front();
    SetStyleStmt set;
    Expr text;
    text.kind = ExprKind::Text;
    text.text = style.Text();
    set.style = std::make_shared<const Expr>(text);
    Run(set);
  } else {
    throw HostError("Menu command " + std::to_string(command) + " is not known");
  }
}

void Host::Run(const RunMenuCommandStmt& s) {
  MenuCommand(static_cast<int>(Evaluate(*s.command).AsNumber("The menu command")));
}

void Host::Run(const RunApplicationStmt& s) {
  const std::string path = TextOf(s.path);
  if (!std::filesystem::exists(fk::Native(path))) throw HostError("The application " + path + " does not exist");
  std::string name = path.substr(path.find_last_of("/\\") == std::string::npos ? 0 : path.find_last_of("/\\") + 1);
  m_scripts.Add(Lower(name));
}

void Host::Run(const SaveWorkspaceStmt& s) {
  const std::string path = TextOf(s.path);
  std::ofstream out(fk::Native(path), std::ios::binary | std::ios::trunc);
  if (!out) throw HostError("The workspace " + path + " can't be written");
  const auto line = [&](const std::string& text) { out << text << "\r\n"; };
  line("!Workspace");
  line("!Version 1000");
  line("!Charset Neutral");
  for (const auto& table : m_catalog.All())
    if (!table->m_strPath.empty())
      line("Open Table " + Quote(table->m_strPath) + " As " + table->Name() + " Interactive");
  for (const Window& window : m_windows.All()) {
    if (window.type == 2) {
      line("Browse * From " + window.table);
      WritePrinter(window, line);
      continue;
    }
    std::string tables;
    for (const Layer& layer : window.layers) tables += (tables.empty() ? "" : ", ") + layer.table;
    line("Map From " + tables);
    for (std::size_t i = 0; i < window.layers.size(); ++i)
      if (window.layers[i].editable)
        line("Set Map Window FrontWindow() Layer " + std::to_string(i + 1) + " Editable On");
    WritePrinter(window, line);
  }
  if (!out.flush()) throw HostError("The workspace " + path + " can't be written");
}

void Host::Run(const MapFromStmt& s) {
  for (const std::string& name : s.tables)
    if (!RequireTable(name).m_bMappable) throw HostError("Table " + name + " is not mappable");
  m_windows.OpenMapper(RealNames(*this, s.tables));
}

void Host::Run(const AddMapLayerStmt& s) {
  Window& window = m_windows.RequireMapper(WindowOf(s.window));
  for (const std::string& name : RealNames(*this, s.tables)) {
    if (!RequireTable(name).m_bMappable) throw HostError("Table " + name + " is not mappable");
    window.layers.insert(window.layers.begin(), Layer{name});
  }
}

void Host::Run(const RemoveMapLayerStmt& s) {
  Window& window = m_windows.RequireMapper(WindowOf(s.window));
  for (const std::string& name : s.tables) {
    const auto it = std::find_if(window.layers.begin(), window.layers.end(),
                                 [&](const Layer& layer) { return EqualNoCase(layer.table, name); });
    if (it == window.layers.end())
      throw HostError("Table " + name + " is not a layer of window " + std::to_string(window.id));
    window.layers.erase(it);
  }
}

void Host::Run(const SetMapLayerStmt& s) {
  Window& window = m_windows.RequireMapper(WindowOf(s.window));
  // A layer by its number, or by its table's name, written bare or quoted.
  const Value which =
      s.layer->kind == ExprKind::Name && FindTable(s.layer->text) ? Value(s.layer->text) : Evaluate(*s.layer);
  Layer* layer = nullptr;
  if (which.IsNumber()) {
    const auto index = static_cast<std::size_t>(which.AsNumber());
    if (index >= 1 && index <= window.layers.size()) layer = &window.layers[index - 1];
  } else {
    for (Layer& candidate : window.layers)
      if (EqualNoCase(candidate.table, which.AsText())) layer = &candidate;
  }
  if (!layer) throw HostError("Window " + std::to_string(window.id) + " has no layer " + which.AsText());
  if (s.property == "EDITABLE")
    layer->editable = s.on;
  else if (s.property == "SELECTABLE")
    layer->selectable = s.on;
  else
    layer->display = s.on;
}

void Host::Run(const BrowseStmt& s) { m_windows.OpenBrowser(RequireTable(s.table).Name()); }

void Host::Run(const CloseWindowStmt& s) { m_windows.Close(WindowOf(s.window)); }

void Host::Run(const SetWindowTitleStmt& s) { m_windows.Require(WindowOf(s.window)).title = TextOf(s.title); }

void Host::Run(const SetWindowPrinterStmt& s) {
  Window& window = m_windows.Require(WindowOf(s.window));
  for (const auto& [word, value] : s.settings) {
    if (word == "DEFAULT") {
      window.printer.clear();
      continue;
    }
    const std::string text = TextOf(value);
    std::erase_if(window.printer, [&](const auto& setting) { return setting.first == word; });
    window.printer.emplace_back(word, text);
  }
}

void Host::Run(const PrintStmt& s) { m_printed.push_back(TextOf(s.value)); }

}  // namespace sim
