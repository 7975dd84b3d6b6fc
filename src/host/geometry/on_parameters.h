#pragma once

#include <span>

#include "host/geometry/on_point.h"

// What curves of several pieces share.

// True when all are numbers and each is greater than the one before.
bool ON_AreIncreasing(std::span<const double> parameters);
// The index of the interval between neighbours in which `t` lies: the first or the last one for
// what is outside. There are at least two parameters, and they increase.
std::size_t ON_IntervalIndex(std::span<const double> parameters, double t);
// The point at a fraction of the way: exactly `a` at 0, exactly `b` at 1.
inline ON_3dPoint ON_PointBetween(const ON_3dPoint& a, const ON_3dPoint& b, double fraction) {
  const double rest = 1 - fraction;
  return {rest * a.x + fraction * b.x, rest * a.y + fraction * b.y, rest * a.z + fraction * b.z};
}
// True when two points agree but for rounding: to 2^-32, or to 2^-42 of their size.
bool ON_PointsAreCoincident(const ON_3dPoint& a, const ON_3dPoint& b);
