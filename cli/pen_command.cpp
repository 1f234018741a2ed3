// formkit pen: the host's pen files as a listing and as pictures, each pen
// drawn by the library's line style renderer.
#include <cmath>
#include <cstdio>
#include <sstream>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "formkit/host.h"
#include "host/pen_file.h"
#include "maptools/style_line.h"
#include "pen_listing.h"
#include "platform/draw/cairo_dc.h"

namespace cli {
namespace {

struct RenderOptions {
  std::string file, output, colour = "000000", points;
  int index = 0, width = 1, dpi = 96;
  std::vector<int> size;
};

using Points = std::vector<std::int32_t>;  // x, y pairs

int PenCountOf(const std::string& file) {
  const int count = GetCartomaPenCount(file.c_str());
  if (count <= 0) throw ToolFailure("not a pen file, or it holds no pens: " + file);
  return count;
}

void RunList(const std::string& file) {
  const int count = PenCountOf(file);
  std::printf("%s: %d pens\n", file.c_str(), count);
  for (int index = 0; index < count; ++index) {
    std::vector<std::string> passes;
    if (!ReadPenPasses(file, index, passes)) {
      std::printf("  pen %d: unreadable\n", index);
      continue;
    }
    std::printf("  pen %d: %zu passes\n", index, passes.size());
    for (std::size_t pass = 0; pass < passes.size(); ++pass)
      std::printf("    pass %zu (%zu bytes):\n%s", pass + 1, passes[pass].size(), ListPass(passes[pass]).c_str());
  }
}

// A host colour (red in the low byte) from "RRGGBB".
std::int32_t ParseColour(const std::string& text) {
  std::size_t used = 0;
  long rgb = -1;
  try {
    rgb = std::stol(text, &used, 16);
  } catch (const std::exception&) {
  }
  if (text.size() != 6 || used != 6 || rgb < 0) throw UsageError("--colour takes RRGGBB, not '" + text + "'");
  return static_cast<std::int32_t>((rgb >> 16 & 0xFF) | (rgb & 0xFF00) | (rgb & 0xFF) << 16);
}

Points ParsePoints(const std::string& text) {
  Points points;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    int x = 0, y = 0;
    char comma = 0, rest = 0;
    if (std::sscanf(word.c_str(), "%d%c%d%c", &x, &comma, &y, &rest) != 3 || comma != ',')
      throw UsageError("--points takes \"X,Y X,Y ...\", not '" + word + "'");
    points.insert(points.end(), {x, y});
  }
  if (points.empty()) throw UsageError("--points names no point");
  return points;
}

// A line with sharp corners, a curve and a segment shorter than a pixel.
Points SampleLine() {
  Points points = {20, 130, 90, 40, 160, 130};
  for (int step = 0; step <= 12; ++step) {
    const double angle = 3.14159265358979 * (1 + step / 12.0);
    points.insert(points.end(), {static_cast<int>(std::lround(220 + 60 * std::cos(angle))),
                                 static_cast<int>(std::lround(130 + 60 * std::sin(angle)))});
  }
  points.insert(points.end(), {280, 131, 380, 40});
  return points;
}

void RunRender(const RenderOptions& options) {
  PenCountOf(options.file);
  if (options.index < 0) throw UsageError("--index counts pens from 0");
  if (!options.points.empty() && options.size.empty()) throw UsageError("--points needs --size W H");
  Points points = options.points.empty() ? SampleLine() : ParsePoints(options.points);
  const int width = options.size.empty() ? 400 : options.size[0], height = options.size.empty() ? 160 : options.size[1];
  const std::int32_t dc = fk_create_file_dc(options.output.c_str(), width, height, options.dpi);
  if (!dc) throw ToolFailure("cannot make the picture " + options.output + " (PNG, SVG or PDF)");
  DrawCMStyleLine(dc, options.file.c_str(), options.index, ParseColour(options.colour), options.width, points.data(),
                  static_cast<std::int32_t>(points.size() / 2));
  if (!fk_close_dc(dc)) throw ToolFailure("cannot write " + options.output);
}

// Every pen in a row of its own, at widths 1, 3 and 12, labelled with its index.
void RunSheet(const std::string& file, const std::string& output) {
  constexpr int kLabel = 50, kCell = 220, kRow = 50;
  const int count = PenCountOf(file);
  const auto sheet = fk::draw::CairoDC::Create(output, kLabel + 3 * kCell, count * kRow, 96);
  if (!sheet) throw ToolFailure("cannot make the picture " + output);
  for (int index = 0; index < count; ++index) {
    const int top = index * kRow;
    sheet->DrawLabel({10, top + 15}, "DejaVu Sans", 10, std::to_string(index));
    const int widths[] = {1, 3, 12};
    for (int column = 0; column < 3; ++column) {
      const int left = kLabel + column * kCell;
      std::vector<fk::draw::Point> line = {
          {left + 10, top + 35}, {left + 80, top + 15}, {left + 140, top + 35}, {left + 210, top + 15}};
      stylelines::DrawCMStyleLine(*sheet, file, index, 0x000000, static_cast<std::int16_t>(widths[column]), line);
    }
  }
  if (!sheet->Close()) throw ToolFailure("cannot write " + output);
}

void AddList(CLI::App* pen, const GlobalOptions& global) {
  auto file = std::make_shared<std::string>();
  CLI::App* list = pen->add_subcommand("list", "List the pens of a pen file, their passes and opcodes");
  list->add_option("file", *file, "The pen file")->required();
  list->footer(Example("{formkit} pen list {samples}/styles.pen"));
  OnRun(list, global, [file] { RunList(*file); });
}

void AddRender(CLI::App* pen, const GlobalOptions& global) {
  auto options = std::make_shared<RenderOptions>();
  CLI::App* render = pen->add_subcommand("render", "Draw a line in one pen into a PNG, SVG or PDF picture");
  render->add_option("file", options->file, "The pen file")->required();
  render->add_option("--index", options->index, "The pen, counted from 0");
  render->add_option("--width", options->width, "The line width: 1 to 9 pixels, from 10 up tenths of a point");
  render->add_option("--colour", options->colour, "The line colour")->type_name("RRGGBB");
  render->add_option("--dpi", options->dpi, "The picture's dots per inch (default 96)");
  render->add_option("--points", options->points, "The line in pixels (default: a sample line)")
      ->type_name("\"X,Y X,Y ...\"");
  render->add_option("--size", options->size, "The picture's size in pixels")->type_name("W H")->expected(2);
  render->add_option("-o,--output", options->output, "The picture to write")->required();
  render->footer(Example("{formkit} pen render {samples}/styles.pen --index 1 --width 3 --colour 0000C0 -o dash.png"));
  OnRun(render, global, [options] { RunRender(*options); });
}

void AddSheet(CLI::App* pen, const GlobalOptions& global) {
  auto file = std::make_shared<std::string>(), output = std::make_shared<std::string>();
  CLI::App* sheet = pen->add_subcommand("sheet", "Draw every pen of a pen file at widths 1, 3 and 12 into a PNG");
  sheet->add_option("file", *file, "The pen file")->required();
  sheet->add_option("-o,--output", *output, "The picture to write")->required();
  sheet->footer(Example("{formkit} pen sheet {samples}/styles.pen -o sheet.png"));
  OnRun(sheet, global, [file, output] { RunSheet(*file, *output); });
}

}  // namespace

void AddPenCommand(CLI::App& app, const GlobalOptions& options) {
  CLI::App* pen = app.add_subcommand("pen", "List and draw the line styles of a pen file");
  pen->require_subcommand(1);
  pen->footer(Example(
      "{formkit} pen list {samples}/styles.pen\n"
      "{formkit} pen render {samples}/styles.pen --index 5 --width 2 --colour 008000 --points \"10,50 150,50 190,10\" "
      "--size 200 60 -o band.svg\n"
      "{formkit} pen sheet {samples}/styles.pen -o sheet.png"));
  AddList(pen, options);
  AddRender(pen, options);
  AddSheet(pen, options);
}

}  // namespace cli
