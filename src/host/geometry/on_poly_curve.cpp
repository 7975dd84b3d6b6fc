#include "host/geometry/on_poly_curve.h"

#include <algorithm>

#include "host/geometry/on_curve_part.h"
#include "host/geometry/on_parameters.h"

const ON_PolyCurve* ON_PolyCurve::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_PolyCurve*>(object);
}

ON_BoundingBox ON_PolyCurve::BoundingBox() const {
  ON_BoundingBox box;
  for (const auto& segment : m_segment) box.Include(segment->BoundingBox());
  return box;
}

bool ON_PolyCurve::IsValid() const {
  return !m_segment.empty() && m_t.size() == m_segment.size() + 1 && ON_AreIncreasing(m_t) &&
         std::all_of(m_segment.begin(), m_segment.end(),
                     [](const auto& segment) { return segment != nullptr && segment->IsValid(); });
}

ON_3dPoint ON_PolyCurve::PointAt(double t) const {
  const std::size_t i = ON_IntervalIndex(m_t, t);
  const ON_Interval interval{m_t[i], m_t[i + 1]};
  const ON_Curve& segment = *m_segment[i];
  return segment.PointAt(segment.Domain().ParameterAt(interval.NormalizedParameterAt(t)));
}

void ON_PolyCurve::Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const {
  const std::size_t i = ON_IntervalIndex(m_t, t);
  const ON_Interval interval{m_t[i], m_t[i + 1]};
  const ON_Interval domain = m_segment[i]->Domain();
  m_segment[i]->Ev1Der(domain.ParameterAt(interval.NormalizedParameterAt(t)), point, derivative);
  *derivative = *derivative * (domain.Length() / interval.Length());
}

int ON_PolyCurve::IsPolyline(std::vector<ON_3dPoint>* points) const {
  std::vector<ON_3dPoint> all, part;
  for (const auto& segment : m_segment) {
    if (segment->IsPolyline(&part) == 0) return ON_Curve::IsPolyline(points);
    if (!all.empty()) all.pop_back();
    all.insert(all.end(), part.begin(), part.end());
  }
  if (all.size() > 3 && IsClosed()) all.back() = all.front();
  const int count = static_cast<int>(all.size());
  if (points != nullptr) *points = std::move(all);
  return count;
}

bool ON_PolyCurve::GetLength(double* length, double fractional_tolerance) const {
  double sum = 0;
  for (const auto& segment : m_segment) {
    double part = 0;
    if (!segment->GetLength(&part, fractional_tolerance)) return false;
    sum += part;
  }
  if (!std::isfinite(sum)) return false;
  *length = sum;
  return true;
}

bool ON_PolyCurve::GetNurbForm(ON_NurbsCurve& form) const {
  return ON_GetPolyCurvePart(*this, Domain(), form);
}
