#include "host/geometry/on_nurbs_surface.h"

#include <algorithm>

#include "host/geometry/on_parameters.h"

namespace {

using Column = std::array<ON_4dPoint, kMaxNurbsOrder>;

}  // namespace

const ON_NurbsSurface* ON_NurbsSurface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_NurbsSurface*>(object);
}

void ON_NurbsSurface::Create(std::array<int, 2> order, std::array<ON_SimpleArray<double>, 2> knots,
                             ON_SimpleArray<ON_4dPoint> cvs, bool is_rational) {
  m_order = order;
  m_is_rat = is_rational;
  m_knot = std::move(knots);
  m_cv = std::move(cvs);
}

ON_BoundingBox ON_NurbsSurface::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_4dPoint& cv : m_cv) box.Include(cv.Euclidean());
  return box;
}

bool ON_NurbsSurface::IsValid() const {
  for (const int direction : {0, 1}) {
    if (!ON_IsValidKnotVector(Order(direction), CVCount(direction), Knots(direction))) return false;
  }
  const auto rows = static_cast<std::size_t>(CVCount(0));
  const auto columns = static_cast<std::size_t>(CVCount(1));
  if (m_cv.size() / columns != rows || m_cv.size() % columns != 0) return false;
  const auto has_weight = [&](int i, int j) { return CV(i, j).w != 0; };
  const int last_i = CVCount(0) - 1, last_j = CVCount(1) - 1;
  return std::all_of(m_cv.begin(), m_cv.end(), [](const ON_4dPoint& p) { return ON_IsValid(p); }) &&
         has_weight(0, 0) && has_weight(last_i, 0) && has_weight(0, last_j) &&
         has_weight(last_i, last_j);
}

ON_Interval ON_NurbsSurface::Domain(int direction) const {
  const auto knots = ON_DomainKnots(Order(direction), CVCount(direction), Knots(direction));
  return {knots.front(), knots.back()};
}

// The first of the control points that count at `t`.
std::size_t ON_NurbsSurface::SpanAt(int direction, double t) const {
  return ON_IntervalIndex(ON_DomainKnots(Order(direction), CVCount(direction), Knots(direction)),
                          t);
}

ON_3dPoint ON_NurbsSurface::PointAt(double u, double v) const {
  ON_3dPoint point;
  ON_3dVector du, dv;
  Ev1Der(u, v, &point, &du, &dv);
  return point;
}

void ON_NurbsSurface::Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
                             ON_3dVector* dv) const {
  const std::size_t span_u = SpanAt(0, u), span_v = SpanAt(1, v);
  const auto rows = static_cast<std::size_t>(Order(0));
  const auto columns = static_cast<std::size_t>(Order(1));
  // The points at `v` of the curves along v, and their derivatives: two curves along u.
  Column row, points, slopes;
  for (std::size_t i = 0; i < rows; ++i) {
    const ON_4dPoint* first = &CV(static_cast<int>(span_u + i), static_cast<int>(span_v));
    std::copy_n(first, columns, row.begin());
    ON_EvSpan(SpanKnots(1, span_v), std::span(row).first(columns), v, &points[i], &slopes[i]);
  }
  ON_4dPoint place, slope_u, slope_v, unused;
  ON_EvSpan(SpanKnots(0, span_u), std::span(points).first(rows), u, &place, &slope_u);
  ON_EvSpan(SpanKnots(0, span_u), std::span(slopes).first(rows), u, &slope_v, &unused);
  *point = place.Euclidean();
  *du = ON_EuclideanDerivative(place, slope_u);
  *dv = ON_EuclideanDerivative(place, slope_v);
}

ON_NurbsCurve ON_NurbsSurface::IsoCurve(int direction, double parameter) const {
  const int across = 1 - direction;
  const std::size_t span = SpanAt(across, parameter);
  const auto order = static_cast<std::size_t>(Order(across));
  ON_SimpleArray<ON_4dPoint> cvs(static_cast<std::size_t>(CVCount(direction)));
  for (std::size_t i = 0; i < cvs.size(); ++i) {
    Column column;
    for (std::size_t k = 0; k < order; ++k) {
      const auto along = static_cast<int>(i), away = static_cast<int>(span + k);
      column[k] = direction == 0 ? CV(along, away) : CV(away, along);
    }
    ON_4dPoint unused;
    ON_EvSpan(SpanKnots(across, span), std::span(column).first(order), parameter, &cvs[i], &unused);
  }
  ON_NurbsCurve curve;
  curve.Create(Order(direction), Knots(direction), std::move(cvs), m_is_rat);
  return curve;
}
