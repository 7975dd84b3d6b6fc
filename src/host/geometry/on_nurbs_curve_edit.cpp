#include <algorithm>

#include "host/geometry/on_nurbs_curve.h"

// Changes of a NURBS curve itself.

bool ON_NurbsCurve::Trim(ON_Interval interval) {
  const ON_Interval domain = Domain();
  interval = {std::max(interval.Min, domain.Min), std::min(interval.Max, domain.Max)};
  if (!interval.IsIncreasing()) return false;
  if (interval == domain && IsClamped()) return true;
  ON_NurbsCurve part = *this;
  part.Rebuild(m_order, interval);
  if (!part.IsValid()) return false;
  *this = std::move(part);
  return true;
}

void ON_NurbsCurve::Reverse() {
  const ON_Interval domain = Domain();
  for (double& knot : m_knot) knot = domain.ParameterAt(1 - domain.NormalizedParameterAt(knot));
  std::reverse(m_knot.begin(), m_knot.end());
  std::reverse(m_cv.begin(), m_cv.end());
}

void ON_NurbsCurve::Transform(const ON_Xform& xform) {
  for (ON_4dPoint& cv : m_cv) {
    const auto image = [&](std::size_t row) {
      const auto& m = xform.m_xform[row];
      return m[0] * cv.x + m[1] * cv.y + m[2] * cv.z + m[3] * cv.w;
    };
    cv = {image(0), image(1), image(2), cv.w};
    if (cv.z != 0) m_dim = 3;
  }
}
