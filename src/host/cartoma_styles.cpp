// Styles: recolouring an object, and the host's symbol picker.
#include "host/cartoma.h"
#include "platform/text/format.h"

namespace {

constexpr int OBJ_INFO_STYLE = 2;
constexpr int OBJ_INFO_BRUSH = 3;
constexpr int MENU_SYMBOL_STYLE = 304;
constexpr int MENU_STYLE_PICKER = 503;
// The hollow fill pattern, replaced by a solid one so that the colour shows.
constexpr const char* kHollowPattern = "1";
constexpr int kSolidPattern = 2;

// "Pen (1,2,255)" as fields: brackets count as commas and empty pieces are
// dropped, so field 0 is the word in front of the bracket.
std::vector<std::string> StyleFields(const std::string& style) {
  std::vector<std::string> fields;
  std::string field;
  for (char c : style) {
    if (c == '(' || c == ')' || c == ',') {
      if (!field.empty()) fields.push_back(field);
      field.clear();
    } else {
      field += c;
    }
  }
  if (!field.empty()) fields.push_back(field);
  return fields;
}

// The constructor of the recoloured style, or empty when the style has too
// few fields for its kind.
std::string RecolouredStyle(int type, const std::vector<std::string>& f, int colour) {
  if (type == 3 || type == 4) {
    if (f.size() < 3) return {};
    return fk::Format("MakePen(%s,%s,%d)", f[1], f[2], colour);
  }
  if (type == 5) {
    if (f.size() >= 7) return fk::Format("MakeFontSymbol(%s,%d,%s,%s,%s,%s)", f[1], colour, f[3], f[4], f[5], f[6]);
    if (f.size() >= 4) return fk::Format("MakeSymbol(%s,%d,%s)", f[1], colour, f[3]);
    return {};
  }
  if (f.size() > 3 && f[1] != kHollowPattern) return fk::Format("MakeBrush(%s,%d,%d)", f[1], colour, colour);
  return fk::Format("MakeBrush(%d,%d,%d)", kSolidPattern, colour, colour);
}

}  // namespace

int CCartoma::SetObjectColor(const std::string& object, int colour) {
  const int type = GetObjectType(object);
  int infoCode = 0;
  std::string style;
  if (type == 3 || type == 4 || type == 5) {
    infoCode = OBJ_INFO_STYLE;
    style = GetObjectPen(object);
  } else if (type == 7 || type == 8) {
    infoCode = OBJ_INFO_BRUSH;
    style = GetObjectBrush(object);
  } else {
    return 0;
  }
  const std::string recoloured = RecolouredStyle(type, StyleFields(style), colour);
  if (recoloured.empty()) return 0;
  int error = 0;
  return Do(fk::Format("Alter Object %s Info %d, %s", object, infoCode, recoloured), 0, &error);
}

std::string CCartoma::PickSymbol(const char* style) {
  const std::string saved = Eval("CurrentSymbol()");
  if (style && *style) Do(fk::Format("Set Style %s", style));
  Do(fk::Format("Run Menu Command %d", MENU_SYMBOL_STYLE));
  Do(fk::Format("Run Menu Command %d", MENU_STYLE_PICKER));
  std::string picked = Eval("CurrentSymbol()");
  Do(fk::Format("Set Style %s", saved));
  return picked;
}
