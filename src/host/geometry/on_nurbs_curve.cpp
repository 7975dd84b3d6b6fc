#include "host/geometry/on_nurbs_curve.h"

#include <algorithm>
#include <array>

#include "host/geometry/on_curve_lengths.h"
#include "host/geometry/on_nurbs_span.h"
#include "host/geometry/on_parameters.h"

namespace {

using Column = std::array<ON_4dPoint, ON_NurbsCurve::kMaxOrder>;

}  // namespace

const ON_NurbsCurve* ON_NurbsCurve::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_NurbsCurve*>(object);
}

void ON_NurbsCurve::Create(int order, ON_SimpleArray<double> knots, ON_SimpleArray<ON_4dPoint> cvs,
                           bool is_rational) {
  m_dim = 3;
  m_order = order;
  m_is_rat = is_rational;
  m_knot = std::move(knots);
  m_cv = std::move(cvs);
}

ON_BoundingBox ON_NurbsCurve::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_4dPoint& cv : m_cv) box.Include(cv.Euclidean());
  return box;
}

bool ON_NurbsCurve::IsValid() const {
  return ON_IsValidKnotVector(m_order, CVCount(), m_knot) &&
         std::all_of(m_cv.begin(), m_cv.end(), [](const ON_4dPoint& p) { return ON_IsValid(p); }) &&
         m_cv.front().w != 0 && m_cv.back().w != 0;
}

ON_Interval ON_NurbsCurve::Domain() const {
  return {m_knot[static_cast<std::size_t>(Degree()) - 1], m_knot[m_cv.size() - 1]};
}

// The first of the control points that count at `t`.
std::size_t ON_NurbsCurve::SpanAt(double t) const {
  return ON_IntervalIndex(ON_DomainKnots(m_order, CVCount(), m_knot), t);
}

// The polynomial of a span with another argument for each degree; at equal ones, the curve's point.
ON_4dPoint ON_NurbsCurve::Blossom(std::size_t span, std::span<const double> arguments) const {
  Column room;
  const auto cvs = std::span(room).first(static_cast<std::size_t>(m_order));
  std::copy_n(m_cv.begin() + static_cast<std::ptrdiff_t>(span), m_order, cvs.begin());
  return ON_BlossomSpan(std::span(m_knot).subspan(span), cvs, arguments);
}

ON_3dPoint ON_NurbsCurve::PointAt(double t) const {
  std::array<double, kMaxOrder> arguments;
  arguments.fill(t);
  const auto degree = static_cast<std::size_t>(Degree());
  return Blossom(SpanAt(t), std::span(arguments).first(degree)).Euclidean();
}

void ON_NurbsCurve::Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const {
  const std::size_t span = SpanAt(t);
  Column room;
  const auto cvs = std::span(room).first(static_cast<std::size_t>(m_order));
  std::copy_n(m_cv.begin() + static_cast<std::ptrdiff_t>(span), m_order, cvs.begin());
  ON_4dPoint place, slope;
  ON_EvSpan(std::span(m_knot).subspan(span), cvs, t, &place, &slope);
  *point = place.Euclidean();
  *derivative = ON_EuclideanDerivative(place, slope);
}

int ON_NurbsCurve::IsPolyline(std::vector<ON_3dPoint>* points) const {
  if (m_order != 2) return ON_Curve::IsPolyline(points);
  if (points != nullptr) {
    points->clear();
    for (const ON_4dPoint& cv : m_cv) points->push_back(cv.Euclidean());
  }
  return CVCount();
}

bool ON_NurbsCurve::GetLength(double* length, double fractional_tolerance) const {
  const double total = ON_CurveLengths(*this, fractional_tolerance).Total();
  if (!std::isfinite(total)) return false;
  *length = total;
  return true;
}

bool ON_NurbsCurve::GetNurbForm(ON_NurbsCurve& form) const {
  form = *this;
  return IsValid();
}
