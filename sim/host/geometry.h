// The objects a table row or an object variable holds, with the kind
// numbers the host answers to ObjectInfo(obj, 1):
//   1 arc, 2 ellipse, 3 line, 4 polyline (sections), 5 point, 6 frame,
//   7 region (rings), 8 rectangle, 9 rounded rectangle, 10 text.
// A polyline's parts are its sections and a region's its rings (a ring's
// first node is not repeated at its end). The kinds drawn in a box (arc,
// ellipse, frame, rectangle, rounded rectangle, text) hold one part of two
// nodes, the opposite corners of that box.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "coordsys.h"
#include "styles.h"

namespace sim {

enum class ObjectKind {
  Arc = 1,
  Ellipse = 2,
  Line = 3,
  Polyline = 4,
  Point = 5,
  Frame = 6,
  Region = 7,
  Rectangle = 8,
  RoundedRectangle = 9,
  Text = 10,
};

struct Node {
  double x = 0;
  double y = 0;
  bool operator==(const Node&) const = default;
};

using Part = std::vector<Node>;

struct Object {
  ObjectKind kind = ObjectKind::Point;
  std::vector<Part> parts;
  std::optional<Style> pen;     // lines, borders, arcs, frames
  std::optional<Style> brush;   // filled kinds
  std::optional<Style> symbol;  // points
  std::optional<Style> font;    // texts
  double rounding = 0;          // rounded rectangle: the corner diameter
  double startAngle = 0;        // arc, degrees
  double endAngle = 0;
  std::string text;  // text: the string; frame: the title
  double angle = 0;  // text rotation, degrees

  // Whether the kind is drawn within the box of its two corners.
  bool IsBoxed() const;
  int NodeCount() const;
  // minimum x, minimum y, maximum x, maximum y of all nodes.
  std::array<double, 4> Bounds() const;
  // The style ObjectInfo code 2 answers: symbol of a point, font of a text,
  // pen of the others.
  std::optional<Style> MainStyle() const;

  // A text of kind, styles and extras (one "key=value" a line), without the
  // nodes; what the table files keep beside the geometry.
  std::string Descriptor() const;
  // The descriptor followed by the nodes: how a row keeps its object.
  std::string Serialize() const;
  static Object Deserialize(const std::string& text);
  // Kind, styles and extras from a descriptor; the nodes are left empty.
  static Object FromDescriptor(const std::string& descriptor);
};

using ObjectPtr = std::shared_ptr<const Object>;

// The name of a kind as statements write it ("Region", "Rect", ...).
std::string KindName(ObjectKind kind);
// The default styles of a new object of the kind, from the current ones.
void ApplyDefaultStyles(Object& object, const Style& pen, const Style& brush, const Style& symbol, const Style& font);

}  // namespace sim
