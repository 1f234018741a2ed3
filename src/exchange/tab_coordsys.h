// The coordinate system line of a raster table and the units that go with
// it, worked out from the coordinate clause a script or the host gives: a
// whole "CoordSys ..." statement, a clause such as "Earth Projection 8, 104,
// "m", ..." or "NonEarth Units "m" ...", or a bare list of projection
// parameters.
#pragma once

#include <string>
#include <string_view>

struct TabCoordSys {
  std::string strLine;   // the whole line, with its two leading blanks and "\n"
  std::string strUnits;  // for the Units line; may be empty
};

// An empty clause gives the NonEarth line in metres.
TabCoordSys DescribeTabCoordSys(std::string_view clause);
