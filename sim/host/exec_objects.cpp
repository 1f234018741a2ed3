// Statements on object variables, the current styles and the current
// coordinate system.
#include "errors.h"
#include "host.h"
#include "text_util.h"

namespace sim {
namespace {

const char* kVariableTypes[] = {"Object", "Float", "Integer", "SmallInt", "String", "Logical",
                                "Date",   "Pen",   "Brush",   "Symbol",   "Font"};

bool IsFilled(ObjectKind kind) {
  return kind == ObjectKind::Region || kind == ObjectKind::Rectangle || kind == ObjectKind::RoundedRectangle ||
         kind == ObjectKind::Ellipse || kind == ObjectKind::Frame;
}

// A style from a value: a style, or a style's text.
Style StyleOf(const Value& value) {
  if (value.IsStyle()) return value.AsStyle();
  return ParseStyleText(value.AsText());
}

void SetMainStyle(Object& object, const Style& style) {
  const bool symbol = style.Kind() == StyleKind::Symbol || style.Kind() == StyleKind::FontSymbol;
  if (object.kind == ObjectKind::Point) {
    if (!symbol) throw HostError("A point takes a symbol style, not " + style.Text());
    object.symbol = style;
  } else if (object.kind == ObjectKind::Text) {
    if (style.Kind() != StyleKind::Font) throw HostError("A text takes a font style, not " + style.Text());
    object.font = style;
  } else {
    if (style.Kind() != StyleKind::Pen)
      throw HostError("A " + KindName(object.kind) + " takes a pen style, not " + style.Text());
    object.pen = style;
  }
}

void SetBrush(Object& object, const Style& style) {
  if (!IsFilled(object.kind)) throw HostError("A " + KindName(object.kind) + " has no fill to take a brush");
  if (style.Kind() != StyleKind::Brush) throw HostError("A fill takes a brush style, not " + style.Text());
  object.brush = style;
}

}  // namespace

std::string Host::CurrentStyle(StyleKind kind) const {
  switch (kind) {
    case StyleKind::Pen: return m_pen.Text();
    case StyleKind::Brush: return m_brush.Text();
    case StyleKind::Font: return m_font.Text();
    default: return m_symbol.Text();
  }
}

void Host::Run(const SetCoordSysStmt& s) {
  if (s.coordsys)
    m_coordsys = std::make_shared<const CoordSys>(*s.coordsys);
  else
    m_coordsys = std::make_shared<const CoordSys>(RequireTable(s.table).m_coordsys);
}

void Host::Run(const SetStyleStmt& s) {
  const Style style = StyleOf(Evaluate(*s.style));
  switch (style.Kind()) {
    case StyleKind::Pen: m_pen = style; break;
    case StyleKind::Brush: m_brush = style; break;
    case StyleKind::Font: m_font = style; break;
    default: m_symbol = style;
  }
}

void Host::Run(const DimStmt& s) {
  const char* type = nullptr;
  for (const char* known : kVariableTypes)
    if (EqualNoCase(s.type, known)) type = known;
  if (!type) throw HostError("Unknown variable type " + s.type);
  for (const std::string& name : s.names) {
    const auto it = m_variableTypes.find(name);
    if (it != m_variableTypes.end() && !EqualNoCase(it->second, type))
      throw HostError("Variable " + name + " is already defined as " + it->second);
  }
  for (const std::string& name : s.names) {
    m_variableTypes[name] = type;
    m_variables.erase(name);
  }
}

void Host::Run(const AssignStmt& s) { SetVariable(s.name, Evaluate(*s.value)); }

void Host::Run(const CreateObjectStmt& s) {
  std::vector<double> numbers;
  for (const ExprPtr& number : s.numbers) numbers.push_back(Evaluate(*number).AsNumber("A coordinate"));
  Object object;
  object.kind = s.kind;
  const auto node = [&](std::size_t i) { return Node{numbers[2 * i], numbers[2 * i + 1]}; };
  if (s.kind == ObjectKind::Polyline || s.kind == ObjectKind::Region) {
    std::size_t next = 0;
    for (int size : s.partSizes) {
      Part part;
      for (int i = 0; i < size; ++i) part.push_back(node(next++));
      if (s.kind == ObjectKind::Region && part.size() < 3) throw HostError("A ring of a region needs at least 3 nodes");
      object.parts.push_back(std::move(part));
    }
  } else if (s.kind == ObjectKind::Point) {
    object.parts = {{node(0)}};
  } else {
    object.parts = {{node(0), node(1)}};
    if (s.kind == ObjectKind::RoundedRectangle) object.rounding = numbers.at(4);
    if (s.kind == ObjectKind::Arc) {
      object.startAngle = numbers.at(4);
      object.endAngle = numbers.at(5);
    }
  }
  if (s.text) object.text = TextOf(s.text);
  ApplyDefaultStyles(object, m_pen, m_brush, m_symbol, m_font);
  for (const auto& [word, expr] : s.styles) {
    const Style style = StyleOf(Evaluate(*expr));
    if (word == "BRUSH")
      SetBrush(object, style);
    else
      SetMainStyle(object, style);
  }
  SetVariable(s.variable, Value(ObjectValue{std::make_shared<const Object>(std::move(object)), m_coordsys}));
}

void Host::Run(const AlterObjectStmt& s) {
  const auto it = m_variables.find(s.variable);
  if (it == m_variables.end()) throw HostError(s.variable + " is not an object variable with a value");
  const ObjectValue& current = it->second.AsObject("Variable " + s.variable);
  Object object = *current.object;
  const int code = static_cast<int>(Evaluate(*s.code).AsNumber("The Info code"));
  const Value value = Evaluate(*s.value);
  switch (code) {
    case 2: SetMainStyle(object, StyleOf(value)); break;
    case 3: SetBrush(object, StyleOf(value)); break;
    case 22: object.text = value.AsText(); break;
    default: throw HostError("Alter Object has no Info code " + std::to_string(code));
  }
  it->second = Value(ObjectValue{std::make_shared<const Object>(std::move(object)), current.coordsys});
}

}  // namespace sim
