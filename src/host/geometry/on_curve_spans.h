#pragma once

#include "host/geometry/on_nurbs_curve.h"

// The spans of a valid NURBS curve, its polynomial pieces, counted by their first control points.
// Where knots fall together, spans are empty; the first and the last one never are.

inline std::size_t ON_SpanCount(const ON_NurbsCurve& curve) {
  return curve.m_cv.size() - static_cast<std::size_t>(curve.Degree());
}
bool ON_IsEmptySpan(const ON_NurbsCurve& curve, std::size_t span);
// The curve from the span `first` to the span `last`, clamped. A span by itself is a Bézier curve.
ON_NurbsCurve ON_SpansOf(const ON_NurbsCurve& curve, std::size_t first, std::size_t last);

// The box of the curve itself, whose control points may lie outside, but for rounding. Where a
// weight isn't positive, the box is that of the control points.
ON_BoundingBox ON_TightBoundingBox(const ON_NurbsCurve& curve);
// Twice the area in the x-y plane that the line from `around` to the points of the curve sweeps,
// positive where it turns counterclockwise; an approximation by chords. Added up over a closed
// sequence of curves, it tells which way they run.
double ON_TwiceSignedArea(const ON_NurbsCurve& curve, ON_3dPoint around);
