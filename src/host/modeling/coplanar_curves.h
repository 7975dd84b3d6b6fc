#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_nurbs_curve.h"

namespace host {

struct PlanarCurve {
  // Among the curves that were given.
  std::size_t index = 0;
  ON_NurbsCurve form;
  // What it encloses; see ON_SweptArea.
  ON_3dVector area{0, 0, 0};
  double area_length = 0;
};

// Curves of one plane.
struct CoplanarCurves {
  ON_Plane plane;
  // The one that encloses most first.
  std::vector<PlanarCurve> curves;
};

// The closed planar curves among others, sorted by their planes. A curve lies in a plane when it is
// nowhere farther from it than `tolerance`, whichever way it runs. The plane is that of the curve
// that encloses most, and looks to where this one runs counterclockwise. Its x axis is horizontal;
// in a horizontal plane it is the world's.
[[nodiscard]] std::vector<CoplanarCurves> SortByPlane(
    const std::vector<std::shared_ptr<const ON_Curve>>& curves, double tolerance);

}  // namespace host
