#include "host/modeling/coplanar_curves.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "host/geometry/on_closed_curve.h"

namespace host {

namespace {

// Parts of the square of its size that a curve encloses at least.
constexpr double kSmallestArea = 1e-12;

std::optional<PlanarCurve> MakePlanarCurve(const ON_Curve& curve, std::size_t index) {
  PlanarCurve result;
  result.index = index;
  if (!curve.IsValid() || !curve.IsClosed() || !curve.GetNurbForm(result.form)) {
    return std::nullopt;
  }
  const ON_BoundingBox box = result.form.BoundingBox();
  const double size = box.m_max.DistanceTo(box.m_min);
  if (!std::isfinite(size)) return std::nullopt;
  result.area = ON_SweptArea(result.form, result.form.PointAtStart());
  result.area_length = result.area.Length();
  if (!std::isfinite(result.area_length) || !(result.area_length > kSmallestArea * size * size)) {
    return std::nullopt;
  }
  return result;
}

ON_Plane PlaneOf(const PlanarCurve& curve) {
  constexpr double kHorizontal = 1e-9;
  ON_Plane plane;
  plane.origin = curve.form.PointAtStart();
  // Divided, so that the axes of the world stay what they are.
  const double length = curve.area_length;
  const ON_3dVector z{curve.area.x / length, curve.area.y / length, curve.area.z / length};
  plane.zaxis = z;
  ON_3dVector x{-z.y, z.x, 0};
  if (x.Length() <= kHorizontal) x = ON_3dVector{1, 0, 0} - z * z.x;
  plane.xaxis = x * (1 / x.Length());
  plane.yaxis = ON_CrossProduct(plane.zaxis, plane.xaxis);
  return plane;
}

// `tolerance`, but not less than what rounding can make of the curve's coordinates.
bool IsInPlane(const PlanarCurve& curve, const ON_Plane& plane, double tolerance) {
  constexpr double kLeastCosine = 0.7;
  if (std::abs(ON_DotProduct(curve.area, plane.zaxis)) < kLeastCosine * curve.area_length) {
    return false;
  }
  return std::all_of(curve.form.m_cv.begin(), curve.form.m_cv.end(), [&](const ON_4dPoint& cv) {
    const ON_3dPoint p = cv.Euclidean();
    const double size = std::max({std::abs(p.x), std::abs(p.y), std::abs(p.z)});
    return std::abs(plane.DistanceTo(p)) <= std::max(size * 0x1p-40, tolerance);
  });
}

}  // namespace

std::vector<CoplanarCurves> SortByPlane(const std::vector<std::shared_ptr<const ON_Curve>>& curves,
                                        double tolerance) {
  std::vector<PlanarCurve> planar;
  for (std::size_t i = 0; i < curves.size(); ++i) {
    if (curves[i] == nullptr) continue;
    auto curve = MakePlanarCurve(*curves[i], i);
    if (curve.has_value()) planar.push_back(*std::move(curve));
  }
  std::stable_sort(planar.begin(), planar.end(), [](const PlanarCurve& a, const PlanarCurve& b) {
    return a.area_length > b.area_length;
  });
  std::vector<CoplanarCurves> sorted;
  for (PlanarCurve& curve : planar) {
    auto group = std::find_if(sorted.begin(), sorted.end(), [&](const CoplanarCurves& others) {
      return IsInPlane(curve, others.plane, tolerance);
    });
    if (group == sorted.end()) {
      const ON_Plane plane = PlaneOf(curve);
      if (!IsInPlane(curve, plane, tolerance)) continue;
      group = sorted.insert(sorted.end(), CoplanarCurves{plane, {}});
    }
    group->curves.push_back(std::move(curve));
  }
  return sorted;
}

}  // namespace host
