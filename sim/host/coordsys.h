// Coordinate clauses: the text behind "CoordSys" in a statement. The
// supported subset (see README.md):
//   Earth Projection 1, <datum>                       longitude / latitude
//   Earth Projection 8, <datum>, "<unit>", <central meridian>, <origin
//     latitude>, <scale factor>, <false easting>, <false northing>
//                                                     transverse Mercator (UTM
//                                                     and MGA zones are named)
//   NonEarth Units "<unit>"                           plane coordinates
// with datum 104 (WGS 84) or 116 (GDA94), and an optional
// "Bounds (x1, y1) (x2, y2)" behind any of them.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "token_stream.h"

namespace sim {

class CoordSys {
 public:
  enum class Kind { Earth, NonEarth };

  static CoordSys LongLat(int datum = 104);
  static CoordSys NonEarth(std::string unit);
  static CoordSys TransverseMercator(int datum, std::string unit, std::vector<double> params);

  Kind GetKind() const { return m_kind; }
  bool IsEarth() const { return m_kind == Kind::Earth; }
  int Projection() const { return m_nProjection; }
  int Datum() const { return m_nDatum; }
  const std::string& Unit() const { return m_strUnit; }
  const std::vector<double>& Params() const { return m_params; }
  void SetBounds(std::array<double, 4> bounds) { m_bounds = bounds; }

  // The clause as the host writes it, e.g. "Earth Projection 1, 104".
  std::string Clause() const;
  // The name the host shows, e.g. "Longitude / Latitude (WGS 84)" or
  // "Non-Earth (m)".
  std::string Name() const;
  // What PROJ takes for this system: "EPSG:nnnn" where one stands for it,
  // else a PROJ string. Empty for a non-earth system.
  std::string ProjDefinition() const;
  // Metres in one unit of a non-earth system.
  double UnitToMetres() const;
  // Same projection, datum, unit and parameters (bounds don't count).
  bool SameSystem(const CoordSys& other) const;

 private:
  CoordSys() = default;
  std::optional<int> UtmZone() const;

  Kind m_kind = Kind::NonEarth;
  int m_nProjection = 0;
  int m_nDatum = 0;
  std::string m_strUnit = "m";
  std::vector<double> m_params;
  std::optional<std::array<double, 4>> m_bounds;
};

// Reads a clause from the tokens (the word CoordSys already taken), up to
// a word it doesn't know; throws SyntaxError or HostError.
CoordSys ParseCoordSysClause(TokenStream& tokens);
// A whole clause text, with or without the word CoordSys in front.
CoordSys ParseCoordSysText(const std::string& text);

}  // namespace sim
