// Section planes: a table marked as a vertical section keeps its plane's
// origin and bearing as metadata keys, in two key families alike.
#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"

namespace {

constexpr const char* kTerravikFamily = "\\Terravik\\xsects\\";
constexpr const char* kZelvarFamily = "\\Zelvar3D\\xsects\\";
constexpr const char* kSection = "Section";
constexpr double kRadiansPerDegree = 0.01745329252;
constexpr double kDegreesPerRadian = 57.29577951;

bool IsSectionIn(CCartoma& host, const std::string& table, const char* family) {
  return host.GetMetadata(table, std::string(family) + "type") == kSection;
}

double ValueOf(CCartoma& host, const std::string& table, const char* family, const char* key) {
  return fk::Atof(host.GetMetadata(table, std::string(family) + key));
}

}  // namespace

int CCartoma::SetSectionPlane(const std::string& table, double x, double y, double z, double bearing) {
  const std::pair<const char*, std::string> keys[] = {
      {"type", kSection},
      {"xs_n", fk::Format("%lf", y)},
      {"xs_e", fk::Format("%lf", x)},
      {"xs_r", fk::Format("%lf", z)},
      {"xs_o", fk::Format("%lf", bearing * kRadiansPerDegree)},
      {"xs_l", "10000"},
      {"xs_vr", "10000"},
      {"xs_xs", "0"},
      {"xs_v", "1"},
  };
  for (const auto& [key, value] : keys)
    for (const char* family : {kTerravikFamily, kZelvarFamily})
      Do(fk::Format("Metadata Table %s SetKey \"%s\" To \"%s\"", table, std::string(family) + key, value), 0);
  return 1;
}

int CCartoma::GetSectionPlane(const std::string& table, double& x, double& y, double& z, double& bearing) {
  const char* family = IsSectionIn(*this, table, kZelvarFamily)     ? kZelvarFamily
                       : IsSectionIn(*this, table, kTerravikFamily) ? kTerravikFamily
                                                                    : nullptr;
  if (!family) return 0;
  y = ValueOf(*this, table, family, "xs_n");
  x = ValueOf(*this, table, family, "xs_e");
  z = ValueOf(*this, table, family, "xs_r");
  bearing = ValueOf(*this, table, family, "xs_o") * kDegreesPerRadian;
  return 1;
}

// The window 0 is the session's current mapper, as for every window query.
long CCartoma::FindSectionLayer(long mapper) {
  if (GetWindowType(mapper) != 1) return 0;
  const long layers = GetLayerCount(mapper);
  for (long layer = 1; layer <= layers; ++layer) {
    const std::string name = GetLayerName(layer, mapper);
    if (GetLayerType(layer, mapper) == 0 && !IsTempTable(name) &&
        (IsSectionIn(*this, name, kTerravikFamily) || IsSectionIn(*this, name, kZelvarFamily)))
      return layer;
  }
  return 0;
}
