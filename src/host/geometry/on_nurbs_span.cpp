#include "host/geometry/on_nurbs_span.h"

namespace {

// One step of de Boor's scheme: the points of a column of `count` become those of the next one,
// which has one less.
void Step(std::span<const double> knots, std::size_t degree, std::size_t count, double t,
          std::span<ON_4dPoint> column) {
  const std::size_t step = degree + 1 - count;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const double a = knots[i + step];
    const double b = knots[i + degree];
    const double fraction = (t - a) / (b - a);
    column[i] = column[i] * (1 - fraction) + column[i + 1] * fraction;
  }
}

}  // namespace

bool ON_IsValidKnotVector(int order, int cv_count, std::span<const double> knots) {
  if (order < 2 || order > kMaxNurbsOrder || cv_count < order ||
      knots.size() != static_cast<std::size_t>(order) + static_cast<std::size_t>(cv_count) - 2) {
    return false;
  }
  const auto degree = static_cast<std::size_t>(order) - 1;
  for (std::size_t i = 0; i < knots.size(); ++i) {
    if (!ON_IsValid(knots[i]) || (i > 0 && knots[i] < knots[i - 1])) return false;
    if (i >= degree && knots[i] <= knots[i - degree]) return false;
  }
  const auto last = static_cast<std::size_t>(cv_count) - 1;
  return knots[degree - 1] < knots[degree] && knots[last - 1] < knots[last];
}

std::span<const double> ON_DomainKnots(int order, int cv_count, std::span<const double> knots) {
  const auto degree = static_cast<std::size_t>(order) - 1;
  return knots.subspan(degree - 1, static_cast<std::size_t>(cv_count) - degree + 1);
}

ON_4dPoint ON_BlossomSpan(std::span<const double> knots, std::span<ON_4dPoint> cvs,
                          std::span<const double> arguments) {
  std::size_t count = cvs.size();
  for (const double t : arguments) Step(knots, cvs.size() - 1, count--, t, cvs);
  return cvs[0];
}

void ON_EvSpan(std::span<const double> knots, std::span<ON_4dPoint> cvs, double t,
               ON_4dPoint* point, ON_4dPoint* derivative) {
  const std::size_t degree = cvs.size() - 1;
  for (std::size_t count = cvs.size(); count > 2; --count) Step(knots, degree, count, t, cvs);
  const double width = knots[degree] - knots[degree - 1];
  *derivative = (cvs[1] - cvs[0]) * (static_cast<double>(degree) / width);
  Step(knots, degree, 2, t, cvs);
  *point = cvs[0];
}

ON_3dVector ON_EuclideanDerivative(const ON_4dPoint& point, const ON_4dPoint& derivative) {
  const double weight = point.w == 0 ? 1 : point.w;
  return (ON_3dVector{derivative.x, derivative.y, derivative.z} -
          ON_FromOrigin(point.Euclidean()) * derivative.w) *
         (1 / weight);
}

bool ON_IsValid(const ON_4dPoint& p) {
  return ON_IsValid(p.x) && ON_IsValid(p.y) && ON_IsValid(p.z) && ON_IsValid(p.w);
}
