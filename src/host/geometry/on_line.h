#pragma once

#include "host/geometry/on_point.h"

struct ON_Line {
  ON_3dPoint from;
  ON_3dPoint to;

  // The parameter (0 at `from`, 1 at `to`) of the point of the infinite line that is nearest to
  // `p`; 0 when both ends agree.
  double ClosestPointTo(ON_3dPoint p) const;
};
