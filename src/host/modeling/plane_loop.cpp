#include "host/modeling/plane_loop.h"

#include <algorithm>
#include <cmath>

#include "host/geometry/on_closed_curve.h"

namespace host {

namespace {

// How far polygons stray from curves, in sizes of their boxes: those that are always made, and
// those that are made for loops too near to each other to be told apart otherwise.
constexpr double kCoarse = 1e-3;
constexpr double kFine = 1e-7;
// How many points of a loop are looked at.
constexpr std::size_t kCoarsePointCount = 8;
constexpr std::size_t kFinePointCount = 64;

double SizeOf(const ON_BoundingBox& box) {
  return box.m_max.DistanceTo(box.m_min);
}

// The square of the distance to the straight line from `a` to `b`.
double SquaredDistance(const ON_3dPoint& p, const ON_3dPoint& a, const ON_3dPoint& b) {
  const ON_3dVector line = b - a;
  const ON_3dVector way = p - a;
  const double length = ON_DotProduct(line, line);
  const double along = length > 0 ? std::clamp(ON_DotProduct(way, line) / length, 0.0, 1.0) : 0;
  const ON_3dVector rest = way - line * along;
  return ON_DotProduct(rest, rest);
}

struct PointPlace {
  bool is_inside = false;
  double distance = 0;
};

// Inside when a ray to the right crosses the closed polygon an odd number of times.
PointPlace PlaceOf(const ON_3dPoint& p, const std::vector<ON_3dPoint>& polygon) {
  bool is_inside = false;
  double nearest = HUGE_VAL;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const ON_3dPoint& a = polygon[i];
    const ON_3dPoint& b = polygon[i + 1 < polygon.size() ? i + 1 : 0];
    nearest = std::min(nearest, SquaredDistance(p, a, b));
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
      is_inside = !is_inside;
    }
  }
  return {is_inside, std::sqrt(nearest)};
}

}  // namespace

PlaneLoop::PlaneLoop(ON_NurbsCurve curve) : curve_(std::move(curve)) {
  stray_ = kCoarse * SizeOf(curve_.BoundingBox());
  polygon_ = ON_CurvePoints(curve_, stray_);
  area_ = std::abs(ON_SweptArea(curve_, polygon_.front()).z);
  for (const ON_3dPoint& p : polygon_) box_.Include(p);
}

bool PlaneLoop::IsCopyOf(const PlaneLoop& other) const {
  const double near = kFine * SizeOf(box_);
  return std::equal(polygon_.begin(), polygon_.end(), other.polygon_.begin(), other.polygon_.end(),
                    [&](const auto& a, const auto& b) { return a.DistanceTo(b) <= near; });
}

// Where some points of this loop lie to a polygon; those nearer to it than `near` don't count.
// Close when all are.
PlaneLoop::Place PlaneLoop::PlaceOfPoints(std::size_t count, const std::vector<ON_3dPoint>& polygon,
                                          double near) const {
  Place place = Place::close;
  count = std::min(count, polygon_.size());
  for (std::size_t i = 0; i < count; ++i) {
    const PointPlace point = PlaceOf(polygon_[i * polygon_.size() / count], polygon);
    if (point.distance <= near) continue;
    if (!point.is_inside) return Place::outside;
    place = Place::inside;
  }
  return place;
}

PlaneLoop::Place PlaneLoop::PlaceIn(const PlaneLoop& other) const {
  if (IsCopyOf(other)) return Place::same;
  return PlaceOfPoints(kCoarsePointCount, other.polygon_, 2 * other.stray_);
}

PlaneLoop::Place PlaneLoop::ClosePlaceIn(const PlaneLoop& other) const {
  const double stray = kFine * SizeOf(other.box_);
  const std::vector<ON_3dPoint> polygon = ON_CurvePoints(other.curve_, stray);
  const Place place = PlaceOfPoints(kFinePointCount, polygon, 2 * stray);
  return place == Place::close ? Place::same : place;
}

}  // namespace host
