// formkit contour: contour lines of a grid, written as DXF lines through
// the library's DXF writer, one colour per level. The grid is contoured a
// row of cells at a time, which gives the segments in the very order of one
// call over the whole grid, so that a progress window can follow the work
// and Ctrl-C can stop it (the file then keeps what was written, properly
// ended).
#include <algorithm>
#include <cstdio>
#include <iostream>

#include "cli_errors.h"
#include "commands.h"
#include "contour_levels.h"
#include "formkit/formkit.h"
#include "raster_grid.h"
#include "services/progress_wnd.h"

namespace cli {
namespace {

struct ContourOptions {
  std::string grid, output;
  double interval = 0;
  bool byInterval = false;
  std::vector<double> levels;
};

// A colour from blue (lowest level) through green to red (highest), as a
// host colour (red in the low byte).
std::int32_t LevelColour(std::size_t index, std::size_t count) {
  const double t = count > 1 ? static_cast<double>(index) / (count - 1) : 0.5;
  const int red = static_cast<int>(255 * t), blue = 255 - red;
  const int green = static_cast<int>(200 * (1 - std::abs(2 * t - 1)));
  return red | green << 8 | blue << 16;
}

// Where the contouring's segments go: the DXF file, and a count per level.
struct SegmentSink {
  const std::vector<double>* levels = nullptr;
  std::vector<long> counts;
  std::size_t colourLevel = static_cast<std::size_t>(-1);
  bool failed = false;
};
SegmentSink* g_sink = nullptr;

void WriteSegment(double x1, double y1, double x2, double y2, double level) {
  SegmentSink& sink = *g_sink;
  const std::vector<double>& levels = *sink.levels;
  const std::size_t index = std::lower_bound(levels.begin(), levels.end(), level) - levels.begin();
  if (index != sink.colourLevel) {
    DXFColor(LevelColour(index, levels.size()));
    sink.colourLevel = index;
  }
  if (DXFLine(x1, y1, level, x2, y2, level) != 1) sink.failed = true;
  ++sink.counts[index];
}

std::vector<double> ChooseLevels(const ContourOptions& options, const RasterGrid& grid) {
  std::vector<double> levels = options.byInterval ? LevelsByInterval(options.interval, grid.minimum, grid.maximum)
                                                  : AscendingLevels(options.levels);
  if (levels.empty())
    throw ToolFailure("no level between the grid's lowest value " + std::to_string(grid.minimum) + " and its highest " +
                      std::to_string(grid.maximum));
  return levels;
}

// Contours the grid row by row of cells, from the north, under a progress
// window; false when the user cancelled.
bool ContourRows(const RasterGrid& grid, const std::vector<double>& levels, const std::string& name) {
  const std::vector<const double*> columns = grid.Rows();
  const int iub = static_cast<int>(grid.x.size()) - 1, rows = static_cast<int>(grid.y.size()) - 1;
  CProgressWnd progress("Contouring");
  progress.SetText("Contouring %s at %d levels", name, static_cast<int>(levels.size()));
  progress.SetRange(0, rows, 1);
  for (int j = rows - 1; j >= 0; --j) {
    Contour(columns.data(), 0, iub, j, j + 1, grid.x.data(), grid.y.data(), static_cast<int>(levels.size()),
            levels.data(), WriteSegment);
    progress.StepIt();
    progress.PeekAndPump(true);
    if (progress.Cancelled()) return false;
  }
  return true;
}

void PrintCounts(const std::vector<double>& levels, const std::vector<long>& counts, const std::string& output) {
  std::printf("%14s %10s\n", "level", "segments");
  long total = 0;
  for (std::size_t k = 0; k < levels.size(); ++k) {
    std::printf("%14.6g %10ld\n", levels[k], counts[k]);
    total += counts[k];
  }
  std::printf("%ld segments at %zu levels written to %s\n", total, levels.size(), output.c_str());
}

void RunContour(const GlobalOptions& global, const ContourOptions& options) {
  if (!options.byInterval && options.levels.empty()) throw UsageError("contour: give --interval STEP or --levels Z...");
  const RasterGrid grid = ReadRasterGrid(options.grid);
  const std::vector<double> levels = ChooseLevels(options, grid);
  if (DXFCreateWithBounds(options.output.c_str(), grid.x.front(), grid.y.front(), levels.front(), grid.x.back(),
                          grid.y.back(), levels.back()) != 1)
    throw ToolFailure("cannot write " + options.output);
  SegmentSink sink{&levels, std::vector<long>(levels.size(), 0)};
  g_sink = &sink;
  const bool finished = ContourRows(grid, levels, options.grid);
  g_sink = nullptr;
  if (DXFClose() != 1 || sink.failed) throw ToolFailure("writing " + options.output + " failed");
  if (!finished) throw ToolFailure("cancelled; " + options.output + " holds the lines of the rows done so far");
  if (!global.quiet) PrintCounts(levels, sink.counts, options.output);
}

}  // namespace

void AddContourCommand(CLI::App& app, const GlobalOptions& options) {
  auto contour = std::make_shared<ContourOptions>();
  CLI::App* command = app.add_subcommand("contour", "Contour a grid (any raster GDAL reads) into DXF lines");
  command->add_option("grid", contour->grid, "The grid: a GeoTIFF, an ASCII grid, ...")->required();
  command->add_option("-o,--output", contour->output, "The DXF file to write")->required();
  CLI::Option* interval = command->add_option("--interval", contour->interval, "Contour every multiple of STEP")
                              ->type_name("STEP");
  CLI::Option* levels = command->add_option("--levels", contour->levels, "Contour at these levels")->type_name("Z");
  interval->excludes(levels);
  command->footer(Example("{formkit} contour {samples}/dem.tif -o dem.dxf --interval 2"));
  OnRun(command, options, [&options, contour, interval] {
    contour->byInterval = interval->count() > 0;
    RunContour(options, *contour);
  });
}

}  // namespace cli
