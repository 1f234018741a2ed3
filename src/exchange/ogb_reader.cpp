#include "exchange/ogb_reader.h"

#include <string_view>
#include <utility>

#include "exchange/delimited_field.h"
#include "platform/text/letter_case.h"

namespace {

bool Has(const std::string& line, std::string_view key) { return line.find(key) != std::string::npos; }

bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

std::string Trim(const std::string& text, const char* characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

// A line is text up to its first zero byte, upper-cased.
std::string UpperLine(std::string line) {
  if (const std::size_t zero = line.find('\0'); zero != std::string::npos) line.resize(zero);
  return fk::ToUpper(line);
}

template <typename Value>
void SetLast(std::vector<Value>* values, Value value) {
  if (values && !values->empty()) values->back() = value;
}

}  // namespace

COGBReader::COGBReader(const OGBArrays& arrays, int xField, int yField)
    : m_arrays(arrays), m_nXField(xField < 0 ? 0 : xField), m_nYField(yField < 0 ? 1 : yField) {}

// The first test that hits ends the work on the line.
bool COGBReader::TakeLine(std::string raw) {
  const std::string line = UpperLine(std::move(raw));
  if (Has(line, "GEOREFERENCEIMAGE BEGIN") || Has(line, "IMAGEDEFINITION BEGIN")) {
    OpenImageBlock();
  } else if (Has(line, "GEOREFERENCEIMAGE END") || Has(line, "OBJECTDEFINITION END")) {
    m_bInImage = false;
    NormaliseLast();
  } else if (Has(line, "REGISTRATION BEGIN")) {
    m_bRegistration = true;
  } else if (Has(line, "REGISTRATION END")) {
    NormaliseLast();
    m_bRegistration = false;
  } else if (const std::size_t image = line.find("IMAGE ="); m_bInImage && image != std::string::npos) {
    // A longer word that ends in IMAGE drops the line.
    if (image == 0 || IsWhiteSpace(line[image - 1])) TakeImageName(line);
  } else if (m_bInImage && HasCorners() && Has(line, "TOPLEFT =")) {
    TakeCorner(line, line.find("TOPLEFT =") + 9, true);
  } else if (m_bInImage && HasCorners() && Has(line, "BOTTOMRIGHT =")) {
    TakeCorner(line, line.find("BOTTOMRIGHT =") + 13, false);
  } else if (m_bRegistration && HasCorners() && Has(line, "BITMAPORIGIN =")) {
    TakeCorner(line, line.find("BITMAPORIGIN =") + 14, true);
  } else if (m_bRegistration && HasCorners() && Has(line, "BITMAPEXTREMITY =")) {
    TakeCorner(line, line.find("BITMAPEXTREMITY =") + 17, false);
  } else if (m_bInImage && m_arrays.colours && Has(line, "TRANSPARENTCOLOUR =")) {
    TakeTransparentColour(line);
  } else if (m_bInImage && Has(line, "GEOMETRY = QUAD_STRIP_H")) {
    return false;
  }
  return true;
}

void COGBReader::OpenImageBlock() {
  m_bInImage = true;
  if (HasCorners())
    for (std::vector<double>* corner : {m_arrays.left, m_arrays.bottom, m_arrays.right, m_arrays.top})
      corner->push_back(0.0);
  if (m_arrays.colours) m_arrays.colours->push_back(kNoTransparentColour);
}

// The corners of the last entry, whatever order the file gave them in.
void COGBReader::NormaliseLast() {
  if (!HasCorners() || m_arrays.left->empty()) return;
  double& left = m_arrays.left->back();
  double& right = m_arrays.right->back();
  double& bottom = m_arrays.bottom->back();
  double& top = m_arrays.top->back();
  if (left > right) std::swap(left, right);
  if (bottom > top) std::swap(bottom, top);
}

void COGBReader::TakeImageName(const std::string& line) {
  ++m_nImages;
  if (!m_arrays.names) return;
  std::string value = line.substr(line.find('=') + 1);
  std::erase(value, '"');
  m_arrays.names->push_back(Trim(value, " \n"));
}

void COGBReader::TakeCorner(const std::string& line, std::size_t valueAt, bool topLeft) {
  const std::string_view value = std::string_view(line).substr(valueAt);
  double x = 0, y = 0;
  if (GetDelimitedField(value, ',', m_nXField, x)) SetLast(topLeft ? m_arrays.left : m_arrays.right, x);
  if (GetDelimitedField(value, ',', m_nYField, y)) SetLast(topLeft ? m_arrays.top : m_arrays.bottom, y);
}

// "DEFINED," behind the line's first character gives the colour text,
// else the "=" does; then RGB(r, g, b) with red in the low byte, WHITE, or
// a number as it stands.
void COGBReader::TakeTransparentColour(const std::string& line) {
  const std::size_t defined = line.find("DEFINED,");
  const std::string_view text = defined != std::string::npos && defined > 0
                                    ? std::string_view(line).substr(defined + 8)
                                    : std::string_view(line).substr(line.find('=') + 1);
  if (const std::size_t rgb = text.find("RGB("); rgb != std::string_view::npos) {
    const std::string_view parts = text.substr(rgb + 4);
    std::int32_t r = 0, g = 0, b = 0;
    if (GetDelimitedField(parts, ',', 0, r) && GetDelimitedField(parts, ',', 1, g) &&
        GetDelimitedField(parts, ',', 2, b))
      SetLast(m_arrays.colours, static_cast<std::uint32_t>((r & 0xFF) | (g & 0xFF) << 8 | (b & 0xFF) << 16));
  } else if (text.find("WHITE") != std::string_view::npos) {
    SetLast(m_arrays.colours, std::uint32_t{0xFFFFFF});
  } else if (std::int32_t colour = 0; GetDelimitedField(text, ',', 0, colour)) {
    SetLast(m_arrays.colours, static_cast<std::uint32_t>(colour));
  }
}

std::string OGBProjectionOfLine(std::string raw) {
  const std::string line = UpperLine(std::move(raw));
  if (!Has(line, "PROJECTION") && !Has(line, "COORDINATESYSTEM")) return {};
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos || equals == 0) return {};
  return Trim(line.substr(equals + 1), " \t\r\n");
}
