#include "maptools/reproject_table.h"

#include <cstdint>
#include <vector>

#include "exchange/raster_tab_writer.h"
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "platform/text/string_table.h"

namespace {

constexpr unsigned IDS_NOT_OVERWRITTEN = 2026;
constexpr unsigned IDS_NOT_SAVED = 2027;
constexpr unsigned IDS_EARTH_AND_NON_EARTH = 2095;

constexpr long kRasterTable = 4;
// The host alias of the converted copy while a table is overwritten; an
// earlier failure's copy is dropped before each use.
constexpr const char* kTempCopy = "_TempTableCopy";

bool StartsNoCase(const std::string& text, std::string_view start) {
  return fk::EqualsNoCase(std::string_view(text).substr(0, start.size()), start);
}

// Tells the user that `path` failed, with the host's own words.
bool TellFailure(fk::ui::Prompter& prompter, unsigned message, const std::string& path) {
  prompter.MessageBox(fk::FormatString(message, {path, g_Cartoma.m_strLastError}), fk::ui::MB_OK);
  return false;
}

// The copy's file: the path less its last four characters, whatever the
// extension's length.
std::string TempCopyPath(const std::string& path) {
  return path.substr(0, path.size() >= 4 ? path.size() - 4 : 0) + "_temp__.TAB";
}

// Through a converted copy: the table is dropped with its files and the
// copy committed in its place. Nothing is undone after a failure but the
// copy's drop, so a failure after the table's own drop loses the table.
bool OverwriteVectorTable(const std::string& table, const std::string& path, const std::string& clause,
                          fk::ui::Prompter& prompter) {
  const std::string copy = TempCopyPath(path);
  g_Cartoma.DropTable(kTempCopy);
  if (g_Cartoma.CommitTableAs(table, copy, clause.c_str(), 0) && g_Cartoma.OpenTable(copy.c_str(), kTempCopy, 0, 0) &&
      g_Cartoma.DropTable(table) && g_Cartoma.CommitTableAs(kTempCopy, path, clause.c_str(), 0) &&
      g_Cartoma.OpenTable(path.c_str(), nullptr, 0, 0) && g_Cartoma.DropTable(kTempCopy))
    return true;
  TellFailure(prompter, IDS_NOT_OVERWRITTEN, path);
  g_Cartoma.DropTable(kTempCopy);
  return false;
}

// The new table is written, not opened.
bool SaveVectorTable(const std::string& table, const std::string& path, const std::string& clause,
                     const ReprojectTarget& target, fk::ui::Prompter& prompter) {
  const std::string newPath = NewTablePath(path, target);
  return g_Cartoma.CommitTableAs(table, newPath, clause.c_str(), 0) ||
         TellFailure(prompter, IDS_NOT_SAVED, newPath);
}

std::vector<std::int32_t> Pixels(const std::vector<unsigned long>& pixels) {
  return {pixels.begin(), pixels.end()};
}

// A raster table's control points, converted by the host one by one, with
// the lines of its file that stay.
struct RasterRegistration {
  std::vector<unsigned long> pixelXs, pixelYs;
  std::vector<double> xs, ys;
  std::vector<std::string> lines;
  std::string image;

  bool WriteTo(const std::string& tabPath, const std::string& clause) const {
    return RewriteRasterTabFile(tabPath, image, Pixels(pixelXs), Pixels(pixelYs), xs, ys, clause, lines) == 1;
  }
};

RasterRegistration ConvertedRegistration(const std::string& table, const std::string& path,
                                         const std::string& clause) {
  RasterRegistration raster;
  const std::string from = g_Cartoma.GetTableCoordSysClause(table);
  g_Cartoma.ReadTextLines(path, raster.lines);
  g_Cartoma.ReadTabControlPoints(path, raster.xs, raster.ys, raster.pixelXs, raster.pixelYs);
  for (std::size_t i = 0; i < raster.xs.size(); ++i)
    g_Cartoma.TransformPoint(from, raster.xs[i], raster.ys[i], clause, raster.xs[i], raster.ys[i]);
  raster.image = g_Cartoma.GetRasterFileName(path);
  return raster;
}

bool ReprojectRasterTable(const std::string& table, const std::string& path, const std::string& clause,
                          const ReprojectTarget& target, fk::ui::Prompter& prompter) {
  const RasterRegistration raster = ConvertedRegistration(table, path, clause);
  if (!target.overwrite) {
    const std::string newPath = NewTablePath(path, target);
    return raster.WriteTo(newPath, clause) || TellFailure(prompter, IDS_NOT_SAVED, newPath);
  }
  g_Cartoma.DropTable(kTempCopy);
  if (g_Cartoma.DropTable(table) && raster.WriteTo(path, clause) && g_Cartoma.OpenTable(path.c_str(), nullptr, 0, 0))
    return true;
  TellFailure(prompter, IDS_NOT_OVERWRITTEN, path);
  g_Cartoma.DropTable(kTempCopy);
  return false;
}

}  // namespace

std::string ReprojectionClause(const std::string& targetProjection, const std::string& sourceName) {
  const bool targetNonEarth = StartsNoCase(targetProjection, "NonEarth");
  const bool sourceNonEarth = StartsNoCase(sourceName, "Non-Earth");
  if (targetNonEarth != sourceNonEarth) return {};
  return targetNonEarth ? targetProjection : "Earth Projection " + targetProjection;
}

std::string NewTablePath(const std::string& tablePath, const ReprojectTarget& target) {
  const fk::PathParts parts = fk::SplitPath(tablePath);
  const std::string directory =
      target.inDirectory ? fk::AddTrailingSeparator(target.directory) : parts.drive + parts.dir;
  return directory + parts.fname + (target.withSuffix ? target.suffix : "") + parts.ext;
}

bool ReprojectTable(const std::string& table, const ReprojectTarget& target, fk::ui::Prompter& prompter) {
  const std::string path = g_Cartoma.GetTablePath(table);
  const std::string clause = ReprojectionClause(target.projection, g_Cartoma.GetTableCoordSysName(table));
  if (clause.empty()) {
    prompter.MessageBox(fk::FormatString(IDS_EARTH_AND_NON_EARTH, {table}), fk::ui::MB_OK);
    return true;
  }
  if (g_Cartoma.GetTableType(table) == kRasterTable) return ReprojectRasterTable(table, path, clause, target, prompter);
  return target.overwrite ? OverwriteVectorTable(table, path, clause, prompter)
                          : SaveVectorTable(table, path, clause, target, prompter);
}
