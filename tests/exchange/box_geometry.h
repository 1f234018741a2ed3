// The corners of a selection box worked out on their own, from the angles'
// meaning: the offset is turned about x by 90 less the tilt, then about z
// by the negated turn, with the exact value of pi. Tests compare the
// written faces with these at the two decimals of the file.
#pragma once

#include <array>
#include <cmath>
#include <numbers>

struct BoxCorner {
  double x, y, z;
};

struct BoxCorners {
  std::array<BoxCorner, 4> upper;  // from (-hx, +hy), (+hx, +hy), (+hx, -hy), (-hx, -hy) at +hz
  std::array<BoxCorner, 4> lower;  // the same at -hz
};

inline BoxCorner TurnedOffset(double ox, double oy, double oz, double tilt, double turn) {
  const double a = (90.0 - tilt) * std::numbers::pi / 180.0;
  const double b = -turn * std::numbers::pi / 180.0;
  const double y1 = oy * std::cos(a) - oz * std::sin(a);
  const double z1 = oy * std::sin(a) + oz * std::cos(a);
  return {ox * std::cos(b) - y1 * std::sin(b), ox * std::sin(b) + y1 * std::cos(b), z1};
}

inline BoxCorners ExpectedBox(BoxCorner centre, BoxCorner size, double tilt, double turn) {
  const double hx = size.x / 2, hy = size.y / 2, hz = size.z / 2;
  const double sx[4] = {-hx, hx, hx, -hx}, sy[4] = {hy, hy, -hy, -hy};
  BoxCorners box;
  for (int i = 0; i < 4; ++i) {
    for (int level = 0; level < 2; ++level) {
      const BoxCorner turned = TurnedOffset(sx[i], sy[i], level == 0 ? hz : -hz, tilt, turn);
      (level == 0 ? box.upper : box.lower)[i] = {turned.x + centre.x, turned.y + centre.y, turned.z + centre.z};
    }
  }
  return box;
}
