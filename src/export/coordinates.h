#pragma once

#include <cmath>

#include "host/geometry/on_point.h"

namespace orv {

// Beyond this a coordinate or another number is one that a document has left unset, or no number at
// all. Sums of lesser ones are finite.
inline constexpr double kGreatestNumber = 1e300;

inline bool IsSetNumber(double number) {
  return std::fabs(number) <= kGreatestNumber;
}
inline bool AreCoordinates(ON_3dVector v) {
  return IsSetNumber(v.x) && IsSetNumber(v.y) && IsSetNumber(v.z);
}
inline bool AreCoordinates(ON_3dPoint p) {
  return AreCoordinates(ON_FromOrigin(p));
}

}  // namespace orv
