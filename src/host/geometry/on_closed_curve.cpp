#include "host/geometry/on_closed_curve.h"

#include <algorithm>
#include <array>
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

// The spans of a curve that aren't empty.
std::vector<ON_Interval> SpansOf(const ON_NurbsCurve& curve) {
  std::vector<ON_Interval> spans;
  const auto knots = ON_DomainKnots(curve.Order(), curve.CVCount(), curve.m_knot);
  for (std::size_t i = 1; i < knots.size(); ++i) {
    if (knots[i - 1] < knots[i]) spans.push_back({knots[i - 1], knots[i]});
  }
  return spans;
}

// Gauss's rule with three points on [-1, 1], exact for polynomials up to degree 5.
struct GaussPoint {
  double x;
  double weight;
};
constexpr std::array<GaussPoint, 3> kGaussPoints{
    {{-0.77459666924148338, 5.0 / 9}, {0, 8.0 / 9}, {0.77459666924148338, 5.0 / 9}}};

ON_3dVector SweptArea(const ON_NurbsCurve& curve, ON_Interval piece, ON_3dPoint from) {
  ON_3dVector sum{0, 0, 0};
  for (const auto& [x, weight] : kGaussPoints) {
    ON_3dPoint point{};
    ON_3dVector derivative{};
    curve.Ev1Der(piece.ParameterAt((1 + x) / 2), &point, &derivative);
    sum = sum + ON_CrossProduct(point - from, derivative) * weight;
  }
  // Once for the triangle, once for the rule's interval of length 2.
  return sum * (piece.Length() / 4);
}

}  // namespace

ON_3dVector ON_SweptArea(const ON_NurbsCurve& curve, ON_3dPoint from) {
  const int count = curve.IsRational() || curve.Degree() > 3 ? 8 : 1;
  ON_3dVector sum{0, 0, 0};
  for (const ON_Interval& span : SpansOf(curve)) {
    for (int i = 0; i < count; ++i) {
      const double start = static_cast<double>(i) / count;
      const double end = static_cast<double>(i + 1) / count;
      const ON_Interval piece{span.ParameterAt(start), span.ParameterAt(end)};
      sum = sum + SweptArea(curve, piece, from);
    }
  }
  return sum;
}

std::vector<ON_3dPoint> ON_CurvePoints(const ON_NurbsCurve& curve, double tolerance) {
  std::vector<ON_3dPoint> points{curve.PointAtStart()};
  for (const ON_Interval& span : SpansOf(curve)) {
    const int count = ChordCount(curve, span, tolerance);
    for (int step = 1; step <= count; ++step) {
      points.push_back(curve.PointAt(span.ParameterAt(static_cast<double>(step) / count)));
    }
  }
  return points;
}
