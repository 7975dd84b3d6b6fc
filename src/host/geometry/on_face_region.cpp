#include "host/geometry/on_face_region.h"

#include <algorithm>
#include <limits>

#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_closed_curve.h"
#include "host/geometry/on_curve_part.h"
#include "host/geometry/on_line.h"

namespace {

double DistanceToLine(ON_3dPoint from, ON_3dPoint to, ON_3dPoint p) {
  const ON_Line line{from, to};
  const double t = std::clamp(line.ClosestPointTo(p), 0.0, 1.0);
  return (from + (to - from) * t).DistanceTo(p);
}

// The place in an interval where a function that falls and then rises is least, by golden section.
template <class Function>
double LeastIn(ON_Interval interval, const Function& function) {
  constexpr double kGolden = 0.6180339887498949;
  constexpr int kSteps = 60;
  double a = interval.Min, b = interval.Max;
  double low = b - kGolden * (b - a), high = a + kGolden * (b - a);
  double at_low = function(low), at_high = function(high);
  for (int i = 0; i < kSteps; ++i) {
    if (at_low < at_high) {
      b = high;
      high = low;
      at_high = at_low;
      low = b - kGolden * (b - a);
      at_low = function(low);
    } else {
      a = low;
      low = high;
      at_low = at_high;
      high = a + kGolden * (b - a);
      at_high = function(high);
    }
  }
  return (a + b) / 2;
}

// Parameters of a curve from its start to its end, several in each span.
std::vector<double> Samples(const ON_NurbsCurve& curve) {
  constexpr int kSteps = 16;
  const auto knots = ON_DomainKnots(curve.Order(), curve.CVCount(), curve.m_knot);
  std::vector<double> samples{knots.front()};
  for (std::size_t i = 1; i < knots.size(); ++i) {
    if (knots[i] == knots[i - 1]) continue;
    for (int k = 1; k <= kSteps; ++k) {
      const double fraction = static_cast<double>(k) / kSteps;
      samples.push_back(ON_Interval{knots[i - 1], knots[i]}.ParameterAt(fraction));
    }
  }
  return samples;
}

// 1 for boundaries of up to a thousand control points; for more, so much that the lines that follow
// them don't grow in number.
double Crowd(const std::vector<std::vector<ON_NurbsCurve>>& loops) {
  constexpr double kMany = 1000;
  double count = 0;
  for (const std::vector<ON_NurbsCurve>& loop : loops) {
    for (const ON_NurbsCurve& trim : loop) count += trim.CVCount();
  }
  return count > kMany ? (count / kMany) * (count / kMany) : 1;
}

}  // namespace

ON_FaceRegion::ON_FaceRegion(const ON_Brep& brep, const ON_BrepFace& face)
    : surface_(brep.SurfaceOf(face)) {
  for (const int li : face.m_li) AddLoop(brep, brep.m_L[static_cast<std::size_t>(li)]);
  SetBounds();
  constexpr double kStray = 1e-6;
  const double size = std::max({bounds_[0].Length(), bounds_[1].Length(), 0.0});
  tolerance_ = kStray * Crowd(loops_) * size;
  for (const std::vector<ON_NurbsCurve>& loop : loops_) {
    Polygon& polygon = polygons_.emplace_back();
    for (const ON_NurbsCurve& trim : loop) {
      const std::vector<ON_3dPoint> points = ON_CurvePoints(trim, tolerance_);
      polygon.insert(polygon.end(), points.begin(), points.end());
    }
  }
}

// A trim without a NURBS form leaves a gap, which a straight line closes.
void ON_FaceRegion::AddLoop(const ON_Brep& brep, const ON_BrepLoop& loop) {
  std::vector<ON_NurbsCurve>& trims = loops_.emplace_back();
  for (const int ti : loop.m_ti) {
    const ON_BrepTrim& trim = brep.m_T[static_cast<std::size_t>(ti)];
    ON_NurbsCurve form;
    if (!ON_GetCurvePart(brep.CurveOf(trim), trim.m_domain, form) || !form.IsValid()) continue;
    for (ON_4dPoint& cv : form.m_cv) cv.z = 0;
    if (trim.m_bReversed) form.Reverse();
    trims.push_back(std::move(form));
  }
}

void ON_FaceRegion::SetBounds() {
  ON_BoundingBox box;
  for (const std::vector<ON_NurbsCurve>& loop : loops_) {
    for (const ON_NurbsCurve& trim : loop) box.Include(trim.BoundingBox());
  }
  const ON_Interval u = surface_.Domain(0), v = surface_.Domain(1);
  bounds_ = {ON_Interval{std::max(u.Min, box.m_min.x), std::min(u.Max, box.m_max.x)},
             ON_Interval{std::max(v.Min, box.m_min.y), std::min(v.Max, box.m_max.y)}};
}

bool ON_FaceRegion::Contains(double u, double v) const {
  bool is_inside = false;
  for (const Polygon& polygon : polygons_) {
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      const ON_3dPoint& a = polygon[i];
      const ON_3dPoint& b = polygon[(i + 1) % polygon.size()];
      if ((a.y > v) == (b.y > v)) continue;
      if (u < a.x + (v - a.y) / (b.y - a.y) * (b.x - a.x)) is_inside = !is_inside;
    }
  }
  return is_inside;
}

bool ON_FaceRegion::ContainsOrTouches(double u, double v) const {
  if (Contains(u, v)) return true;
  constexpr double kRoom = 10;
  for (const Polygon& polygon : polygons_) {
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      const ON_3dPoint& b = polygon[(i + 1) % polygon.size()];
      if (DistanceToLine(polygon[i], b, {u, v, 0}) <= kRoom * tolerance_) return true;
    }
  }
  return false;
}

// A trim may stray out of the surface's domain a little.
ON_SurfacePoint ON_FaceRegion::PointOn(const ON_NurbsCurve& trim, double t) const {
  const ON_3dPoint place = trim.PointAt(t);
  const ON_Interval domain_u = surface_.Domain(0), domain_v = surface_.Domain(1);
  const double u = std::clamp(place.x, domain_u.Min, domain_u.Max);
  const double v = std::clamp(place.y, domain_v.Min, domain_v.Max);
  return {u, v, surface_.PointAt(u, v)};
}

ON_SurfacePoint ON_FaceRegion::ClosestPointOn(const ON_NurbsCurve& trim, ON_3dPoint p) const {
  const auto distance = [&](double t) { return PointOn(trim, t).point.DistanceTo(p); };
  const std::vector<double> samples = Samples(trim);
  std::size_t best = 0;
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double here = distance(samples[i]);
    if (!(here < least)) continue;
    least = here;
    best = i;
  }
  const ON_Interval around{samples[best - (best > 0)],
                           samples[std::min(best + 1, samples.size() - 1)]};
  const double t = LeastIn(around, distance);
  return PointOn(trim, distance(t) < least ? t : samples[best]);
}

std::optional<ON_SurfacePoint> ON_FaceRegion::ClosestBoundaryPoint(ON_3dPoint p) const {
  std::optional<ON_SurfacePoint> closest;
  for (const std::vector<ON_NurbsCurve>& loop : loops_) {
    for (const ON_NurbsCurve& trim : loop) {
      const ON_SurfacePoint point = ClosestPointOn(trim, p);
      const bool is_closer = !closest || point.point.DistanceTo(p) < closest->point.DistanceTo(p);
      if (is_closer) closest = point;
    }
  }
  return closest;
}
