#include "terminal.h"

#include <iostream>
#include <sstream>
#include <utility>

#include "commands.h"
#include "host_session.h"
#include "platform/ui/headless/headless_progress.h"
#include "platform/ui/headless/headless_ui.h"

namespace cli {

void UseTerminal(const GlobalOptions& options) {
  fk::ui::HeadlessUi& ui = fk::ui::DefaultHeadlessUi();
  fk::ui::SetCurrentUi(&ui);
  fk::ui::HeadlessProgress::SetQuiet(options.quiet);
  ui.Prompts().OnShow([](const fk::ui::ShownPrompt& prompt) {
    if (prompt.kind == fk::ui::ShownPrompt::Message) std::cerr << prompt.text << "\n";
  });
}

void OnRun(CLI::App* command, const GlobalOptions& options, std::function<void()> work) {
  command->callback([&options, work = std::move(work)] {
    UseTerminal(options);
    work();
  });
}

CLI::App* ProductLeaf(CLI::App* parent, const GlobalOptions& global, const char* name, const char* description,
                      std::function<void()> work) {
  CLI::App* command = parent->add_subcommand(name, description);
  OnRun(command, global, [&global, work = std::move(work)] {
    InitProduct(global.product);
    work();
  });
  return command;
}

namespace {
std::string g_strProgram = "formkit";
}  // namespace

void SetProgramName(const std::string& program) { g_strProgram = program; }

std::string Example(const std::string& lines) {
  std::string text = "\nExample:\n";
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) text += "  " + line + "\n";
  for (const auto& [name, value] : {std::pair<std::string, std::string>{"{formkit}", g_strProgram},
                                    {"{samples}", FORMKIT_SAMPLES_DIR},
                                    {"{viewer}", FORMKIT_VIEWER_PATH}})
    for (std::size_t at; (at = text.find(name)) != std::string::npos;) text.replace(at, name.size(), value);
  return text;
}

}  // namespace cli
