#include "host/geometry/on_line_curve.h"

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_parameters.h"

ON_LineCurve::ON_LineCurve(ON_3dPoint from, ON_3dPoint to)
    : m_line{from, to}, m_t{0, from.DistanceTo(to)} {}

const ON_LineCurve* ON_LineCurve::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_LineCurve*>(object);
}

ON_BoundingBox ON_LineCurve::BoundingBox() const {
  ON_BoundingBox box;
  box.Include(m_line.from);
  box.Include(m_line.to);
  return box;
}

bool ON_LineCurve::IsValid() const {
  return m_line.from.IsValid() && m_line.to.IsValid() && m_t.IsIncreasing();
}

ON_3dPoint ON_LineCurve::PointAt(double t) const {
  return ON_PointBetween(m_line.from, m_line.to, m_t.NormalizedParameterAt(t));
}

void ON_LineCurve::Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const {
  *point = PointAt(t);
  *derivative = (m_line.to - m_line.from) * (1 / m_t.Length());
}

int ON_LineCurve::IsPolyline(std::vector<ON_3dPoint>* points) const {
  if (points != nullptr) *points = {m_line.from, m_line.to};
  return 2;
}

bool ON_LineCurve::GetLength(double* length, double) const {
  const double distance = m_line.from.DistanceTo(m_line.to);
  if (!std::isfinite(distance)) return false;
  *length = distance;
  return true;
}

bool ON_LineCurve::GetNurbForm(ON_NurbsCurve& form) const {
  form.Create(2, {m_t.Min, m_t.Max},
              {ON_NurbsCurve::Unweighted(m_line.from), ON_NurbsCurve::Unweighted(m_line.to)});
  return form.IsValid();
}
