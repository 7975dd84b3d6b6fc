#pragma once

#include <cmath>

#include "host/geometry/on_point.h"

namespace orv {

// Beyond this a coordinate is one that a document has left unset, or no number at all. Sums of
// lesser ones are finite.
inline constexpr double kGreatestCoordinate = 1e300;

inline bool AreCoordinates(ON_3dVector v) {
  const auto isCoordinate = [](double c) { return std::fabs(c) <= kGreatestCoordinate; };
  return isCoordinate(v.x) && isCoordinate(v.y) && isCoordinate(v.z);
}
inline bool AreCoordinates(ON_3dPoint p) {
  return AreCoordinates(ON_FromOrigin(p));
}

}  // namespace orv
