// formkit host: statements and expressions on the host, to prepare and
// inspect data. A text that begins with "?" is an expression, whose value is
// printed; any other text is a statement (-e EXPR stands for -c ?EXPR).
// Texts come from -c and -e in the order given, else from a file, else from standard input, one a line; empty
// lines and lines beginning with "'" (a comment) are passed over.
#include <fstream>
#include <iostream>

#include "cli_errors.h"
#include "commands.h"
#include "host_session.h"

namespace cli {
namespace {

struct HostOptions {
  std::string file;
  std::vector<std::string> statements, expressions;
  CLI::Option* statementOption = nullptr;
  CLI::Option* expressionOption = nullptr;
};

// Statements, and expressions behind "?", in the order of the command line:
// the options' values come grouped by option, their order from the parse.
std::vector<std::string> TextsInOrder(const CLI::App& command, const HostOptions& host) {
  std::vector<std::string> texts;
  std::size_t statement = 0, expression = 0;
  for (const CLI::Option* option : command.parse_order()) {
    if (option == host.statementOption && statement < host.statements.size())
      texts.push_back(host.statements[statement++]);
    else if (option == host.expressionOption && expression < host.expressions.size())
      texts.push_back("?" + host.expressions[expression++]);
  }
  return texts;
}

bool IsBlankOrComment(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t\r");
  return first == std::string::npos || line[first] == '\'';
}

void RunText(HostSession& host, const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (text[first] == '?')
    std::cout << host.Eval(text.substr(first + 1)) << "\n";
  else
    host.Do(text.substr(first));
}

void RunLines(HostSession& host, std::istream& in, const std::string& source) {
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (IsBlankOrComment(line)) continue;
    try {
      RunText(host, line);
    } catch (const ToolFailure& e) {
      throw ToolFailure(source + ":" + std::to_string(number) + ": " + e.what());
    }
  }
}

void RunHost(const GlobalOptions& options, const HostOptions& host, const std::vector<std::string>& texts) {
  HostSession session(options);
  if (!texts.empty()) {
    for (const std::string& text : texts)
      if (!IsBlankOrComment(text)) RunText(session, text);
  } else if (!host.file.empty() && host.file != "-") {
    std::ifstream in(host.file, std::ios::binary);
    if (!in) throw UsageError("cannot read " + host.file);
    RunLines(session, in, host.file);
  } else {
    RunLines(session, std::cin, "<stdin>");
  }
}

}  // namespace

void AddHostCommand(CLI::App& app, const GlobalOptions& options) {
  auto host = std::make_shared<HostOptions>();
  CLI::App* command = app.add_subcommand(
      "host", "Run host statements and expressions (\"?EXPR\" prints the value of EXPR) on the host");
  host->statementOption =
      command
          ->add_option("-c", host->statements, "A statement, or ?EXPRESSION (repeatable; -c and -e run in the order given)")
          ->type_name("TEXT");
  host->expressionOption =
      command->add_option("-e", host->expressions, "An expression whose value is printed (repeatable)")->type_name("EXPR");
  command->add_option("file", host->file,
                      "A file of statements and ?expressions, one a line ('-' or none: "
                      "standard input)");
  command->footer(
      Example("{formkit} --data {samples} host -e 'NumTables()' \\\n"
              "    -c 'Select HoleID, MaxDepth From collars Where MaxDepth > 150 Into Deep' -e 'TableInfo(Deep, 8)'"));
  OnRun(command, options, [&options, host, command] { RunHost(options, *host, TextsInOrder(*command, *host)); });
}

}  // namespace cli
