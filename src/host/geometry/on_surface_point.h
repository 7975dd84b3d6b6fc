#pragma once

#include <array>
#include <vector>

#include "host/geometry/on_surface.h"

// A point on a surface and its parameters.
struct ON_SurfacePoint {
  double u = 0;
  double v = 0;
  ON_3dPoint point{0, 0, 0};
};

// The points of a part of a surface that are closer to `p` than the surface around them, the
// closest one first. The search begins at a grid of points that follows the surface's spans and
// ends at the least distance around the best of them. So a bend that is smaller than the grid may
// be passed over. Never empty, and never more than a few dozen.
std::vector<ON_SurfacePoint> ON_ClosestSurfacePoints(const ON_Surface& surface,
                                                     const std::array<ON_Interval, 2>& part,
                                                     ON_3dPoint p);
