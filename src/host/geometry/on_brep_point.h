#pragma once

#include <optional>

#include "host/geometry/on_surface_point.h"

class ON_Brep;

// A point on a face of a brep, with the parameters of the face's surface.
struct ON_BrepPoint {
  int face_index = -1;
  ON_SurfacePoint at;
};

// The point of the faces that is closest to `p`, of several the one on the first face; see
// ON_ClosestSurfacePoints. Nothing when there is no face with a boundary.
std::optional<ON_BrepPoint> ON_ClosestPointOnBrep(const ON_Brep& brep, ON_3dPoint p);
// The point of a face at parameters of its surface. Nothing when the face doesn't reach there.
std::optional<ON_BrepPoint> ON_PointOnBrepFace(const ON_Brep& brep, int face_index, double u,
                                               double v);
