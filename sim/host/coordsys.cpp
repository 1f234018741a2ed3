#include "coordsys.h"

#include <cmath>
#include <map>

#include "errors.h"
#include "text_util.h"

namespace sim {
namespace {

constexpr int kProjLongLat = 1;
constexpr int kProjTransverseMercator = 8;
constexpr int kDatumWgs84 = 104;
constexpr int kDatumGda94 = 116;

struct DatumInfo {
  const char* name;
  int geographicEpsg;
  const char* projParams;
};

const DatumInfo& DatumOf(int datum) {
  static const DatumInfo kWgs84{"WGS 84", 4326, "+datum=WGS84"};
  static const DatumInfo kGda94{"GDA94", 4283, "+ellps=GRS80 +towgs84=0,0,0,0,0,0,0"};
  if (datum == kDatumWgs84) return kWgs84;
  if (datum == kDatumGda94) return kGda94;
  throw HostError("Datum " + std::to_string(datum) + " is not supported (104 WGS 84, 116 GDA94)");
}

// Units by the names clauses use, with their PROJ names and size in metres.
struct UnitInfo {
  const char* proj;
  double metres;
};

const UnitInfo& UnitOf(const std::string& unit) {
  static const std::map<std::string, UnitInfo> kUnits = {
      {"m", {"m", 1.0}},       {"km", {"km", 1000.0}}, {"cm", {"cm", 0.01}},
      {"mm", {"mm", 0.001}},   {"ft", {"ft", 0.3048}}, {"survey ft", {"us-ft", 1200.0 / 3937.0}},
      {"in", {"in", 0.0254}},  {"yd", {"yd", 0.9144}}, {"mi", {"mi", 1609.344}},
      {"nmi", {"kmi", 1852.0}}};
  const auto it = kUnits.find(Lower(unit));
  if (it == kUnits.end()) throw HostError("Unit \"" + unit + "\" is not supported");
  return it->second;
}

}  // namespace

CoordSys CoordSys::LongLat(int datum) {
  DatumOf(datum);
  CoordSys cs;
  cs.m_kind = Kind::Earth;
  cs.m_nProjection = kProjLongLat;
  cs.m_nDatum = datum;
  cs.m_strUnit = "degree";
  return cs;
}

CoordSys CoordSys::NonEarth(std::string unit) {
  UnitOf(unit);
  CoordSys cs;
  cs.m_kind = Kind::NonEarth;
  cs.m_strUnit = Lower(unit);
  return cs;
}

CoordSys CoordSys::TransverseMercator(int datum, std::string unit, std::vector<double> params) {
  DatumOf(datum);
  UnitOf(unit);
  if (params.size() != 5)
    throw HostError(
        "Transverse Mercator needs five parameters: central meridian, origin latitude, scale factor, "
        "false easting, false northing");
  CoordSys cs;
  cs.m_kind = Kind::Earth;
  cs.m_nProjection = kProjTransverseMercator;
  cs.m_nDatum = datum;
  cs.m_strUnit = Lower(unit);
  cs.m_params = std::move(params);
  return cs;
}

std::string CoordSys::Clause() const {
  std::string clause;
  if (m_kind == Kind::NonEarth) {
    clause = "NonEarth Units " + Quote(m_strUnit);
  } else {
    clause = "Earth Projection " + std::to_string(m_nProjection) + ", " + std::to_string(m_nDatum);
    if (m_nProjection != kProjLongLat) clause += ", " + Quote(m_strUnit);
    for (double p : m_params) clause += ", " + FormatNumber(p);
  }
  if (m_bounds) {
    const auto& b = *m_bounds;
    clause += " Bounds (" + FormatNumber(b[0]) + ", " + FormatNumber(b[1]) + ") (" + FormatNumber(b[2]) + ", " +
              FormatNumber(b[3]) + ")";
  }
  return clause;
}

std::optional<int> CoordSys::UtmZone() const {
  if (m_nProjection != kProjTransverseMercator || m_strUnit != "m") return std::nullopt;
  const double cm = m_params[0];
  const double zone = (cm + 183.0) / 6.0;
  if (zone != std::trunc(zone) || zone < 1 || zone > 60) return std::nullopt;
  if (m_params[1] != 0 || m_params[2] != 0.9996 || m_params[3] != 500000) return std::nullopt;
  if (m_params[4] != 0 && m_params[4] != 10000000) return std::nullopt;
  return static_cast<int>(zone);
}

std::string CoordSys::Name() const {
  if (m_kind == Kind::NonEarth) return "Non-Earth (" + m_strUnit + ")";
  const std::string datum = DatumOf(m_nDatum).name;
  if (m_nProjection == kProjLongLat) return "Longitude / Latitude (" + datum + ")";
  if (const auto zone = UtmZone()) {
    const std::string hemisphere = m_params[4] == 0 ? "North" : "South";
    if (m_nDatum == kDatumGda94 && hemisphere == "South")
      return "Map Grid of Australia (GDA94) Zone " + std::to_string(*zone);
    return "Universal Transverse Mercator (" + datum + ") Zone " + std::to_string(*zone) + " " + hemisphere;
  }
  return "Transverse Mercator (" + datum + ")";
}

std::string CoordSys::ProjDefinition() const {
  if (m_kind == Kind::NonEarth) return {};
  const DatumInfo& datum = DatumOf(m_nDatum);
  if (m_nProjection == kProjLongLat) return "EPSG:" + std::to_string(datum.geographicEpsg);
  if (const auto zone = UtmZone()) {
    const bool south = m_params[4] != 0;
    if (m_nDatum == kDatumWgs84) return "EPSG:" + std::to_string((south ? 32700 : 32600) + *zone);
    if (m_nDatum == kDatumGda94 && south && *zone >= 46 && *zone <= 59) return "EPSG:" + std::to_string(28300 + *zone);
  }
  // PROJ takes false easting and northing in metres, whatever the units.
  const double metres = UnitOf(m_strUnit).metres;
  return "+proj=tmerc +lat_0=" + FormatNumber(m_params[1]) + " +lon_0=" + FormatNumber(m_params[0]) +
         " +k=" + FormatNumber(m_params[2]) + " +x_0=" + FormatNumber(m_params[3] * metres) +
         " +y_0=" + FormatNumber(m_params[4] * metres) + " " + datum.projParams + " +units=" + UnitOf(m_strUnit).proj +
         " +no_defs +type=crs";
}

double CoordSys::UnitToMetres() const { return m_kind == Kind::NonEarth ? UnitOf(m_strUnit).metres : 1.0; }

bool CoordSys::SameSystem(const CoordSys& other) const {
  return m_kind == other.m_kind && m_nProjection == other.m_nProjection && m_nDatum == other.m_nDatum &&
         m_strUnit == other.m_strUnit && m_params == other.m_params;
}

namespace {

std::array<double, 4> ParseBounds(TokenStream& t) {
  std::array<double, 4> b{};
  t.ExpectSign("(");
  b[0] = t.ExpectNumber("a bound");
  t.ExpectSign(",");
  b[1] = t.ExpectNumber("a bound");
  t.ExpectSign(")");
  t.ExpectSign("(");
  b[2] = t.ExpectNumber("a bound");
  t.ExpectSign(",");
  b[3] = t.ExpectNumber("a bound");
  t.ExpectSign(")");
  return b;
}

CoordSys ParseEarth(TokenStream& t) {
  t.Expect("Projection");
  const int projection = static_cast<int>(t.ExpectNumber("a projection number"));
  t.ExpectSign(",");
  const int datum = static_cast<int>(t.ExpectNumber("a datum number"));
  if (projection == kProjLongLat) return CoordSys::LongLat(datum);
  if (projection != kProjTransverseMercator)
    throw HostError("Projection " + std::to_string(projection) +
                    " is not supported (1 longitude / latitude, 8 transverse Mercator)");
  t.ExpectSign(",");
  const std::string unit = t.ExpectText("a unit name in quotes");
  std::vector<double> params;
  while (t.AcceptSign(",")) params.push_back(t.ExpectNumber("a projection parameter"));
  return CoordSys::TransverseMercator(datum, unit, params);
}

}  // namespace

CoordSys ParseCoordSysClause(TokenStream& t) {
  std::optional<CoordSys> cs;
  if (t.Accept("Earth")) {
    cs = ParseEarth(t);
  } else if (t.Accept("NonEarth")) {
    t.Expect("Units");
    cs = CoordSys::NonEarth(t.ExpectText("a unit name in quotes"));
  } else {
    t.Fail("expected Earth or NonEarth");
  }
  if (t.Accept("Bounds")) cs->SetBounds(ParseBounds(t));
  return *cs;
}

CoordSys ParseCoordSysText(const std::string& text) {
  TokenStream tokens(text);
  tokens.Accept("CoordSys");
  CoordSys cs = ParseCoordSysClause(tokens);
  tokens.ExpectEnd();
  return cs;
}

}  // namespace sim
