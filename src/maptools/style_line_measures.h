// Lengths of the line style language: device units, widths and the offsets
// of points along and across a line.
#pragma once

#include <cstdint>

#include "platform/draw/device_context.h"

namespace stylelines {

inline constexpr int kXResolution = 96;
inline constexpr int kYResolution = 96;
inline constexpr double kWidthFactor = 1.0;

// Half away from zero, then truncated; saturated to the 32-bit range.
std::int32_t RoundCoord(double v);
// Truncated toward zero to 32 bits, then narrowed to 16; 0 for what isn't a number.
std::int16_t Truncate16(double v);
std::int32_t Truncate32(double v);
// A length across x units as a length in y units, and back.
double AspectLength(double v);
double ToXUnits(double v);
// The line's width in device units: from 10 up tenths of a point (10 being
// none); below 10 a count of units, 0 (and 1 with `oneIsUnit`) one unit.
double BaseWidth(int width, bool oneIsUnit, double unit);
// A program's length `v` scaled by the line width.
double ScaleByWidth(double v, int width, double unit);
// The point `along` the line and `across` it (to the left) from (x, y).
fk::draw::Point OffsetPoint(double along, double across, double x, double y, double sin, double cos);
// A band side's offset, going from `wB` toward `wA` as distance `dB` of
// `dA + dB` is covered.
std::int16_t InterpolateWidth(double dA, double wA, double dB, double wB);

}  // namespace stylelines
