#include "exchange/raster_tab_writer.h"

#include "exchange/picture_size.h"
#include "exchange/tab_coordsys.h"
#include "platform/paths/paths.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_file.h"

namespace {

// A bare image name lies beside the table; any other is probed as given.
std::string ImageProbePath(const std::string& tabPath, const std::string& imageName) {
  if (imageName.find_first_of("/\\") != std::string::npos) return imageName;
  const fk::PathParts table = fk::SplitPath(tabPath);
  return table.drive + table.dir + imageName;
}

void WriteHead(fk::TextWriter& tab, const std::string& imageName) {
  tab.Write("!table\n");
  tab.Write("!version 550\n");
  tab.Write("!charset WindowsLatin1\n\n");
  tab.Write("Definition Table\n");
  tab.Write(fk::Format("  File \"%s\"\n", imageName));
  tab.Write("  Type \"RASTER\"\n");
}

void WriteUnits(fk::TextWriter& tab, const std::string& units) { tab.Write(fk::Format("  Units \"%s\"\n", units)); }

// Control points and the coordinate system of a kept table are rewritten.
bool IsReplacedLine(const std::string& upper) {
  return upper.find(" LABEL ") != std::string::npos || upper.find("COORDSYS") != std::string::npos;
}

// The kept lines before the first control point or coordinate system line,
// written as they stand; returns where that line is.
std::size_t WriteKeptHead(fk::TextWriter& tab, const std::vector<std::string>& lines) {
  std::size_t at = 0;
  for (; at < lines.size() && !IsReplacedLine(fk::ToUpper(lines[at])); ++at) tab.Write(lines[at]);
  return at;
}

// The kept lines from `at` on, without control points and coordinate
// system; a units line gives the new units, or goes when there are none.
void WriteKeptTail(fk::TextWriter& tab, const std::vector<std::string>& lines, std::size_t at,
                   const std::string& units) {
  for (; at < lines.size(); ++at) {
    const std::string upper = fk::ToUpper(lines[at]);
    if (IsReplacedLine(upper)) continue;
    if (upper.find("UNITS ") == std::string::npos)
      tab.Write(lines[at]);
    else if (!units.empty())
      WriteUnits(tab, units);
  }
}

void WriteControlPoints(fk::TextWriter& tab, const std::vector<std::int32_t>& pixelX,
                        const std::vector<std::int32_t>& pixelY, const std::vector<double>& worldX,
                        const std::vector<double>& worldY) {
  for (std::size_t i = 0; i < pixelX.size(); ++i) {
    const std::string label = fk::Format("Pt %d", static_cast<int>(i + 1));
    tab.Write(fk::Format("  (%lf,%lf) (%ld,%ld) Label \"%s\"", worldX[i], worldY[i], static_cast<long>(pixelX[i]),
                         static_cast<long>(pixelY[i]), label));
    tab.Write(i + 1 < pixelX.size() ? ",\n" : "\n");
  }
}

}  // namespace

int WriteRasterTabFile(const std::string& tabPath, const std::string& imageName, double left, double bottom,
                       double right, double top, std::string_view coordSys, std::int32_t transparentColor) {
  std::int32_t width = 0, height = 0;
  if (!ReadPictureSize(ImageProbePath(tabPath, imageName), width, height)) return 0;
  fk::TextWriter tab;
  if (!tab.Open(tabPath, "w")) return 0;
  WriteHead(tab, imageName);
  // Clockwise from the picture's top left corner; pixel row 0 is the top.
  const int w = width - 1, h = height - 1;
  tab.Write(fk::Format("  (%lf,%lf) (%d,%d) Label \"Pt 1\",\n", left, top, 0, 0));
  tab.Write(fk::Format("  (%lf,%lf) (%d,%d) Label \"Pt 2\",\n", right, top, w, 0));
  tab.Write(fk::Format("  (%lf,%lf) (%d,%d) Label \"Pt 3\",\n", right, bottom, w, h));
  tab.Write(fk::Format("  (%lf,%lf) (%d,%d) Label \"Pt 4\"\n", left, bottom, 0, h));
  const TabCoordSys coordinates = DescribeTabCoordSys(coordSys);
  tab.Write(coordinates.strLine);
  WriteUnits(tab, coordinates.strUnits);
  if (transparentColor != -1) {
    tab.Write("  RasterStyle 4 1\n");  // transparency on
    tab.Write(fk::Format("  RasterStyle 7 %d\n", transparentColor));
  }
  return tab.Close() ? 1 : 0;
}

int RewriteRasterTabFile(const std::string& tabPath, const std::string& imageName,
                         const std::vector<std::int32_t>& pixelX, const std::vector<std::int32_t>& pixelY,
                         const std::vector<double>& worldX, const std::vector<double>& worldY,
                         std::string_view coordSys, const std::vector<std::string>& keptLines) {
  const std::size_t count = pixelX.size();
  if (pixelY.size() < count || worldX.size() < count || worldY.size() < count) return 0;
  fk::TextWriter tab;
  if (!tab.Open(tabPath, "w")) return 0;
  std::size_t tail = 0;
  if (keptLines.empty())
    WriteHead(tab, imageName);
  else
    tail = WriteKeptHead(tab, keptLines);
  WriteControlPoints(tab, pixelX, pixelY, worldX, worldY);
  const TabCoordSys coordinates = DescribeTabCoordSys(coordSys);
  tab.Write(coordinates.strLine);
  if (!keptLines.empty())
    WriteKeptTail(tab, keptLines, tail, coordinates.strUnits);
  else if (!coordinates.strUnits.empty())
    WriteUnits(tab, coordinates.strUnits);
  return tab.Close() ? 1 : 0;
}
