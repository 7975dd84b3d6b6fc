#include "host/geometry/on_plane_boundary.h"

#include <algorithm>
#include <cmath>

#include "host/geometry/on_closed_curve.h"
#include "host/geometry/on_poly_curve.h"

namespace {

// `tolerance`, but not less than what rounding can make of coordinates of this size.
double WidenedTolerance(double tolerance, const ON_Plane& plane, const ON_BoundingBox& box) {
  double size = std::max({std::abs(plane.origin.x), std::abs(plane.origin.y),
                          std::abs(plane.origin.z), box.m_max.DistanceTo(box.m_min)});
  for (const ON_3dPoint& p : {box.m_min, box.m_max}) {
    size = std::max({size, std::abs(p.x), std::abs(p.y), std::abs(p.z)});
  }
  return std::max(size * 0x1p-40, tolerance);
}

// Maps a curve of the plane into the plane's coordinates. False when it isn't in the plane.
bool MapInto(const ON_Plane& plane, double tolerance, ON_NurbsCurve& curve) {
  for (ON_4dPoint& cv : curve.m_cv) {
    const double w = curve.IsRational() ? cv.w : 1;
    const ON_3dVector v = ON_3dVector{cv.x, cv.y, cv.z} - ON_FromOrigin(plane.origin) * w;
    const double distance = std::abs(ON_DotProduct(v, plane.zaxis));
    if (!(distance <= tolerance * (w == 0 ? 1 : std::abs(w)))) return false;
    cv = {ON_DotProduct(v, plane.xaxis), ON_DotProduct(v, plane.yaxis), 0, w};
  }
  curve.m_dim = 2;
  return curve.IsValid();
}

// The segments of a polycurve and of those in it, which live as long as it does.
void AppendSegments(const std::shared_ptr<const ON_Curve>& curve,
                    std::vector<ON_BoundaryPiece>& pieces) {
  const ON_PolyCurve* poly_curve = ON_PolyCurve::Cast(curve.get());
  if (poly_curve == nullptr) {
    pieces.push_back({curve, nullptr});
    return;
  }
  for (const auto& segment : poly_curve->m_segment) {
    AppendSegments(std::shared_ptr<const ON_Curve>(curve, segment.get()), pieces);
  }
}

// Makes each of several images end exactly where the next one begins. False when they are apart.
bool JoinImages(std::vector<ON_BoundaryPiece>& pieces, double tolerance) {
  if (pieces.size() == 1) return true;
  for (const ON_BoundaryPiece& piece : pieces) {
    piece.image->ClampAndRaise(piece.image->Order());
    if (!piece.image->IsValid()) return false;
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    ON_4dPoint& end = pieces[i].image->m_cv.back();
    const ON_3dPoint start = pieces[(i + 1) % pieces.size()].image->m_cv.front().Euclidean();
    if (!(end.Euclidean().DistanceTo(start) <= tolerance)) return false;
    end = {start.x * end.w, start.y * end.w, 0, end.w};
  }
  return true;
}

// Control points bound a curve when their weights are positive.
void IncludeImage(const ON_NurbsCurve& image, double size, ON_BoundingBox& box) {
  constexpr double kFineness = 1e-4;
  const auto& cvs = image.m_cv;
  if (std::all_of(cvs.begin(), cvs.end(), [](const ON_4dPoint& cv) { return cv.w > 0; })) {
    box.Include(image.BoundingBox());
  } else {
    for (const ON_3dPoint& p : ON_CurvePoints(image, kFineness * size)) box.Include(p);
  }
}

}  // namespace

std::optional<ON_PlaneBoundary> ON_MakePlaneBoundary(const ON_Plane& plane,
                                                     const std::shared_ptr<const ON_Curve>& curve,
                                                     double tolerance, ON_BoundingBox& box) {
  if (curve == nullptr || !curve->IsValid() || !curve->IsClosed()) return std::nullopt;
  const ON_BoundingBox curve_box = curve->BoundingBox();
  tolerance = WidenedTolerance(tolerance, plane, curve_box);
  if (!std::isfinite(tolerance)) return std::nullopt;
  ON_PlaneBoundary boundary;
  AppendSegments(curve, boundary.pieces);
  for (ON_BoundaryPiece& piece : boundary.pieces) {
    piece.image = std::make_shared<ON_NurbsCurve>();
    if (!piece.curve->GetNurbForm(*piece.image) || !MapInto(plane, tolerance, *piece.image)) {
      return std::nullopt;
    }
  }
  if (!JoinImages(boundary.pieces, tolerance)) return std::nullopt;
  const double size = curve_box.m_max.DistanceTo(curve_box.m_min);
  const ON_3dPoint start = boundary.pieces.front().image->PointAtStart();
  for (const ON_BoundaryPiece& piece : boundary.pieces) {
    boundary.area += ON_SweptArea(*piece.image, start).z;
    IncludeImage(*piece.image, size, box);
  }
  // A curve that comes back the way it went encloses nothing.
  constexpr double kNothing = 1e-14;
  if (!(std::abs(boundary.area) > kNothing * size * size)) return std::nullopt;
  return boundary;
}
