#include "host/modeling/planar_breps.h"

#include <algorithm>

#include "host/modeling/coplanar_curves.h"
#include "host/modeling/planar_regions.h"

namespace {

using Curves = std::vector<std::shared_ptr<const ON_Curve>>;

struct PlacedBrep {
  // The position of the outer curve.
  std::size_t index = 0;
  std::unique_ptr<ON_Brep> brep;
};

// From space to the coordinates of a plane.
ON_Xform ToPlane(const ON_Plane& plane) {
  ON_Xform xform;
  const ON_3dVector axes[] = {plane.xaxis, plane.yaxis, plane.zaxis};
  const ON_3dVector origin = ON_FromOrigin(plane.origin);
  for (std::size_t i = 0; i < 3; ++i) {
    const ON_3dVector& a = axes[i];
    xform.m_xform[i] = {a.x, a.y, a.z, -ON_DotProduct(a, origin)};
  }
  return xform;
}

host::PlaneLoop LoopOf(const host::PlanarCurve& curve, const ON_Xform& to_plane) {
  ON_NurbsCurve flat = curve.form;
  flat.Transform(to_plane);
  for (ON_4dPoint& cv : flat.m_cv) cv.z = 0;
  return host::PlaneLoop(std::move(flat));
}

// The surface's parameters begin at 0, so that they are as exact far from the world's origin.
ON_Plane PlaneFrom(const ON_Plane& plane, const ON_BoundingBox& box) {
  ON_Plane moved = plane;
  moved.origin = plane.PointAt(box.m_min.x, box.m_min.y);
  return moved;
}

void FillCurves(const host::CoplanarCurves& coplanar, const Curves& curves, double tolerance,
                std::vector<PlacedBrep>& breps) {
  const ON_Xform to_plane = ToPlane(coplanar.plane);
  std::vector<host::PlaneLoop> loops;
  loops.reserve(coplanar.curves.size());
  for (const host::PlanarCurve& curve : coplanar.curves) loops.push_back(LoopOf(curve, to_plane));
  for (const host::PlanarRegion& region : host::FindRegions(loops)) {
    const auto index_of = [&](std::size_t loop) { return coplanar.curves[loop].index; };
    Curves boundaries{curves[index_of(region.outer)]};
    for (const std::size_t hole : region.holes) boundaries.push_back(curves[index_of(hole)]);
    const ON_Plane plane = PlaneFrom(coplanar.plane, loops[region.outer].Box());
    auto brep = ON_BrepTrimmedPlane(plane, boundaries, tolerance);
    if (brep != nullptr) breps.push_back({index_of(region.outer), std::move(brep)});
  }
}

}  // namespace

std::vector<std::unique_ptr<ON_Brep>> RhinoMakePlanarBreps(const Curves& curves, double tolerance) {
  std::vector<PlacedBrep> placed;
  for (const host::CoplanarCurves& coplanar : host::SortByPlane(curves, tolerance)) {
    FillCurves(coplanar, curves, tolerance, placed);
  }
  std::sort(placed.begin(), placed.end(),
            [](const PlacedBrep& a, const PlacedBrep& b) { return a.index < b.index; });
  std::vector<std::unique_ptr<ON_Brep>> breps;
  breps.reserve(placed.size());
  for (PlacedBrep& brep : placed) breps.push_back(std::move(brep.brep));
  return breps;
}
