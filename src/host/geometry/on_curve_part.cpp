#include "host/geometry/on_curve_part.h"

#include <algorithm>
#include <cmath>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_poly_curve.h"

namespace {

// An arc's NURBS form goes round with another speed, so that it can't be cut at a parameter of the
// arc: the arc is cut first.
bool GetArcPart(const ON_ArcCurve& curve, ON_Interval part, ON_NurbsCurve& form) {
  ON_ArcCurve arc = curve;
  const auto angle_at = [&](double t) {
    return curve.m_arc.m_angle.ParameterAt(curve.m_t.NormalizedParameterAt(t));
  };
  arc.m_arc.m_angle = {angle_at(part.Min), angle_at(part.Max)};
  arc.m_t = part;
  return arc.IsValid() && arc.GetNurbForm(form);
}

// True when a stretch of a polycurve reaches into a segment, by `inside`, for rounding alone.
bool IsSliver(ON_Interval inside, ON_Interval part) {
  constexpr double kRelativeTolerance = 0x1p-42;
  return inside.Length() < part.Length() / 2 &&
         inside.Length() <= kRelativeTolerance * (std::abs(part.Min) + std::abs(part.Max));
}

// The part `inside` of a segment of a polycurve, which has the stretch `interval` of the
// polycurve's domain.
bool GetSegmentPart(const ON_Curve& segment, ON_Interval interval, ON_Interval inside,
                    ON_NurbsCurve& form) {
  const ON_Interval domain = segment.Domain();
  const auto own = [&](double t) { return domain.ParameterAt(interval.NormalizedParameterAt(t)); };
  if (!ON_GetCurvePart(segment, {own(inside.Min), own(inside.Max)}, form)) return false;
  form.SetDomain(inside);
  return form.IsValid();
}

}  // namespace

bool ON_GetPolyCurvePart(const ON_PolyCurve& curve, ON_Interval part, ON_NurbsCurve& form) {
  std::vector<ON_NurbsCurve> parts;
  int order = 2;
  for (std::size_t i = 0; i < curve.m_segment.size(); ++i) {
    const ON_Interval interval{curve.m_t[i], curve.m_t[i + 1]};
    if (interval.Max <= part.Min || interval.Min >= part.Max) continue;
    const ON_Interval inside{std::max(part.Min, interval.Min), std::min(part.Max, interval.Max)};
    if (inside != interval && IsSliver(inside, part)) continue;
    if (!GetSegmentPart(*curve.m_segment[i], interval, inside, parts.emplace_back())) return false;
    order = std::max(order, parts.back().Order());
  }
  if (parts.empty()) return false;
  if (parts.size() > 1) {
    for (ON_NurbsCurve& p : parts) p.ClampAndRaise(order);
  }
  form = std::move(parts.front());
  for (std::size_t i = 1; i < parts.size(); ++i) form.Append(parts[i]);
  form.SetDomain(part);
  return form.IsValid();
}

bool ON_GetCurvePart(const ON_Curve& curve, ON_Interval part, ON_NurbsCurve& form) {
  if (part == curve.Domain()) return curve.GetNurbForm(form);
  if (!part.IsIncreasing()) return false;
  if (const auto* arc = ON_ArcCurve::Cast(&curve)) return GetArcPart(*arc, part, form);
  if (const auto* poly = ON_PolyCurve::Cast(&curve)) return ON_GetPolyCurvePart(*poly, part, form);
  return curve.GetNurbForm(form) && form.Trim(part);
}
