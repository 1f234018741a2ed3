// Objects: their kind, style, colour and nodes, and the object variables
// the library makes in the host.
#include <span>

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"
#include "platform/text/number_parse.h"

namespace {

constexpr long OBJ_INFO_TYPE = 1;
constexpr int OBJ_INFO_STYLE = 2;
constexpr int OBJ_INFO_BRUSH = 3;
constexpr long OBJ_INFO_NPNTS = 20;

enum ObjectNodes { NODES_NONE, NODES_CORNER_RING, NODES_END_POINTS, NODES_ONE_POINT, NODES_EVERY_NODE };

ObjectNodes NodesOfType(int type) {
  switch (type) {
    case 1: case 2: case 6: case 8: case 9: case 10: return NODES_CORNER_RING;
    case 3: return NODES_END_POINTS;
    case 5: return NODES_ONE_POINT;
    case 4: case 7: return NODES_EVERY_NODE;
    default: return NODES_NONE;
  }
}

// The number behind the `field`th comma of a style text, read as "%d"; 0
// when the text has fewer commas or no number there.
int StyleField(const std::string& style, int field) {
  std::size_t position = 0;
  for (int i = 0; i < field; ++i) {
    position = style.find(',', position);
    if (position == std::string::npos) return 0;
    ++position;
  }
  return fk::Atoi(std::string_view(style).substr(position));
}

// ObjectGeography codes of the corner ring, as (x, y) pairs: a closed rectangle.
constexpr long kCornerRing[5][2] = {{1, 2}, {1, 4}, {3, 4}, {3, 2}, {1, 2}};
constexpr long kEndPoints[2][2] = {{1, 2}, {3, 4}};

}  // namespace

int CCartoma::GetObjectType(const std::string& object) {
  int error = 0;
  return fk::Atoi(Eval(fk::Format("ObjectInfo(%s, %ld)", object, OBJ_INFO_TYPE), &error));
}

std::string CCartoma::GetObjectPen(const std::string& object) {
  return Eval(fk::Format("ObjectInfo(%s, %d)", object, OBJ_INFO_STYLE));
}

std::string CCartoma::GetObjectBrush(const std::string& object) {
  return Eval(fk::Format("ObjectInfo(%s, %d)", object, OBJ_INFO_BRUSH));
}

int CCartoma::GetObjectColor(const std::string& object) {
  switch (GetObjectType(object)) {
    case 1: case 6: case 10: {
      const std::string brush = GetObjectBrush(object);
      if (!brush.empty()) return StyleField(brush, 1);
      const std::string style = GetObjectPen(object);
      return style.empty() ? 0 : StyleField(style, 2);
    }
    case 2: case 7: case 8: case 9: return StyleField(GetObjectBrush(object), 1);
    case 3: case 4: return StyleField(GetObjectPen(object), 2);
    case 5: return StyleField(GetObjectPen(object), 1);
    default: return 0;
  }
}

int CCartoma::GetObjectNodes(const std::string& object, std::vector<double>& xs, std::vector<double>& ys) {
  int error = 0;
  const int type = fk::Atoi(Eval(fk::Format("ObjectInfo(%s, %ld)", object, OBJ_INFO_TYPE), &error));
  const ObjectNodes nodes = NodesOfType(type);
  if (nodes == NODES_NONE || error) return 0;

  auto geography = [&](long code) {
    return fk::Atof(Eval(fk::Format("ObjectGeography(%s, %ld)", object, code), &error));
  };
  auto appendPoints = [&](const auto& codes) {
    for (const auto& [xCode, yCode] : codes) {
      xs.push_back(geography(xCode));
      ys.push_back(geography(yCode));
    }
    return error == 0 ? 1 : 0;
  };
  if (nodes == NODES_CORNER_RING) return appendPoints(kCornerRing);
  if (nodes == NODES_END_POINTS) return appendPoints(kEndPoints);
  if (nodes == NODES_ONE_POINT) return appendPoints(std::span(kEndPoints).first(1));

  // Every node: node indices run on over the whole object, and a node the
  // present part doesn't have (the host's error) means the next part.
  const long count = fk::Atol(Eval(fk::Format("ObjectInfo(%s, %ld)", object, OBJ_INFO_NPNTS), &error));
  if (error) return 0;
  int part = 1;
  auto coordinate = [&](const char* function, long node) {
    const auto ask = [&] { return Eval(fk::Format("%s(%s, %d, %ld)", function, object, part, node), &error); };
    std::string value = ask();
    if (node > 1 && error) {
      ++part;
      value = ask();
    }
    return fk::Atof(value);
  };
  int stored = 0;
  for (long node = 1; node <= count; ++node) {
    const double x = coordinate("ObjectNodeX", node);
    const double y = coordinate("ObjectNodeY", node);
    if (error) continue;
    xs.push_back(x);
    ys.push_back(y);
    stored = 1;
  }
  return stored;
}

bool CCartoma::CreatePointVariable(const std::string& variable, double x, double y) {
  int error = 0;
  Do(fk::Format("Dim %s As Object", variable), 1, &error);
  Do(fk::Format("Create Point Into Variable %s (%lf, %lf)", variable, x, y), 1, &error);
  return error == 0;
}

bool CCartoma::ObjectToVariable(const std::string& variable, const std::string& table) {
  int error = 0;
  Do(fk::Format("Set CoordSys Table %s", table), 1, &error);
  Do(fk::Format("Dim %s As Object", variable), 1, &error);
  Do(fk::Format("%s = %s.Obj", variable, table), 1, &error);
  return error == 0;
}

int CCartoma::TransformPoint(const std::string& from, double x, double y, const std::string& to, double& outX,
                             double& outY) {
  // A clause that holds "COORDSYS " goes upper-cased; any other is the part
  // behind the keyword, as given.
  auto setCoordSys = [&](const std::string& clause) {
    const std::string upper = fk::ToUpper(clause);
    Do(fk::Format("Set %s", upper.find("COORDSYS ") == std::string::npos ? fk::Format("CoordSys %s", clause) : upper));
  };
  setCoordSys(from);
  CreatePointVariable("_TempObj", x, y);
  setCoordSys(to);
  std::vector<double> xs, ys;
  const int result = GetObjectNodes("_TempObj", xs, ys);
  if (!xs.empty()) {
    outX = xs.front();
    outY = ys.front();
  }
  return result;
}
