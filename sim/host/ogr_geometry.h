// Objects as GDAL/OGR geometries, so that table files open in any GIS:
// points, lines and polylines as (multi)line strings, regions as
// (multi)polygons, boxes as the polygon of their box, ellipses and arcs as
// polygons and line strings along their curve.
#pragma once

#include <memory>
#include <optional>

#include "geometry.h"

class OGRGeometry;

namespace sim {

std::unique_ptr<OGRGeometry> ToOgrGeometry(const Object& object);
// The nodes of an OGR geometry as an object of the nearest kind (point,
// polyline, region), with no styles; nothing for a kind with no counterpart.
std::optional<Object> FromOgrGeometry(const OGRGeometry& geometry);

}  // namespace sim
