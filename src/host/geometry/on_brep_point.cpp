#include "host/geometry/on_brep_point.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_face_region.h"
#include "host/geometry/on_nurbs_surface.h"

namespace {

// No point of the surface is closer to `p`: the distance to the box of its control points, which
// holds it when no weight is negative.
double LeastDistance(const ON_Surface& surface, ON_3dPoint p) {
  ON_NurbsSurface made;
  const ON_NurbsSurface* form = ON_NurbsSurface::Cast(&surface);
  if (form == nullptr && surface.GetNurbForm(made)) form = &made;
  if (form == nullptr) return 0;
  const auto is_plain = [](const ON_4dPoint& cv) { return cv.w > 0; };
  if (!std::all_of(form->m_cv.begin(), form->m_cv.end(), is_plain)) return 0;
  const ON_BoundingBox box = form->BoundingBox();
  if (!box.IsValid()) return 0;
  const ON_3dPoint nearest{std::clamp(p.x, box.m_min.x, box.m_max.x),
                           std::clamp(p.y, box.m_min.y, box.m_max.y),
                           std::clamp(p.z, box.m_min.z, box.m_max.z)};
  return nearest.DistanceTo(p);
}

std::optional<ON_SurfacePoint> ClosestPointOnTrimmedFace(const ON_Brep& brep,
                                                         const ON_BrepFace& face, ON_3dPoint p) {
  const ON_FaceRegion region(brep, face);
  std::optional<ON_SurfacePoint> closest = region.ClosestBoundaryPoint(p);
  if (!region.Bounds()[0].IsIncreasing() || !region.Bounds()[1].IsIncreasing()) return closest;
  const auto points = ON_ClosestSurfacePoints(brep.SurfaceOf(face), region.Bounds(), p);
  const auto inside = std::find_if(
      points.begin(), points.end(),
      [&region](const ON_SurfacePoint& point) { return region.Contains(point.u, point.v); });
  if (inside == points.end()) return closest;
  const bool is_closer = !closest || inside->point.DistanceTo(p) <= closest->point.DistanceTo(p);
  return is_closer ? *inside : closest;
}

std::optional<ON_SurfacePoint> ClosestPointOnFace(const ON_Brep& brep, int face_index,
                                                  ON_3dPoint p) {
  const ON_BrepFace& face = brep.m_F[static_cast<std::size_t>(face_index)];
  if (!brep.FaceIsSurface(face_index)) return ClosestPointOnTrimmedFace(brep, face, p);
  const ON_Surface& surface = brep.SurfaceOf(face);
  return ON_ClosestSurfacePoints(surface, {surface.Domain(0), surface.Domain(1)}, p).front();
}

struct FaceAhead {
  double least_distance;
  int index;
};

// The faces in the order in which they come near `p`.
std::vector<FaceAhead> FacesByDistance(const ON_Brep& brep, ON_3dPoint p) {
  std::vector<FaceAhead> faces;
  for (const ON_BrepFace& face : brep.m_F) {
    faces.push_back({LeastDistance(brep.SurfaceOf(face), p), static_cast<int>(faces.size())});
  }
  std::stable_sort(faces.begin(), faces.end(), [](const FaceAhead& a, const FaceAhead& b) {
    return a.least_distance < b.least_distance;
  });
  return faces;
}

}  // namespace

std::optional<ON_BrepPoint> ON_ClosestPointOnBrep(const ON_Brep& brep, ON_3dPoint p) {
  std::optional<ON_BrepPoint> closest;
  double least = std::numeric_limits<double>::infinity();
  for (const FaceAhead& face : FacesByDistance(brep, p)) {
    if (face.least_distance > least) break;
    const auto point = ClosestPointOnFace(brep, face.index, p);
    if (!point) continue;
    const double distance = point->point.DistanceTo(p);
    const bool is_closer =
        !closest || distance < least || (distance == least && face.index < closest->face_index);
    if (!is_closer) continue;
    least = distance;
    closest = {face.index, *point};
  }
  return closest;
}

std::optional<ON_BrepPoint> ON_PointOnBrepFace(const ON_Brep& brep, int face_index, double u,
                                               double v) {
  const ON_BrepFace* face = brep.Face(face_index);
  if (face == nullptr) return std::nullopt;
  const ON_Surface& surface = brep.SurfaceOf(*face);
  const auto is_in = [](ON_Interval domain, double t) {
    return domain.Min <= t && t <= domain.Max;
  };
  if (!is_in(surface.Domain(0), u) || !is_in(surface.Domain(1), v)) return std::nullopt;
  const bool is_there =
      brep.FaceIsSurface(face_index) || ON_FaceRegion(brep, *face).ContainsOrTouches(u, v);
  if (!is_there) return std::nullopt;
  return ON_BrepPoint{face_index, {u, v, surface.PointAt(u, v)}};
}
