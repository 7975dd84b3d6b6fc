#pragma once

#include <vector>

#include "host/geometry/on_nurbs_curve.h"

// What closed curves enclose.

// The area over which a straight line from `from` to a point that runs along a valid curve sweeps:
// as long as the area, and in the direction from which it is seen to be swept counterclockwise. For
// a closed curve in a plane that is what it encloses, wherever `from` lies. Exact for polynomial
// curves up to degree 3, to about seven digits for others.
ON_3dVector ON_SweptArea(const ON_NurbsCurve& curve, ON_3dPoint from);
// Points of a valid curve from its start to its end, so many that straight lines between them stray
// from the curve by about `tolerance` at most. No span gets more than 256, so that a tolerance that
// is too small costs a bounded time.
std::vector<ON_3dPoint> ON_CurvePoints(const ON_NurbsCurve& curve, double tolerance);
