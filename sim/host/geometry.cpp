#include "geometry.h"

#include <algorithm>
#include <limits>
#include <sstream>

#include "errors.h"
#include "text_util.h"

namespace sim {

bool Object::IsBoxed() const {
  switch (kind) {
    case ObjectKind::Arc:
    case ObjectKind::Ellipse:
    case ObjectKind::Frame:
    case ObjectKind::Rectangle:
    case ObjectKind::RoundedRectangle:
    case ObjectKind::Text: return true;
    default: return false;
  }
}

int Object::NodeCount() const {
  int count = 0;
  for (const Part& part : parts) count += static_cast<int>(part.size());
  return count;
}

std::array<double, 4> Object::Bounds() const {
  constexpr double inf = std::numeric_limits<double>::infinity();
  std::array<double, 4> b{inf, inf, -inf, -inf};
  for (const Part& part : parts)
    for (const Node& n : part) {
      b[0] = std::min(b[0], n.x);
      b[1] = std::min(b[1], n.y);
      b[2] = std::max(b[2], n.x);
      b[3] = std::max(b[3], n.y);
    }
  if (parts.empty() || parts[0].empty()) b = {0, 0, 0, 0};
  return b;
}

std::optional<Style> Object::MainStyle() const {
  if (kind == ObjectKind::Point) return symbol;
  if (kind == ObjectKind::Text) return font;
  return pen;
}

std::string KindName(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::Arc: return "Arc";
    case ObjectKind::Ellipse: return "Ellipse";
    case ObjectKind::Line: return "Line";
    case ObjectKind::Polyline: return "Pline";
    case ObjectKind::Point: return "Point";
    case ObjectKind::Frame: return "Frame";
    case ObjectKind::Region: return "Region";
    case ObjectKind::Rectangle: return "Rect";
    case ObjectKind::RoundedRectangle: return "RoundRect";
    case ObjectKind::Text: return "Text";
  }
  return "Object";
}

void ApplyDefaultStyles(Object& object, const Style& pen, const Style& brush, const Style& symbol, const Style& font) {
  switch (object.kind) {
    case ObjectKind::Point: object.symbol = symbol; break;
    case ObjectKind::Text: object.font = font; break;
    case ObjectKind::Line:
    case ObjectKind::Polyline:
    case ObjectKind::Arc: object.pen = pen; break;
    default:
      object.pen = pen;
      object.brush = brush;
      break;
  }
}

namespace {

// Texts keep their line ends as "\n" so that one value stays on one line.
std::string Escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == '\\')
      out += "\\\\";
    else if (c == '\n')
      out += "\\n";
    else
      out += c;
  }
  return out;
}

std::string Unescape(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      ++i;
      out += text[i] == 'n' ? '\n' : text[i];
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string NodesText(const std::vector<Part>& parts) {
  std::string text;
  for (std::size_t p = 0; p < parts.size(); ++p) {
    if (p) text += "/";
    for (std::size_t i = 0; i < parts[p].size(); ++i)
      text += (i ? "," : "") + FormatNumber(parts[p][i].x) + " " + FormatNumber(parts[p][i].y);
  }
  return text;
}

std::vector<Part> ParseNodes(const std::string& text) {
  std::vector<Part> parts;
  std::stringstream partStream(text);
  std::string partText;
  while (std::getline(partStream, partText, '/')) {
    Part part;
    std::stringstream nodeStream(partText);
    std::string nodeText;
    while (std::getline(nodeStream, nodeText, ',')) {
      std::istringstream node(nodeText);
      node.imbue(std::locale::classic());
      Node n;
      if (!(node >> n.x >> n.y)) throw HostError("A stored object has a damaged node list");
      part.push_back(n);
    }
    parts.push_back(std::move(part));
  }
  return parts;
}

double NumberOf(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  double value = 0;
  in >> value;
  return value;
}

}  // namespace

std::string Object::Descriptor() const {
  std::string text = "kind=" + std::to_string(static_cast<int>(kind)) + "\n";
  if (pen) text += "pen=" + pen->Text() + "\n";
  if (brush) text += "brush=" + brush->Text() + "\n";
  if (symbol) text += "symbol=" + symbol->Text() + "\n";
  if (font) text += "font=" + font->Text() + "\n";
  if (kind == ObjectKind::RoundedRectangle) text += "rounding=" + FormatNumber(rounding) + "\n";
  if (kind == ObjectKind::Arc) text += "angles=" + FormatNumber(startAngle) + " " + FormatNumber(endAngle) + "\n";
  if (kind == ObjectKind::Text || kind == ObjectKind::Frame) text += "text=" + Escape(this->text) + "\n";
  if (kind == ObjectKind::Text) text += "angle=" + FormatNumber(angle) + "\n";
  if (IsBoxed()) text += "corners=" + NodesText(parts) + "\n";
  return text;
}

std::string Object::Serialize() const { return Descriptor() + "nodes=" + NodesText(parts) + "\n"; }

Object Object::FromDescriptor(const std::string& descriptor) {
  Object object;
  std::stringstream lines(descriptor);
  std::string line;
  bool hasKind = false;
  while (std::getline(lines, line)) {
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) continue;
    const std::string key = line.substr(0, eq);
    const std::string value = line.substr(eq + 1);
    if (key == "kind") {
      const int number = static_cast<int>(NumberOf(value));
      if (number < 1 || number > 10) throw HostError("A stored object has an unknown kind " + value);
      object.kind = static_cast<ObjectKind>(number);
      hasKind = true;
    } else if (key == "pen")
      object.pen = ParseStyleText(value);
    else if (key == "brush")
      object.brush = ParseStyleText(value);
    else if (key == "symbol")
      object.symbol = ParseStyleText(value);
    else if (key == "font")
      object.font = ParseStyleText(value);
    else if (key == "rounding")
      object.rounding = NumberOf(value);
    else if (key == "angles") {
      std::istringstream in(value);
      in.imbue(std::locale::classic());
      in >> object.startAngle >> object.endAngle;
    } else if (key == "text")
      object.text = Unescape(value);
    else if (key == "angle")
      object.angle = NumberOf(value);
    else if (key == "corners" || key == "nodes")
      object.parts = ParseNodes(value);
  }
  if (!hasKind) throw HostError("A stored object has no kind");
  return object;
}

Object Object::Deserialize(const std::string& text) { return FromDescriptor(text); }

}  // namespace sim
