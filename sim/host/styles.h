// Style texts of objects, in the forms the library reads and writes:
//   pen          Pen (width, pattern, colour)                 "Pen (1,2,0)"
//   brush        Brush (pattern, foreground, background)      "Brush (2,16777215,16777215)"
//   symbol       Symbol (shape, colour, size)                 "Symbol (35,0,12)"
//   font symbol  Symbol (shape, colour, size, "font", style, rotation)
//   font         Font ("name", style, colour, size)           for text objects
// Colours are host colours: red in the low byte. Read as comma-separated
// fields, the colour of a pen is field 2, of a brush field 1 and of a symbol
// field 1, counting the word in front of the bracket as field 0.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace sim {

enum class StyleKind { Pen, Brush, Symbol, FontSymbol, Font };

class Style {
 public:
  using Field = std::variant<double, std::string>;

  // Checks the count and the kinds of the fields; throws HostError.
  Style(StyleKind kind, std::vector<Field> fields);

  StyleKind Kind() const { return m_kind; }
  const std::vector<Field>& Fields() const { return m_fields; }
  std::string Text() const;
  // The colour field of this kind of style.
  int Colour() const;
  bool operator==(const Style& other) const = default;

  static Style DefaultPen();
  static Style DefaultBrush();
  static Style DefaultSymbol();
  static Style DefaultFont();

 private:
  StyleKind m_kind;
  std::vector<Field> m_fields;
};

// A style from a constructor name and its arguments: MakePen, MakeBrush,
// MakeSymbol, MakeFontSymbol, MakeFont, or the literal words Pen, Brush,
// Symbol (three or six fields) and Font. Nothing when the name is none of them.
std::optional<Style> ConstructStyle(const std::string& name, const std::vector<Style::Field>& args);
// A style from its text ("Pen (1,2,255)"); throws HostError.
Style ParseStyleText(const std::string& text);

}  // namespace sim
