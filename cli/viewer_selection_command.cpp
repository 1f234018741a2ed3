// formkit viewer select-boxes and formkit viewer options: selection boxes
// shown in the 3D viewer, from a CSV file or from rows of a host table, and
// the 3D options of the session with the viewer's own preferences, set
// through the exports or through the options sheet run headless.
#include <cstdio>
#include <fstream>
#include <sstream>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "platform/text/number_parse.h"
#include "platform/ui/dialog_view.h"
#include "platform/ui/headless/headless_ui.h"
#include "viewer/viewer_preferences.h"

namespace cli {
namespace {

// Boxes as AddSelectionHandles takes them, one entry per box in each list.
struct Boxes {
  std::vector<double> x, y, z, height, tilt, turn;
  void Add(double bx, double by, double bz, double bheight, double btilt, double bturn) {
    x.push_back(bx), y.push_back(by), z.push_back(bz), height.push_back(bheight), tilt.push_back(btilt),
        turn.push_back(bturn);
  }
};

struct SelectOptions {
  std::string csv, table, where = "1", zColumn, heightColumn, file;
  bool permanent = false;
};

// "x,y,z,height,tilt,turn" a line; a line that doesn't start with a number
// (a header) is passed over, missing fields are 0.
Boxes BoxesOfCsv(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw UsageError("viewer select-boxes: can't read " + path);
  Boxes boxes;
  for (std::string line; std::getline(in, line);) {
    std::istringstream fields(line);
    double v[6] = {};
    std::string field;
    int read = 0;
    while (read < 6 && std::getline(fields, field, ',')) v[read++] = fk::Atof(field);
    if (read == 0 || line.find_first_of("0123456789") != line.find_first_not_of(" \t-+.")) continue;
    boxes.Add(v[0], v[1], v[2], v[3], v[4], v[5]);
  }
  return boxes;
}

// A box on each row of the table that the condition selects, at its
// object's first geography pair (a point's position), its Z and height from
// the columns named (else 0).
Boxes BoxesOfTable(HostSession& host, const SelectOptions& o) {
  const auto value = [&](const std::string& expression) {
    return expression.empty() ? 0.0 : fk::Atof(host.Eval(expression));
  };
  host.Do("Select * From " + o.table + " Where " + o.where + " Into _Boxes NoSelect");
  Boxes boxes;
  const int rows = static_cast<int>(value("TableInfo(_Boxes, 8)"));
  for (int row = 1; row <= rows; ++row) {
    host.Do("Fetch Rec " + std::to_string(row) + " From _Boxes");
    boxes.Add(value("ObjectGeography(_Boxes.Obj, 1)"), value("ObjectGeography(_Boxes.Obj, 2)"),
              o.zColumn.empty() ? 0.0 : value("_Boxes." + o.zColumn),
              o.heightColumn.empty() ? 0.0 : value("_Boxes." + o.heightColumn), 0, 0);
  }
  return boxes;
}

void SelectBoxes(const GlobalOptions& options, const SelectOptions& o) {
  if (o.csv.empty() == o.table.empty()) throw UsageError("viewer select-boxes: give a CSV file or --table");
  HostSession host(options);
  const Boxes boxes = o.csv.empty() ? BoxesOfTable(host, o) : BoxesOfCsv(o.csv);
  StartViewer();
  if (!o.file.empty()) SetSelectionFile(o.file.c_str());
  const std::vector<double> fallback(boxes.x.size(), 0.0);
  const int count = static_cast<int>(boxes.x.size());
  if (AddSelectionHandles(count, boxes.x.data(), boxes.y.data(), boxes.z.data(), fallback.data(), boxes.tilt.data(),
                          boxes.turn.data(), boxes.height.data(), o.permanent ? 1 : 0) != 1)
    throw ToolFailure("the viewer did not take the selection boxes");
  std::printf("%d selection boxes shown\n", count);
}

// The session's 3D options as the exports read and write them.
struct SessionValue {
  const char* name;
  int (*get)();
  int (*set)(int);
};
constexpr SessionValue kSessionValues[] = {
    {"point-size", Tvik3DOptionsGetPointSize, Tvik3DOptionsSetPointSize},
    {"grid-compression", Tvik3DOptionsGetGridCompression, Tvik3DOptionsSetGridCompression},
    {"raster-scaling", Tvik3DOptionsGetRasterScaling, Tvik3DOptionsSetRasterScaling},
    {"host-parent", Tvik3DOptionsGetCartomaParent, Tvik3DOptionsSetCartomaParent},
    {"grid-clipping", Tvik3DOptionsGetGridClipping, Tvik3DOptionsSetGridClipping},
    {"transparency", Tvik3DOptionsGetTransparency, Tvik3DOptionsSetTransparency},
    {"show-help", Tvik3DOptionsGetShowHelp, Tvik3DOptionsSetShowHelp},
};

void SetSessionValue(const std::string& assignment) {
  const std::size_t equals = assignment.find('=');
  for (const SessionValue& value : kSessionValues)
    if (equals != std::string::npos && assignment.compare(0, equals, value.name) == 0) {
      value.set(fk::Atoi(std::string_view(assignment).substr(equals + 1)));
      return;
    }
  throw UsageError("viewer options: no session value in '" + assignment + "'");
}

void PrintOptions() {
  for (const SessionValue& value : kSessionValues) std::printf("%-18s %d\n", value.name, value.get());
  char projection[1024] = "", description[1024] = "";
  const int mapping = Tvik3DOptionsGetProjMapping(projection, description);
  std::printf("%-18s %d \"%s\" \"%s\"\n", "projection-mapping", mapping, projection, description);
  const int variant = g_Cartoma.m_nProductVariant;
  const ViewerPreferences p = ReadViewerPreferences(variant);
  std::printf("HKCU\\%s\n", ViewerPreferencesKey(variant).c_str());
  std::printf("  axes %u at %u, labels %s %s %s\n", p.nXYZMode, p.nXYZPosition, p.strXLabel.c_str(),
              p.strYLabel.c_str(), p.strZLabel.c_str());
  std::printf("  grids up to %u x %u, in 3D %u x %u; textures %u and %u\n", p.nMaxColumns, p.nMaxRows, p.nMaxColumns3D,
              p.nMaxRows3D, p.nNormalSize, p.nMaximumSize);
}

// The options sheet, its pages left as they show and closed with OK: what
// they hold is stored as the sheet stores it.
void RunOptionsSheet() {
  fk::ui::DefaultHeadlessUi().OnDialog(0, [](fk::ui::HeadlessDialog& page) { page.PressSheetButton(fk::ui::IDOK); });
  char tempDirectory[1024] = "";
  int deleteOnExit = 0;
  if (Tvik3DOptions(tempDirectory, &deleteOnExit) != 1) throw ToolFailure("the 3D options sheet did not end with OK");
}

}  // namespace

void AddViewerSelectionCommands(CLI::App* viewer, const GlobalOptions& options) {
  auto s = std::make_shared<SelectOptions>();
  CLI::App* select = viewer->add_subcommand("select-boxes", "Show selection boxes in the viewer");
  select->add_option("csv", s->csv, "Boxes as lines of x,y,z,height,tilt,turn");
  select->add_option("--table", s->table, "Boxes at the point objects of this host table (with --data)");
  select->add_option("--where", s->where, "Only the table's rows where this holds");
  select->add_option("--z", s->zColumn, "The table's column of box heights above the map (else 0)");
  select->add_option("--height", s->heightColumn, "The table's column of box heights (else the fallback)");
  select->add_option("--file", s->file, "The selection file (else the session's)");
  select->add_flag("--permanent", s->permanent, "Keep the selection file when this command ends");
  OnRun(select, options, [&options, s] { SelectBoxes(options, *s); });

  auto sets = std::make_shared<std::vector<std::string>>();
  auto sheet = std::make_shared<bool>(false);
  CLI::App* show = ProductLeaf(viewer, options, "options", "Show and set the 3D options and the viewer's preferences",
                               [sets, sheet] {
                                 for (const std::string& assignment : *sets) SetSessionValue(assignment);
                                 if (*sheet) RunOptionsSheet();
                                 PrintOptions();
                               });
  show->add_option("--set", *sets, "NAME=VALUE of a session value (point-size, raster-scaling, ...)");
  show->add_flag("--dialog", *sheet, "Run the options sheet with these values and close it with OK");
}

}  // namespace cli
