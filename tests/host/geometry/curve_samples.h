#pragma once

#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"

// Curves for tests.

// Around `center` in a plane whose normal is y: from the x axis towards the z axis.
inline ON_ArcCurve UprightArc(ON_3dPoint center, double radius, ON_Interval angle) {
  return ON_ArcCurve({{center, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}}, radius, angle});
}

inline ON_PolylineCurve Polyline(ON_SimpleArray<ON_3dPoint> points) {
  ON_PolylineCurve curve;
  for (std::size_t i = 0; i < points.size(); ++i) curve.m_t.push_back(static_cast<double>(i));
  curve.m_pline = std::move(points);
  return curve;
}

inline ON_NurbsCurve Nurbs(int order, ON_SimpleArray<double> knots,
                           const ON_SimpleArray<ON_3dPoint>& points) {
  ON_NurbsCurve curve;
  ON_SimpleArray<ON_4dPoint> cvs;
  for (const ON_3dPoint& p : points) cvs.push_back(ON_NurbsCurve::Unweighted(p));
  curve.Create(order, std::move(knots), std::move(cvs));
  return curve;
}

// Two spans, clamped; its box is from (0, -20, 0) to (40, 20, 10).
inline ON_NurbsCurve ClampedCubic() {
  return Nurbs(4, {0, 0, 0, 1, 2, 2, 2},
               {{0, 0, 0}, {10, 20, 0}, {20, -20, 5}, {30, 0, 0}, {40, 10, 10}});
}

// Five even spans that close smoothly; no end is clamped.
inline ON_NurbsCurve PeriodicCubic() {
  return Nurbs(4, {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7},
               {{0, 0, 0},
                {10, 0, 0},
                {10, 10, 0},
                {0, 10, 0},
                {-5, 5, 3},
                {0, 0, 0},
                {10, 0, 0},
                {10, 10, 0}});
}

template <class T>
void AddSegment(ON_PolyCurve& curve, T segment) {
  if (curve.m_t.empty()) curve.m_t.push_back(0);
  curve.m_t.push_back(curve.m_t.back() + segment.Domain().Length());
  curve.m_segment.push_back(std::make_unique<T>(std::move(segment)));
}
