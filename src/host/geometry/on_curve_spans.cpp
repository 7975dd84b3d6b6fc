#include "host/geometry/on_curve_spans.h"

#include <algorithm>

namespace {

using Bezier = ON_SimpleArray<ON_4dPoint>;

// Makes a Bézier curve its first half and returns its second one.
Bezier SplitInHalf(Bezier& cvs) {
  Bezier second(cvs.size());
  for (std::size_t count = cvs.size(); count > 0; --count) {
    second[count - 1] = cvs.back();
    for (std::size_t i = cvs.size() - 1; i > cvs.size() - count; --i) {
      cvs[i] = (cvs[i - 1] + cvs[i]) * 0.5;
    }
  }
  return second;
}

ON_BoundingBox BoxOf(const Bezier& cvs) {
  ON_BoundingBox box;
  for (const ON_4dPoint& cv : cvs) box.Include(cv.Euclidean());
  return box;
}

// True when `inner` reaches out of `outer` by no more than `tolerance`.
bool IsInside(const ON_BoundingBox& inner, const ON_BoundingBox& outer, double tolerance) {
  const ON_3dPoint &a = inner.m_min, &b = inner.m_max;
  const ON_3dPoint &min = outer.m_min, &max = outer.m_max;
  return a.x >= min.x - tolerance && a.y >= min.y - tolerance && a.z >= min.z - tolerance &&
         b.x <= max.x + tolerance && b.y <= max.y + tolerance && b.z <= max.z + tolerance;
}

// Adds the box of a Bézier curve whose weights are positive, so that it lies inside the box of its
// control points. Halves that may reach further are split again.
void IncludeBezier(Bezier cvs, ON_BoundingBox& box) {
  constexpr int kMaxSplits = 1000;
  constexpr double kFraction = 1e-14;
  const ON_BoundingBox hull = BoxOf(cvs);
  const double tolerance = kFraction * (hull.m_max - hull.m_min).Length();
  box.Include(cvs.front().Euclidean());
  box.Include(cvs.back().Euclidean());
  std::vector<Bezier> open{std::move(cvs)};
  for (int splits = 0; !open.empty(); ++splits) {
    Bezier first = std::move(open.back());
    open.pop_back();
    const ON_BoundingBox reach = BoxOf(first);
    if (IsInside(reach, box, tolerance)) continue;
    if (splits >= kMaxSplits) {
      box.Include(reach);
      continue;
    }
    Bezier second = SplitInHalf(first);
    box.Include(second.front().Euclidean());
    open.push_back(std::move(first));
    open.push_back(std::move(second));
  }
}

}  // namespace

bool ON_IsEmptySpan(const ON_NurbsCurve& curve, std::size_t span) {
  const auto degree = static_cast<std::size_t>(curve.Degree());
  return !(curve.m_knot[span + degree - 1] < curve.m_knot[span + degree]);
}

ON_NurbsCurve ON_SpansOf(const ON_NurbsCurve& curve, std::size_t first, std::size_t last) {
  const auto degree = static_cast<std::size_t>(curve.Degree());
  const auto part = [first](const auto& values, std::size_t count) {
    const auto begin = values.begin() + static_cast<std::ptrdiff_t>(first);
    return std::decay_t<decltype(values)>(begin, begin + static_cast<std::ptrdiff_t>(count));
  };
  ON_NurbsCurve spans;
  spans.Create(curve.Order(), part(curve.m_knot, last - first + 2 * degree),
               part(curve.m_cv, last - first + degree + 1), curve.IsRational());
  spans.m_dim = curve.m_dim;
  spans.ClampAndRaise(curve.Order());
  return spans;
}

ON_BoundingBox ON_TightBoundingBox(const ON_NurbsCurve& curve) {
  const auto is_positive = [](const ON_4dPoint& cv) { return cv.w > 0; };
  if (!std::all_of(curve.m_cv.begin(), curve.m_cv.end(), is_positive)) return curve.BoundingBox();
  ON_BoundingBox box;
  for (std::size_t i = 0; i < ON_SpanCount(curve); ++i) {
    if (!ON_IsEmptySpan(curve, i)) IncludeBezier(ON_SpansOf(curve, i, i).m_cv, box);
  }
  return box;
}

double ON_TwiceSignedArea(const ON_NurbsCurve& curve, ON_3dPoint around) {
  constexpr int kChordsPerSpan = 8;
  double area = 0;
  ON_3dVector last = curve.PointAtStart() - around;
  for (std::size_t i = 0; i < ON_SpanCount(curve); ++i) {
    if (ON_IsEmptySpan(curve, i)) continue;
    const auto knot = curve.m_knot.begin() + static_cast<std::ptrdiff_t>(i) + curve.Degree() - 1;
    const ON_Interval span{knot[0], knot[1]};
    for (int k = 1; k <= kChordsPerSpan; ++k) {
      const ON_3dVector next =
          curve.PointAt(span.ParameterAt(static_cast<double>(k) / kChordsPerSpan)) - around;
      area += last.x * next.y - last.y * next.x;
      last = next;
    }
  }
  return area;
}
