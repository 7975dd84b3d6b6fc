#include "host/geometry/on_arc_curve.h"

#include <numbers>

#include "host/geometry/on_nurbs_curve.h"

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kAngleTolerance = 0x1p-32;

bool IsValidPlane(const ON_Plane& plane) {
  const ON_3dPoint origin{0, 0, 0};
  return plane.origin.IsValid() && (origin + plane.xaxis).IsValid() &&
         (origin + plane.yaxis).IsValid();
}

// How many spans the NURBS form of an arc has: one for each quarter of a turn, but never three.
int SpanCount(double angle) {
  if (angle <= kTurn / 4 + kAngleTolerance) return 1;
  return angle <= kTurn / 2 + kAngleTolerance ? 2 : 4;
}

}  // namespace

ON_3dPoint ON_Arc::PointAt(double angle) const {
  return plane.PointAt(radius * std::cos(angle), radius * std::sin(angle));
}

bool ON_Arc::IsCircle() const {
  return std::abs(m_angle.Length() - kTurn) <= kAngleTolerance;
}

bool ON_Arc::IsValid() const {
  return IsValidPlane(plane) && ON_IsValid(radius) && radius > 0 && m_angle.IsIncreasing() &&
         m_angle.Length() <= kTurn + kAngleTolerance;
}

ON_ArcCurve::ON_ArcCurve(const ON_Arc& arc)
    : m_arc(arc), m_t{0, arc.radius * arc.m_angle.Length()} {}

const ON_ArcCurve* ON_ArcCurve::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_ArcCurve*>(object);
}

ON_BoundingBox ON_ArcCurve::BoundingBox() const {
  ON_NurbsCurve form;
  return GetNurbForm(form) ? form.BoundingBox() : ON_BoundingBox();
}

ON_3dPoint ON_ArcCurve::PointAt(double t) const {
  return m_arc.PointAt(m_arc.m_angle.ParameterAt(m_t.NormalizedParameterAt(t)));
}

void ON_ArcCurve::Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const {
  const double angle = m_arc.m_angle.ParameterAt(m_t.NormalizedParameterAt(t));
  const ON_3dVector way =
      m_arc.plane.xaxis * -std::sin(angle) + m_arc.plane.yaxis * std::cos(angle);
  *point = m_arc.PointAt(angle);
  *derivative = way * (m_arc.radius * m_arc.m_angle.Length() / m_t.Length());
}

bool ON_ArcCurve::GetLength(double* length, double) const {
  const double product = m_arc.radius * m_arc.m_angle.Length();
  if (!std::isfinite(product)) return false;
  *length = product;
  return true;
}

bool ON_ArcCurve::GetNurbForm(ON_NurbsCurve& form) const {
  const int spans = SpanCount(m_arc.m_angle.Length());
  const double weight = std::cos(m_arc.m_angle.Length() / spans / 2);
  const auto middle = [&](double angle) {
    const ON_3dVector center = ON_FromOrigin(m_arc.plane.origin);
    const ON_3dVector way = m_arc.PointAt(angle) - m_arc.plane.origin;
    const ON_3dVector p = center * weight + way;
    return ON_4dPoint{p.x, p.y, p.z, weight};
  };
  ON_SimpleArray<double> knots = {m_t.Min, m_t.Min};
  ON_SimpleArray<ON_4dPoint> cvs = {ON_NurbsCurve::Unweighted(m_arc.PointAt(m_arc.m_angle.Min))};
  for (int i = 1; i <= spans; ++i) {
    const double end = static_cast<double>(i) / spans;
    knots.insert(knots.end(), 2, m_t.ParameterAt(end));
    cvs.push_back(middle(m_arc.m_angle.ParameterAt((i - 0.5) / spans)));
    cvs.push_back(ON_NurbsCurve::Unweighted(m_arc.PointAt(m_arc.m_angle.ParameterAt(end))));
  }
  if (IsClosed()) cvs.back() = cvs.front();
  form.Create(3, std::move(knots), std::move(cvs), true);
  return form.IsValid();
}
