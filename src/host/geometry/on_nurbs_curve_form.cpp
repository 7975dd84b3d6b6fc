#include <algorithm>
#include <array>

#include "host/geometry/on_nurbs_curve.h"

// Changes of the form of a NURBS curve that leave the curve as it is.

namespace {

ON_4dPoint Between(const ON_4dPoint& a, const ON_4dPoint& b, double fraction) {
  return a * (1 - fraction) + b * fraction;
}

// A Bézier curve of `degree` becomes one of the next degree; `cvs` has room for it.
void RaiseBezier(std::span<ON_4dPoint> cvs, int degree) {
  const auto last = static_cast<std::size_t>(degree) + 1;
  cvs[last] = cvs[last - 1];
  for (std::size_t i = last - 1; i > 0; --i) {
    cvs[i] = Between(cvs[i], cvs[i - 1], static_cast<double>(i) / static_cast<double>(last));
  }
}

// The polynomial of a Bézier curve over `interval` with another argument for each degree.
ON_4dPoint BezierBlossom(std::span<const ON_4dPoint> cvs, ON_Interval interval,
                         std::span<const double> arguments) {
  std::array<ON_4dPoint, ON_NurbsCurve::kMaxOrder> column;
  std::copy(cvs.begin(), cvs.end(), column.begin());
  std::size_t count = cvs.size();
  for (const double t : arguments) {
    const double fraction = interval.NormalizedParameterAt(t);
    --count;
    for (std::size_t i = 0; i < count; ++i) {
      column[i] = Between(column[i], column[i + 1], fraction);
    }
  }
  return column[0];
}

}  // namespace

void ON_NurbsCurve::SetDomain(ON_Interval domain) {
  const ON_Interval old = Domain();
  if (domain == old) return;
  for (double& knot : m_knot) knot = domain.ParameterAt(old.NormalizedParameterAt(knot));
}

bool ON_NurbsCurve::IsClamped() const {
  const auto degree = static_cast<std::size_t>(Degree());
  return m_knot[0] == m_knot[degree - 1] && m_knot[m_cv.size() - 1] == m_knot.back();
}

// The knots of the spans in `interval` in an order that isn't lower, with as many at the ends as
// clamping takes: so that where spans meet, they do it as smoothly as before.
ON_SimpleArray<double> ON_NurbsCurve::RaisedKnots(int order, ON_Interval interval) const {
  const auto more = static_cast<std::size_t>(order - m_order);
  ON_SimpleArray<double> raised(static_cast<std::size_t>(order) - 1, interval.Min);
  for (std::size_t i = static_cast<std::size_t>(m_order) - 1; i + 1 < m_cv.size(); ++i) {
    if (m_knot[i] <= interval.Min || m_knot[i] >= interval.Max) continue;
    const bool is_new = m_knot[i] != raised.back();
    raised.insert(raised.end(), is_new ? more + 1 : 1, m_knot[i]);
  }
  raised.insert(raised.end(), static_cast<std::size_t>(order) - 1, interval.Max);
  return raised;
}

// The control points of a span by itself, raised to as many as `bezier` has room for.
void ON_NurbsCurve::GetBezier(std::size_t span, std::span<ON_4dPoint> bezier) const {
  const auto degree = static_cast<std::size_t>(Degree());
  std::array<double, kMaxOrder> arguments;
  arguments.fill(m_knot[span + degree - 1]);
  for (std::size_t i = 0; i <= degree; ++i) {
    if (i > 0) arguments[i - 1] = m_knot[span + degree];
    bezier[i] = Blossom(span, std::span(arguments).first(degree));
  }
  for (int d = Degree(); static_cast<std::size_t>(d) + 1 < bezier.size(); ++d) {
    RaiseBezier(bezier, d);
  }
}

void ON_NurbsCurve::ClampAndRaise(int order) {
  if (order != m_order || !IsClamped()) Rebuild(order, Domain());
}

// Makes it the stretch in `interval`, clamped and in `order`.
void ON_NurbsCurve::Rebuild(int order, ON_Interval interval) {
  const auto old_degree = static_cast<std::size_t>(Degree());
  const auto degree = static_cast<std::size_t>(order) - 1;
  ON_SimpleArray<double> knots = RaisedKnots(order, interval);
  ON_SimpleArray<ON_4dPoint> cvs;
  std::array<ON_4dPoint, kMaxOrder> room;
  const auto bezier = std::span(room).first(degree + 1);
  std::size_t span = m_cv.size();
  for (std::size_t i = 0; i + degree <= knots.size(); ++i) {
    // Any span does on which this control point counts.
    const double from = knots[i == 0 ? 0 : i - 1];
    const double to = knots[std::min(i + degree, knots.size() - 1)];
    const std::size_t found = SpanAt(from + (to - from) / 2);
    if (found != span) GetBezier(span = found, bezier);
    const ON_Interval piece{m_knot[span + old_degree - 1], m_knot[span + old_degree]};
    cvs.push_back(BezierBlossom(bezier, piece, std::span(knots).subspan(i, degree)));
  }
  m_order = order;
  m_knot = std::move(knots);
  m_cv = std::move(cvs);
}

void ON_NurbsCurve::Append(const ON_NurbsCurve& next) {
  const double scale = m_cv.back().w / next.m_cv.front().w;
  for (std::size_t i = 1; i < next.m_cv.size(); ++i) m_cv.push_back(next.m_cv[i] * scale);
  m_knot.insert(m_knot.end(), next.m_knot.begin() + Degree(), next.m_knot.end());
  m_is_rat = m_is_rat || next.m_is_rat;
  m_dim = std::max(m_dim, next.m_dim);
}
