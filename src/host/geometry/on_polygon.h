#pragma once

#include <span>
#include <vector>

#include "host/geometry/on_nurbs_curve.h"

// Polygons that stand for closed curves.

// Points of a valid curve from its start to its end, so many that straight lines between them stray
// from the curve by about `tolerance` at most. No span gets more than 256, so that a tolerance that
// is too small costs a bounded time.
std::vector<ON_3dPoint> ON_CurvePoints(const ON_NurbsCurve& curve, double tolerance);
// As long as the area that the polygon encloses, and in the direction from which it is seen to run
// counterclockwise. Newell's formula; for polygons that aren't plane, that of the plane on which
// most can be seen. The last point may be the first one again.
ON_3dVector ON_AreaVector(std::span<const ON_3dPoint> polygon);
