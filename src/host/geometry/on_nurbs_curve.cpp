#include "host/geometry/on_nurbs_curve.h"

#include <algorithm>
#include <array>

#include "host/geometry/on_parameters.h"

namespace {

using Column = std::array<ON_4dPoint, ON_NurbsCurve::kMaxOrder>;

bool IsValidPoint(const ON_4dPoint& p) {
  return ON_IsValid(p.x) && ON_IsValid(p.y) && ON_IsValid(p.z) && ON_IsValid(p.w);
}

// One step of de Boor's scheme for the span whose first knot is `knots[0]`: the points of a column
// of `count` become those of the next one, which has one less.
void Step(std::span<const double> knots, int degree, int count, double t, Column& column) {
  const std::size_t step = static_cast<std::size_t>(degree) + 1 - static_cast<std::size_t>(count);
  const std::size_t length = static_cast<std::size_t>(degree);
  for (std::size_t i = 0; i + 1 < static_cast<std::size_t>(count); ++i) {
    const double a = knots[i + step];
    const double b = knots[i + length];
    const double fraction = (t - a) / (b - a);
    column[i] = column[i] * (1 - fraction) + column[i + 1] * fraction;
  }
}

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
  if (m_order < 2 || m_order > kMaxOrder || CVCount() < m_order ||
      KnotCount() != m_order + CVCount() - 2) {
    return false;
  }
  const auto degree = static_cast<std::size_t>(Degree());
  for (std::size_t i = 0; i < m_knot.size(); ++i) {
    if (!ON_IsValid(m_knot[i]) || (i > 0 && m_knot[i] < m_knot[i - 1])) return false;
    if (i >= degree && m_knot[i] <= m_knot[i - degree]) return false;
  }
  // The first and the last span are not empty.
  const std::size_t last = m_cv.size() - 1;
  return m_knot[degree - 1] < m_knot[degree] && m_knot[last - 1] < m_knot[last] &&
         std::all_of(m_cv.begin(), m_cv.end(), IsValidPoint) && m_cv.front().w != 0 &&
         m_cv.back().w != 0;
}

ON_Interval ON_NurbsCurve::Domain() const {
  return {m_knot[static_cast<std::size_t>(Degree()) - 1], m_knot[m_cv.size() - 1]};
}

// The first of the control points that count at `t`.
std::size_t ON_NurbsCurve::SpanAt(double t) const {
  const auto degree = static_cast<std::size_t>(Degree());
  return ON_IntervalIndex(std::span(m_knot).subspan(degree - 1, m_cv.size() - degree + 1), t);
}

// The polynomial of a span with another argument for each degree; at equal ones, the curve's point.
ON_4dPoint ON_NurbsCurve::Blossom(std::size_t span, std::span<const double> arguments) const {
  Column column;
  std::copy_n(m_cv.begin() + static_cast<std::ptrdiff_t>(span), m_order, column.begin());
  const auto knots = std::span(m_knot).subspan(span);
  int count = m_order;
  for (const double t : arguments) Step(knots, Degree(), count--, t, column);
  return column[0];
}

ON_3dPoint ON_NurbsCurve::PointAt(double t) const {
  std::array<double, kMaxOrder> arguments;
  arguments.fill(t);
  const auto degree = static_cast<std::size_t>(Degree());
  return Blossom(SpanAt(t), std::span(arguments).first(degree)).Euclidean();
}

void ON_NurbsCurve::Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const {
  const std::size_t span = SpanAt(t);
  const auto knots = std::span(m_knot).subspan(span);
  Column column;
  std::copy_n(m_cv.begin() + static_cast<std::ptrdiff_t>(span), m_order, column.begin());
  for (int count = m_order; count > 2; --count) Step(knots, Degree(), count, t, column);
  const auto degree = static_cast<std::size_t>(Degree());
  const double width = knots[degree] - knots[degree - 1];
  const ON_4dPoint slope = (column[1] - column[0]) * (Degree() / width);
  Step(knots, Degree(), 2, t, column);
  const double weight = column[0].w == 0 ? 1 : column[0].w;
  *point = column[0].Euclidean();
  *derivative =
      (ON_3dVector{slope.x, slope.y, slope.z} - ON_FromOrigin(*point) * slope.w) * (1 / weight);
}

int ON_NurbsCurve::IsPolyline(std::vector<ON_3dPoint>* points) const {
  if (m_order != 2) return ON_Curve::IsPolyline(points);
  if (points != nullptr) {
    points->clear();
    for (const ON_4dPoint& cv : m_cv) points->push_back(cv.Euclidean());
  }
  return CVCount();
}

bool ON_NurbsCurve::GetNurbForm(ON_NurbsCurve& form) const {
  form = *this;
  return IsValid();
}
