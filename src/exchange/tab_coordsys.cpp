#include "exchange/tab_coordsys.h"

#include "platform/text/format.h"
#include "platform/text/letter_case.h"

namespace {

std::string LowerCase(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

bool Contains(const std::string& text, const char* token) { return text.find(token) != std::string::npos; }

// A quoted unit behind the start of the clause; else degrees for projection
// 1 (longitude and latitude) and metres for everything else.
std::string UnitsOf(const std::string& upper) {
  const std::size_t open = upper.find('"');
  if (open != std::string::npos && open > 0) {
    const std::size_t close = upper.find('"', open + 1);
    if (close != std::string::npos) return LowerCase(upper.substr(open + 1, close - open - 1));
  }
  if (Contains(upper, "EARTH PROJECTION 1,") || upper.starts_with("1,")) return "degree";
  return "m";
}

std::string LineOf(std::string_view clause, const std::string& upper) {
  if (Contains(upper, "COORDSYS")) return fk::Format("  %s\n", clause);
  if (Contains(upper, "NONEARTH") || Contains(upper, "EARTH PROJECTION")) return fk::Format("  CoordSys %s\n", clause);
  return fk::Format("  CoordSys Earth Projection %s\n", clause);
}

}  // namespace

TabCoordSys DescribeTabCoordSys(std::string_view clause) {
  if (clause.empty()) return {"  CoordSys NonEarth Units \"m\"\n", "m"};
  const std::string upper = fk::ToUpper(clause);
  return {LineOf(clause, upper), UnitsOf(upper)};
}
