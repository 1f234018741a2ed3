// formkit register-image: the raster registration table that ties a
// picture to a rectangle of the world, written by the library's writer with
// the picture's size from the library.
#include <cstdio>
#include <filesystem>

#include "cli_errors.h"
#include "commands.h"
#include "exchange/raster_tab_writer.h"
#include "formkit/formkit.h"

namespace cli {
namespace fs = std::filesystem;
namespace {

struct RegisterOptions {
  std::string image, table, coordSys, transparent;
  std::vector<double> bounds;  // left, bottom, right, top
};

// A host colour (red in the low byte) from "#RRGGBB" or a decimal number.
std::int32_t ParseColour(const std::string& text) {
  try {
    std::size_t used = 0;
    if (text.size() == 7 && text[0] == '#') {
      const long rgb = std::stol(text.substr(1), &used, 16);
      if (used == 6) return static_cast<std::int32_t>((rgb >> 16 & 0xFF) | (rgb & 0xFF00) | (rgb & 0xFF) << 16);
    } else {
      const long colour = std::stol(text, &used, 10);
      if (used == text.size() && colour >= 0 && colour <= 0xFFFFFF) return static_cast<std::int32_t>(colour);
    }
  } catch (const std::exception&) {
  }
  throw UsageError("--transparent takes #RRGGBB or a host colour number, not '" + text + "'");
}

// The image as the table names it: bare when the table sits beside it.
std::string ImageNameFor(const fs::path& image, const fs::path& table) {
  const fs::path imageFolder = fs::absolute(image).parent_path(), tableFolder = fs::absolute(table).parent_path();
  return imageFolder == tableFolder ? image.filename().string() : fs::absolute(image).string();
}

void RunRegister(const GlobalOptions& global, const RegisterOptions& options) {
  const auto& b = options.bounds;
  if (!(b[0] < b[2] && b[1] < b[3])) throw UsageError("--bounds: LEFT must be below RIGHT and BOTTOM below TOP");
  if (!fs::is_regular_file(options.image)) throw UsageError("no such picture: " + options.image);
  const fs::path table =
      options.table.empty() ? fs::path(options.image).replace_extension(".tab") : fs::path(options.table);
  if (fs::absolute(table) == fs::absolute(options.image)) throw UsageError("the table would overwrite the picture");
  std::int32_t width = 0, height = 0;
  if (GetPictureSize(options.image.c_str(), &width, &height) != 1)
    throw ToolFailure("cannot read the size of picture " + options.image);
  const std::int32_t transparent = options.transparent.empty() ? -1 : ParseColour(options.transparent);
  if (WriteRasterTabFile(table.string(), ImageNameFor(options.image, table), b[0], b[1], b[2], b[3], options.coordSys,
                         transparent) != 1)
    throw ToolFailure("cannot write " + table.string());
  if (!global.quiet)
    std::printf("%s: picture of %d x %d pixels over (%.10g, %.10g) - (%.10g, %.10g)\n", table.string().c_str(), width,
                height, b[0], b[1], b[2], b[3]);
}

}  // namespace

void AddRegisterImageCommand(CLI::App& app, const GlobalOptions& options) {
  auto reg = std::make_shared<RegisterOptions>();
  CLI::App* command = app.add_subcommand("register-image", "Write the raster registration table of a picture");
  command->add_option("image", reg->image, "The picture (PNG, JPEG, TIFF, ...)")->required();
  command->add_option("--bounds", reg->bounds, "The world rectangle the picture covers")
      ->type_name("LEFT BOTTOM RIGHT TOP")
      ->expected(4)
      ->required();
  command->add_option("--coordsys", reg->coordSys,
                      "Its coordinate system, as the text after \"CoordSys\" (none: non-earth metres)");
  command->add_option("--transparent", reg->transparent, "The colour shown as transparent, #RRGGBB")
      ->type_name("COLOUR");
  command->add_option("-o,--output", reg->table, "The table to write (default: the picture's name with .tab)");
  command->footer(
      Example("{formkit} register-image {samples}/hillshade.jpg -o hillshade.tab \\\n"
              "    --bounds 255000 5925000 255400 5925400 \\\n"
              "    --coordsys 'Earth Projection 8, 116, \"m\", 147, 0, 0.9996, 500000, 10000000'"));
  OnRun(command, options, [&options, reg] { RunRegister(options, *reg); });
}

}  // namespace cli
