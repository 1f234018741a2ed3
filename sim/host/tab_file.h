// The .tab text of a table file. A table of rows:
//   !table
//   !version 1000
//   !charset Neutral
//
//   Definition Table
//     Type GPKG
//     Fields 2
//       HoleID Char (20) ;
//       Depth Float ;
//     CoordSys Earth Projection 1, 104
//   begin_metadata
//   "\Terravik\xsects\collar\CH" = "1"
// with its rows in the GeoPackage of the same name beside it; a raster
// registration table names its image with File "..." and has Type "RASTER".
// The metadata block runs from "begin_metadata" to the end of the file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "coordsys.h"
#include "table.h"

namespace sim {

struct TabDefinition {
  bool raster = false;
  std::string rasterFile;
  std::vector<Column> columns;
  std::optional<CoordSys> coordsys;
  Metadata metadata;
};

// Reads the .tab at `path` (a file system path); throws HostError.
TabDefinition ReadTabFile(const std::string& path);
// Writes the .tab of a table of rows, lines ending in CR LF; a table with no
// coordinate system (null) has no CoordSys line and holds no objects.
void WriteTabFile(const std::string& path, const std::vector<Column>& columns, const CoordSys* coordsys,
                  const Metadata& metadata);
// Rewrites the metadata block of the .tab at `path` (from "begin_metadata"
// to the end, added when missing), keeping the lines before it.
void WriteTabMetadata(const std::string& path, const Metadata& metadata);
// The GeoPackage that holds the rows of the .tab at `path`.
std::string DataFileOf(const std::string& tabPath);

}  // namespace sim
