#include "viewer/viewer_options.h"

#include "platform/text/letter_case.h"

namespace {

constexpr const char* kSetup = "Setup";
constexpr int kMostRasterScaling = 4;
constexpr std::size_t kShortestProjection = 5;

}  // namespace

int CappedRasterScaling(int scaling) { return scaling > kMostRasterScaling ? kMostRasterScaling : scaling; }

int SetShowHelp(ViewerOptions options, int /*flag*/) {
  options.bShowHelp = 0;
  options.profile.WriteInt(kSetup, "ShowHelp", 0);
  return 1;
}

void WritePreferredProjection(const ViewerOptions& options) {
  options.profile.WriteString(kSetup, "PreferredProj", options.strPreferredProj);
  options.profile.WriteString(kSetup, "PreferredProjDesc", options.strPreferredProjDesc);
}

int SetProjMapping(ViewerOptions options, int flag, const std::string& projection, const std::string& description) {
  options.bProjMapping = flag;
  options.strPreferredProj = projection;
  options.strPreferredProjDesc = description;
  options.profile.WriteInt(kSetup, "ProjMapping", flag);
  WritePreferredProjection(options);
  return 1;
}

int GetProjMapping(ViewerOptions options, std::string& projection, std::string& description) {
  projection = options.strPreferredProj;
  description = options.strPreferredProjDesc;
  const std::string upper = fk::ToUpper(projection);
  // "NONEARTH" holds "EARTH": one test covers both kinds of clause.
  if (upper.find("EARTH") == std::string::npos) projection = "Earth Projection " + projection;
  return upper.size() < kShortestProjection ? 0 : options.bProjMapping;
}
