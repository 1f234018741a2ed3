// Converting nodes between coordinate systems with PROJ: earth systems by
// their PROJ definitions (longitude first, latitude second, as the host
// writes them), non-earth systems by the size of their units. Between an
// earth and a non-earth system there is no conversion.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "coordsys.h"
#include "geometry.h"

namespace sim {

class Reprojector {
 public:
  Reprojector();
  ~Reprojector();
  Reprojector(const Reprojector&) = delete;
  Reprojector& operator=(const Reprojector&) = delete;

  // Throws HostError when the systems can't be converted.
  Node Convert(const Node& node, const CoordSys& from, const CoordSys& to);
  // Every node of the object; the object's box kinds stay boxes.
  Object Convert(const Object& object, const CoordSys& from, const CoordSys& to);

 private:
  struct Transformation;
  Transformation& TransformationFor(const CoordSys& from, const CoordSys& to);

  void* m_context;  // PJ_CONTEXT
  std::map<std::pair<std::string, std::string>, std::unique_ptr<Transformation>> m_cache;
};

}  // namespace sim
