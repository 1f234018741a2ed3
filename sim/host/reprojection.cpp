#include "reprojection.h"

#include <proj.h>

#include <algorithm>
#include <cmath>

#include "errors.h"

namespace sim {

struct Reprojector::Transformation {
  PJ* pj = nullptr;
  ~Transformation() {
    if (pj) proj_destroy(pj);
  }
};

Reprojector::Reprojector() : m_context(proj_context_create()) {}

Reprojector::~Reprojector() {
  m_cache.clear();
  proj_context_destroy(static_cast<PJ_CONTEXT*>(m_context));
}

Reprojector::Transformation& Reprojector::TransformationFor(const CoordSys& from, const CoordSys& to) {
  const auto key = std::make_pair(from.ProjDefinition(), to.ProjDefinition());
  auto& slot = m_cache[key];
  if (slot) return *slot;
  auto* context = static_cast<PJ_CONTEXT*>(m_context);
  PJ* raw = proj_create_crs_to_crs(context, key.first.c_str(), key.second.c_str(), nullptr);
  if (!raw)
    throw HostError("No conversion from " + from.Name() + " to " + to.Name() + ": " +
                    proj_context_errno_string(context, proj_context_errno(context)));
  // The host writes longitude before latitude, whatever the authority says.
  PJ* normalized = proj_normalize_for_visualization(context, raw);
  proj_destroy(raw);
  if (!normalized) throw HostError("No conversion from " + from.Name() + " to " + to.Name());
  slot = std::make_unique<Transformation>();
  slot->pj = normalized;
  return *slot;
}

Node Reprojector::Convert(const Node& node, const CoordSys& from, const CoordSys& to) {
  if (from.SameSystem(to)) return node;
  if (from.IsEarth() != to.IsEarth())
    throw HostError("Conversion between earth and non-earth coordinate systems is not possible (" + from.Name() +
                    " to " + to.Name() + ")");
  if (!from.IsEarth()) {
    const double scale = from.UnitToMetres() / to.UnitToMetres();
    return Node{node.x * scale, node.y * scale};
  }
  Transformation& t = TransformationFor(from, to);
  const PJ_COORD out = proj_trans(t.pj, PJ_FWD, proj_coord(node.x, node.y, 0, 0));
  if (out.xy.x == HUGE_VAL || out.xy.y == HUGE_VAL)
    throw HostError("The point (" + std::to_string(node.x) + ", " + std::to_string(node.y) + ") lies outside " +
                    to.Name());
  return Node{out.xy.x, out.xy.y};
}

Object Reprojector::Convert(const Object& object, const CoordSys& from, const CoordSys& to) {
  Object converted = object;
  if (from.SameSystem(to)) return converted;
  for (Part& part : converted.parts)
    for (Node& node : part) node = Convert(node, from, to);
  if (converted.IsBoxed() && !converted.parts.empty() && converted.parts[0].size() == 2) {
    // A box stays a box: the corners of the converted box.
    Part& corners = converted.parts[0];
    const Node low{std::min(corners[0].x, corners[1].x), std::min(corners[0].y, corners[1].y)};
    const Node high{std::max(corners[0].x, corners[1].x), std::max(corners[0].y, corners[1].y)};
    corners = {low, high};
  }
  return converted;
}

}  // namespace sim
