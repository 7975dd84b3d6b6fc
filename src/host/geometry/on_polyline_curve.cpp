#include "host/geometry/on_polyline_curve.h"

#include <algorithm>

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_parameters.h"

const ON_PolylineCurve* ON_PolylineCurve::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_PolylineCurve*>(object);
}

ON_BoundingBox ON_PolylineCurve::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_3dPoint& p : m_pline) box.Include(p);
  return box;
}

bool ON_PolylineCurve::IsValid() const {
  return m_pline.size() >= 2 && m_t.size() == m_pline.size() && ON_AreIncreasing(m_t) &&
         std::all_of(m_pline.begin(), m_pline.end(),
                     [](const ON_3dPoint& p) { return p.IsValid(); });
}

ON_3dPoint ON_PolylineCurve::PointAt(double t) const {
  const std::size_t i = ON_IntervalIndex(m_t, t);
  const ON_Interval interval{m_t[i], m_t[i + 1]};
  return ON_PointBetween(m_pline[i], m_pline[i + 1], interval.NormalizedParameterAt(t));
}

void ON_PolylineCurve::Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const {
  const std::size_t i = ON_IntervalIndex(m_t, t);
  *point = PointAt(t);
  *derivative = (m_pline[i + 1] - m_pline[i]) * (1 / (m_t[i + 1] - m_t[i]));
}

bool ON_PolylineCurve::IsClosed() const {
  return m_pline.size() >= 4 && ON_PointsAreCoincident(m_pline.front(), m_pline.back());
}

int ON_PolylineCurve::IsPolyline(std::vector<ON_3dPoint>* points) const {
  if (points != nullptr) points->assign(m_pline.begin(), m_pline.end());
  return static_cast<int>(m_pline.size());
}

bool ON_PolylineCurve::GetLength(double* length, double) const {
  double sum = 0;
  for (std::size_t i = 1; i < m_pline.size(); ++i) sum += m_pline[i - 1].DistanceTo(m_pline[i]);
  if (!std::isfinite(sum)) return false;
  *length = sum;
  return true;
}

bool ON_PolylineCurve::GetNurbForm(ON_NurbsCurve& form) const {
  ON_SimpleArray<ON_4dPoint> cvs;
  cvs.reserve(m_pline.size());
  for (const ON_3dPoint& p : m_pline) cvs.push_back(ON_NurbsCurve::Unweighted(p));
  form.Create(2, m_t, std::move(cvs));
  return form.IsValid();
}
