#pragma once

#include <array>
#include <optional>
#include <vector>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_surface_point.h"

// The part of a surface that a face leaves of it, in the surface's parameters. What is inside is
// told by straight lines that stray from the boundary by some millionths of the region's size, by
// more where it has thousands of control points. The brep outlives the region.
class ON_FaceRegion {
 public:
  ON_FaceRegion(const ON_Brep& brep, const ON_BrepFace& face);

  // The part of the surface's domain that holds the region, in both directions. Not increasing
  // where there is nothing.
  const std::array<ON_Interval, 2>& Bounds() const { return bounds_; }
  // True inside the outer loop and outside the others. On the boundary it may be either.
  bool Contains(double u, double v) const;
  // True inside, and where the boundary is no farther than the lines may stray.
  bool ContainsOrTouches(double u, double v) const;
  // The point of the boundary that is closest to `p` in space. Nothing when there is no boundary.
  std::optional<ON_SurfacePoint> ClosestBoundaryPoint(ON_3dPoint p) const;

 private:
  using Polygon = std::vector<ON_3dPoint>;

  void AddLoop(const ON_Brep& brep, const ON_BrepLoop& loop);
  void SetBounds();
  ON_SurfacePoint PointOn(const ON_NurbsCurve& trim, double t) const;
  ON_SurfacePoint ClosestPointOn(const ON_NurbsCurve& trim, ON_3dPoint p) const;

  const ON_Surface& surface_;
  std::array<ON_Interval, 2> bounds_;
  // How far straight lines may stray from the boundary.
  double tolerance_ = 0;
  // The trims of each loop in their direction, and the loop's points.
  std::vector<std::vector<ON_NurbsCurve>> loops_;
  std::vector<Polygon> polygons_;
};
