// formkit color-objects: object colours to three integer columns, or the
// objects recoloured from them, on a table or on a copy of it.
#include <filesystem>

#include "cli_errors.h"
#include "commands.h"
#include "data_tables.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "maptools/color_objects.h"

namespace cli {
namespace {

struct ColorObjectsOptions {
  std::string table;
  std::vector<std::string> columns;
  std::vector<float> factors{1, 1, 1};
  std::string output;
  int mode = 0;
  bool apply = false;
};

void RunColorObjects(const GlobalOptions& global, const ColorObjectsOptions& options) {
  HostSession session(global);
  ColumnsOfOpenTable(options.table);
  ColorObjectsRequest request;
  request.table = options.table;
  request.outputPath = options.output.empty() ? g_Cartoma.GetTablePath(options.table)
                                              : std::filesystem::absolute(options.output).string();
  for (int i = 0; i < 3; ++i) {
    request.columns[i] = options.columns[static_cast<std::size_t>(i)];
    request.factors[i] = options.factors[static_cast<std::size_t>(i)];
  }
  request.mode = options.mode;
  request.apply = options.apply;
  if (!RunColorTableObjects(request))
    throw ToolFailure("the colours were not all written: " + g_Cartoma.m_strLastError);
}

}  // namespace

void AddColorObjectsCommand(CLI::App& app, const GlobalOptions& options) {
  auto colours = std::make_shared<ColorObjectsOptions>();
  CLI::App* command = app.add_subcommand(
      "color-objects", "Store object colours in three integer columns, or recolour the objects from them");
  command->add_option("table", colours->table, "An open table (see --data)")->required();
  command->add_option("--columns", colours->columns, "The three columns")->expected(3)->required()->type_name("NAME");
  command->add_option("--mode", colours->mode,
                      "0: the whole colour in the first column, 1: the same with bytes 0 and 2 (blue and red) "
                      "exchanged, 2: bytes 0, 1 and 2 (blue, green, red) in one column each")
      ->check(CLI::Range(0, 2));
  command->add_flag("--apply", colours->apply, "Recolour the objects from the columns (else store the colours)");
  command->add_option("--factors", colours->factors, "With --apply: the factors of the first, second and third column")
      ->expected(3);
  command->add_option("-o,--output", colours->output,
                      "Work on a copy of the table written here (default: the table itself)");
  command->footer(Example(
      "{formkit} --data {samples}/objects.tab color-objects objects --columns Blue Green Red --mode 2 -o objects_rgb.tab"));
  OnRun(command, options, [&options, colours] { RunColorObjects(options, *colours); });
}

}  // namespace cli
