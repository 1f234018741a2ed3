#include "styles.h"

#include <cmath>

#include "errors.h"
#include "expression_parser.h"
#include "text_util.h"

namespace sim {
namespace {

struct Shape {
  const char* word;
  std::vector<bool> textField;  // true where the field is a text
  std::size_t colourField;      // index into the fields
};

const Shape& ShapeOf(StyleKind kind) {
  static const Shape kPen{"Pen", {false, false, false}, 2};
  static const Shape kBrush{"Brush", {false, false, false}, 1};
  static const Shape kSymbol{"Symbol", {false, false, false}, 1};
  static const Shape kFontSymbol{"Symbol", {false, false, false, true, false, false}, 1};
  static const Shape kFont{"Font", {true, false, false, false}, 2};
  switch (kind) {
    case StyleKind::Pen: return kPen;
    case StyleKind::Brush: return kBrush;
    case StyleKind::Symbol: return kSymbol;
    case StyleKind::FontSymbol: return kFontSymbol;
    case StyleKind::Font: return kFont;
  }
  return kPen;
}

std::string FieldText(const Style::Field& field) {
  if (const auto* number = std::get_if<double>(&field)) return FormatNumber(*number);
  return Quote(std::get<std::string>(field));
}

}  // namespace

Style::Style(StyleKind kind, std::vector<Field> fields) : m_kind(kind), m_fields(std::move(fields)) {
  const Shape& shape = ShapeOf(kind);
  if (m_fields.size() != shape.textField.size())
    throw HostError(std::string(shape.word) + " style needs " + std::to_string(shape.textField.size()) +
                    " values, not " + std::to_string(m_fields.size()));
  for (std::size_t i = 0; i < m_fields.size(); ++i) {
    const bool isText = std::holds_alternative<std::string>(m_fields[i]);
    if (isText != shape.textField[i])
      throw HostError(std::string(shape.word) + " style value " + std::to_string(i + 1) + " must be " +
                      (shape.textField[i] ? "a text" : "a number"));
  }
}

std::string Style::Text() const {
  std::string text = std::string(ShapeOf(m_kind).word) + " (";
  for (std::size_t i = 0; i < m_fields.size(); ++i) text += (i ? "," : "") + FieldText(m_fields[i]);
  return text + ")";
}

int Style::Colour() const {
  return static_cast<int>(std::llround(std::get<double>(m_fields[ShapeOf(m_kind).colourField])));
}

Style Style::DefaultPen() { return Style(StyleKind::Pen, {1.0, 2.0, 0.0}); }
Style Style::DefaultBrush() { return Style(StyleKind::Brush, {2.0, 16777215.0, 16777215.0}); }
Style Style::DefaultSymbol() { return Style(StyleKind::Symbol, {35.0, 0.0, 12.0}); }
Style Style::DefaultFont() { return Style(StyleKind::Font, {std::string("Arial"), 0.0, 0.0, 10.0}); }

std::optional<Style> ConstructStyle(const std::string& name, const std::vector<Style::Field>& args) {
  const std::string word = Upper(name);
  if (word == "MAKEPEN" || word == "PEN") return Style(StyleKind::Pen, args);
  if (word == "MAKEBRUSH" || word == "BRUSH") return Style(StyleKind::Brush, args);
  if (word == "MAKESYMBOL") return Style(StyleKind::Symbol, args);
  if (word == "MAKEFONTSYMBOL") return Style(StyleKind::FontSymbol, args);
  if (word == "SYMBOL") return Style(args.size() == 6 ? StyleKind::FontSymbol : StyleKind::Symbol, args);
  if (word == "MAKEFONT" || word == "FONT") return Style(StyleKind::Font, args);
  return std::nullopt;
}

namespace {
Style::Field LiteralField(const Expr& expr) {
  if (expr.kind == ExprKind::Number) return expr.number;
  if (expr.kind == ExprKind::Text) return expr.text;
  if (expr.kind == ExprKind::Unary && expr.text == "-" && expr.args[0]->kind == ExprKind::Number)
    return -expr.args[0]->number;
  throw HostError("A style text holds only numbers and texts");
}
}  // namespace

Style ParseStyleText(const std::string& text) {
  ExprPtr expr;
  try {
    expr = ParseExpressionText(text);
  } catch (const SyntaxError&) {
    throw HostError("'" + text + "' is not a style");
  }
  if (expr->kind != ExprKind::Call) throw HostError("'" + text + "' is not a style");
  std::vector<Style::Field> fields;
  for (const ExprPtr& arg : expr->args) fields.push_back(LiteralField(*arg));
  if (auto style = ConstructStyle(expr->text, fields)) return *style;
  throw HostError("'" + text + "' is not a style");
}

}  // namespace sim
