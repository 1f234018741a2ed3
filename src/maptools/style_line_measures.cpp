#include "maptools/style_line_measures.h"

#include <algorithm>
#include <cmath>

namespace stylelines {

std::int32_t Truncate32(double v) {
  if (!std::isfinite(v)) return 0;
  if (v >= 2147483647.0) return 2147483647;
  if (v <= -2147483648.0) return -2147483647 - 1;
  return static_cast<std::int32_t>(v);
}

std::int16_t Truncate16(double v) { return static_cast<std::int16_t>(Truncate32(v)); }

std::int32_t RoundCoord(double v) { return Truncate32(v > 0 ? v + 0.5 : v - 0.5); }

double AspectLength(double v) {
  return kXResolution == kYResolution ? v : static_cast<double>(kYResolution) * v / kXResolution;
}

double ToXUnits(double v) {
  return kXResolution == kYResolution ? v : static_cast<double>(kXResolution) * v / kYResolution;
}

namespace {

// Tenths of a point, from 10 up, in device units.
double PointWidth(int width) {
  double units = (width - 10) * static_cast<double>(kYResolution) / 720;
  if (kXResolution != kYResolution) units *= static_cast<double>(kXResolution) / kYResolution;
  return units;
}

}  // namespace

double BaseWidth(int width, bool oneIsUnit, double unit) {
  if (width >= 10) return PointWidth(width);
  if (width == 0 || (width == 1 && oneIsUnit)) return unit;
  return kWidthFactor != 0 ? width * unit * kWidthFactor : width * unit;
}

double ScaleByWidth(double v, int width, double unit) {
  if (width >= 10) return PointWidth(width) * v;
  if (width == 0) return unit * v;
  return width * unit * kWidthFactor * v;
}

fk::draw::Point OffsetPoint(double along, double across, double x, double y, double sin, double cos) {
  double x1 = x, y1 = y;
  if (along != 0) {
    x1 = x + along * cos;
    y1 = y + AspectLength(along) * sin;
  }
  if (across != 0) {
    x1 += ToXUnits(across) * sin;
    y1 -= across * cos;
  }
  return {RoundCoord(x1), RoundCoord(y1)};
}

std::int16_t InterpolateWidth(double dA, double wA, double dB, double wB) {
  if (wA == wB) return Truncate16(wA);
  const std::int16_t base = Truncate16(std::min(wA, wB));
  if (wA > wB) return Truncate16(base + (dB / (dA + dB)) * (wA - base));
  return Truncate16(base + (dA / (dA + dB)) * (wB - base));
}

}  // namespace stylelines
