// Rows of vector data read and written with GDAL/OGR: the GeoPackage beside
// a .tab file, and any other vector data GDAL reads (GeoPackage, shapefile,
// GeoJSON, CSV with a WKT column). The GeoPackage keeps each object's kind
// and styles in the column "cartoma_object" beside the geometry.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "coordsys.h"
#include "geometry.h"
#include "table.h"
#include "value.h"

namespace sim {

struct Row {
  std::vector<Value> values;
  std::optional<Object> object;
};

struct VectorData {
  std::vector<Column> columns;
  std::vector<Row> rows;
  std::optional<CoordSys> coordsys;  // from the data's own reference system
};

// The first layer of the data at `path` (a file system path). With
// `declared` columns (from a .tab), fields are taken by those names.
// Throws HostError when the data can't be read.
VectorData ReadVectorData(const std::string& path, const std::vector<Column>* declared);
// Writes a new GeoPackage with one layer, replacing the file; with no
// coordinate system (null) the layer is a table without geometry.
void WriteGeoPackage(const std::string& path, const std::string& layer, const std::vector<Column>& columns,
                     const std::vector<Row>& rows, const CoordSys* coordsys);

// The name of the hidden column that keeps kinds and styles.
inline constexpr const char* kObjectColumn = "cartoma_object";

}  // namespace sim
