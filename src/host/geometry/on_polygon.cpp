#include "host/geometry/on_polygon.h"

#include <algorithm>
#include <cmath>

#include "host/geometry/on_parameters.h"

namespace {

constexpr double kMaxChords = 256;

// How far the curve strays from the straight line between two of its parameters, as three points
// show it. A sequence of chords of equal steps strays less by the square of their number.
double StrayOf(const ON_NurbsCurve& curve, ON_Interval span) {
  const ON_3dPoint start = curve.PointAt(span.Min);
  const ON_3dPoint end = curve.PointAt(span.Max);
  double stray = 0;
  for (const double fraction : {0.25, 0.5, 0.75}) {
    const ON_3dPoint p = curve.PointAt(span.ParameterAt(fraction));
    stray = std::max(stray, p.DistanceTo(ON_PointBetween(start, end, fraction)));
  }
  return stray;
}

int ChordCount(const ON_NurbsCurve& curve, ON_Interval span, double tolerance) {
  if (curve.Order() == 2) return 1;
  const double count = std::ceil(std::sqrt(StrayOf(curve, span) / tolerance));
  // Also when it isn't a number.
  return count < kMaxChords ? std::max(1, static_cast<int>(count)) : static_cast<int>(kMaxChords);
}

}  // namespace

std::vector<ON_3dPoint> ON_CurvePoints(const ON_NurbsCurve& curve, double tolerance) {
  std::vector<ON_3dPoint> points{curve.PointAtStart()};
  const auto first = static_cast<std::size_t>(curve.Degree()) - 1;
  for (std::size_t i = first; i + 1 < curve.m_cv.size(); ++i) {
    const ON_Interval span{curve.m_knot[i], curve.m_knot[i + 1]};
    if (span.Min >= span.Max) continue;
    const int count = ChordCount(curve, span, tolerance);
    for (int step = 1; step <= count; ++step) {
      points.push_back(curve.PointAt(span.ParameterAt(static_cast<double>(step) / count)));
    }
  }
  return points;
}

ON_3dVector ON_AreaVector(std::span<const ON_3dPoint> polygon) {
  ON_3dVector sum{0, 0, 0};
  // From the first point, so that far from the world's origin nothing is lost.
  for (std::size_t i = 2; i < polygon.size(); ++i) {
    sum = sum + ON_CrossProduct(polygon[i - 1] - polygon[0], polygon[i] - polygon[0]);
  }
  return sum * 0.5;
}
