// The 3D options of the session: eight values of the application object,
// read and written by small exports. Show help and the projection mapping
// are also kept in the profile's "Setup" section.
#pragma once

#include <string>

#include "platform/registry/profile.h"

struct ViewerOptions {
  int& nPointSize;
  int& nGridCompression;
  int& nRasterScaling;
  int& bCartomaParent;
  int& bGridClipping;
  int& nTransparency;
  int& bShowHelp;
  int& bProjMapping;
  std::string& strPreferredProj;
  std::string& strPreferredProjDesc;
  fk::Profile profile;
};

// The raster scaling as stored: anything above 4 is 4; below is kept.
int CappedRasterScaling(int scaling);
// Whatever `flag` says, stores 0 and writes 0 to "ShowHelp": help can only
// be switched off here.
int SetShowHelp(ViewerOptions options, int flag);
int SetProjMapping(ViewerOptions options, int flag, const std::string& projection, const std::string& description);
// The projection as a full clause (a bare one gets "Earth Projection "
// before it) and the description; the mapping flag, or 0 when the
// projection is shorter than five characters.
int GetProjMapping(ViewerOptions options, std::string& projection, std::string& description);
// Writes the preferred projection and its description to "Setup".
void WritePreferredProjection(const ViewerOptions& options);
