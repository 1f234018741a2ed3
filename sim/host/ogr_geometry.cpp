#include "ogr_geometry.h"

#include <ogr_geometry.h>

#include <cmath>

namespace sim {
namespace {

constexpr int kCurveSteps = 72;

OGRLinearRing RingOf(const Part& part) {
  OGRLinearRing ring;
  for (const Node& n : part) ring.addPoint(n.x, n.y);
  ring.closeRings();
  return ring;
}

OGRLineString LineOf(const Part& part) {
  OGRLineString line;
  for (const Node& n : part) line.addPoint(n.x, n.y);
  return line;
}

Part BoxRing(const std::array<double, 4>& b) { return {{b[0], b[1]}, {b[0], b[3]}, {b[2], b[3]}, {b[2], b[1]}}; }

// Points on the ellipse inscribed in the box, from one angle to another.
Part AlongEllipse(const std::array<double, 4>& b, double fromDegrees, double toDegrees, int steps) {
  const double cx = (b[0] + b[2]) / 2, cy = (b[1] + b[3]) / 2;
  const double rx = (b[2] - b[0]) / 2, ry = (b[3] - b[1]) / 2;
  if (toDegrees < fromDegrees) toDegrees += 360;
  Part part;
  for (int i = 0; i <= steps; ++i) {
    const double a = (fromDegrees + (toDegrees - fromDegrees) * i / steps) * M_PI / 180.0;
    part.push_back({cx + rx * std::cos(a), cy + ry * std::sin(a)});
  }
  return part;
}

std::unique_ptr<OGRGeometry> RegionGeometry(const Object& object) {
  std::vector<OGRGeometry*> polygons;
  for (const Part& ring : object.parts) {
    auto* polygon = new OGRPolygon();
    polygon->addRing(new OGRLinearRing(RingOf(ring)));
    polygons.push_back(polygon);
  }
  // Rings inside other rings become holes of them.
  int valid = 0;
  std::unique_ptr<OGRGeometry> organized(
      OGRGeometryFactory::organizePolygons(polygons.data(), static_cast<int>(polygons.size()), &valid, nullptr));
  return organized;
}

std::unique_ptr<OGRGeometry> PolylineGeometry(const Object& object) {
  if (object.parts.size() == 1) return std::make_unique<OGRLineString>(LineOf(object.parts[0]));
  auto multi = std::make_unique<OGRMultiLineString>();
  for (const Part& part : object.parts) multi->addGeometry(new OGRLineString(LineOf(part)));
  return multi;
}

void AddPolygonRings(const OGRPolygon& polygon, Object& object) {
  for (int r = 0; r <= polygon.getNumInteriorRings(); ++r) {
    const OGRLinearRing* ring = r == 0 ? polygon.getExteriorRing() : polygon.getInteriorRing(r - 1);
    if (!ring) continue;
    Part part;
    for (int i = 0; i < ring->getNumPoints(); ++i) part.push_back({ring->getX(i), ring->getY(i)});
    if (part.size() > 1 && part.front() == part.back()) part.pop_back();
    object.parts.push_back(std::move(part));
  }
}

void AddLine(const OGRLineString& line, Object& object) {
  Part part;
  for (int i = 0; i < line.getNumPoints(); ++i) part.push_back({line.getX(i), line.getY(i)});
  object.parts.push_back(std::move(part));
}

}  // namespace

std::unique_ptr<OGRGeometry> ToOgrGeometry(const Object& object) {
  if (object.parts.empty() || object.parts[0].empty()) return nullptr;
  const Node& first = object.parts[0][0];
  switch (object.kind) {
    case ObjectKind::Point: return std::make_unique<OGRPoint>(first.x, first.y);
    case ObjectKind::Line: return std::make_unique<OGRLineString>(LineOf(object.parts[0]));
    case ObjectKind::Polyline: return PolylineGeometry(object);
    case ObjectKind::Region: return RegionGeometry(object);
    case ObjectKind::Arc:
      return std::make_unique<OGRLineString>(
          LineOf(AlongEllipse(object.Bounds(), object.startAngle, object.endAngle, kCurveSteps)));
    case ObjectKind::Ellipse: {
      auto polygon = std::make_unique<OGRPolygon>();
      Part ring = AlongEllipse(object.Bounds(), 0, 360, kCurveSteps);
      ring.pop_back();
      polygon->addRing(new OGRLinearRing(RingOf(ring)));
      return polygon;
    }
    default: {
      auto polygon = std::make_unique<OGRPolygon>();
      polygon->addRing(new OGRLinearRing(RingOf(BoxRing(object.Bounds()))));
      return polygon;
    }
  }
}

std::optional<Object> FromOgrGeometry(const OGRGeometry& geometry) {
  Object object;
  switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint: {
      const auto& point = *geometry.toPoint();
      object.kind = ObjectKind::Point;
      object.parts = {{{point.getX(), point.getY()}}};
      return object;
    }
    case wkbLineString:
      object.kind = ObjectKind::Polyline;
      AddLine(*geometry.toLineString(), object);
      return object;
    case wkbMultiLineString:
      object.kind = ObjectKind::Polyline;
      for (const OGRLineString* line : *geometry.toMultiLineString()) AddLine(*line, object);
      return object;
    case wkbPolygon:
      object.kind = ObjectKind::Region;
      AddPolygonRings(*geometry.toPolygon(), object);
      return object;
    case wkbMultiPolygon:
      object.kind = ObjectKind::Region;
      for (const OGRPolygon* polygon : *geometry.toMultiPolygon()) AddPolygonRings(*polygon, object);
      return object;
    default: return std::nullopt;
  }
}

}  // namespace sim
