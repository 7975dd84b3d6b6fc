#include "host/geometry/on_smooth_pieces.h"

#include <algorithm>
#include <optional>

#include "host/geometry/on_curve_spans.h"
#include "host/geometry/on_parameters.h"
#include "host/geometry/on_poly_curve.h"

namespace {

// The cosine of one degree.
constexpr double kSmoothCosine = 0.99984769515639124;
// Two curvatures that differ by less are the same; a smaller one is that of a straight line.
constexpr double kSameCurvature = 1.4901161193847656e-8;
constexpr double kStraight = 1e-8;

// How a curve runs where it begins or ends, in the curve's direction. What can't be told is zero or
// missing.
struct CurveEnd {
  ON_3dVector direction{0, 0, 0};
  // Positive for a bend to the left.
  std::optional<double> curvature;
};

// The end at the first control point of a Bézier curve.
CurveEnd StartOf(std::span<const ON_4dPoint> cvs) {
  CurveEnd end;
  const ON_3dPoint p0 = cvs[0].Euclidean(), p1 = cvs[1].Euclidean();
  for (const ON_4dPoint& cv : cvs.subspan(1)) {
    const ON_3dVector v = cv.Euclidean() - p0;
    const double length = v.Length();
    if (!(length > 0) || !std::isfinite(length)) continue;
    end.direction = v * (1 / length);
    break;
  }
  if (cvs.size() == 2) end.curvature = 0;
  if (cvs.size() == 2 || p0 == p1) return end;
  const ON_3dVector a = p1 - p0, b = cvs[2].Euclidean() - p0;
  const auto degree = static_cast<double>(cvs.size() - 1);
  const double weights = cvs[0].w * cvs[2].w / (cvs[1].w * cvs[1].w);
  const double length = a.Length();
  const double curvature =
      (degree - 1) / degree * weights * (a.x * b.y - a.y * b.x) / (length * length * length);
  if (std::isfinite(curvature)) end.curvature = curvature;
  return end;
}

CurveEnd EndOf(std::span<const ON_4dPoint> cvs) {
  const std::vector<ON_4dPoint> reversed(cvs.rbegin(), cvs.rend());
  CurveEnd end = StartOf(reversed);
  end.direction = -end.direction;
  if (end.curvature) end.curvature = -*end.curvature;
  return end;
}

bool IsKink(const CurveEnd& before, const CurveEnd& after) {
  const ON_3dVector zero{0, 0, 0};
  if (before.direction == zero || after.direction == zero) return false;
  if (ON_DotProduct(before.direction, after.direction) < kSmoothCosine) return true;
  if (!before.curvature || !after.curvature) return false;
  const double k0 = *before.curvature, k1 = *after.curvature;
  if (std::abs(k0 - k1) <= kSameCurvature) return false;
  const bool is_straight0 = std::abs(k0) <= kStraight, is_straight1 = std::abs(k1) <= kStraight;
  return is_straight0 != is_straight1 || (!is_straight0 && k0 * k1 < 0);
}

bool HasKinkBetween(const ON_NurbsCurve& a, std::size_t span_a, const ON_NurbsCurve& b,
                    std::size_t span_b) {
  return IsKink(EndOf(ON_SpansOf(a, span_a, span_a).m_cv),
                StartOf(ON_SpansOf(b, span_b, span_b).m_cv));
}

// A span that is only a point has no direction; what matters is what stands beside it.
bool IsPointSpan(const ON_NurbsCurve& curve, std::size_t span) {
  const auto cvs = std::span(curve.m_cv).subspan(span, static_cast<std::size_t>(curve.Order()));
  return std::all_of(cvs.begin(), cvs.end(),
                     [&](const ON_4dPoint& cv) { return cv.Euclidean() == cvs[0].Euclidean(); });
}

// Adds the pieces of a NURBS curve between its kinks.
void Cut(const ON_NurbsCurve& curve, std::vector<ON_NurbsCurve>& pieces) {
  const auto degree = static_cast<std::size_t>(curve.Degree());
  std::size_t first = 0, last = 0, last_with_direction = 0;
  for (std::size_t i = 1; i < ON_SpanCount(curve); ++i) {
    if (ON_IsEmptySpan(curve, i)) continue;
    // Where fewer knots fall together, direction and curvature go on as they were.
    const bool may_kink = i - last + 1 >= degree || last != last_with_direction;
    const bool is_point = IsPointSpan(curve, i);
    if (may_kink && !is_point && HasKinkBetween(curve, last_with_direction, curve, i)) {
      pieces.push_back(ON_SpansOf(curve, first, last));
      first = i;
    }
    last = i;
    if (!is_point) last_with_direction = i;
  }
  pieces.push_back(ON_SpansOf(curve, first, last));
}

// Makes one piece of the pieces `at` - 1 and `at` if there is no kink between them.
void JoinIfSmooth(std::vector<ON_NurbsCurve>& pieces, std::size_t at) {
  ON_NurbsCurve &a = pieces[at - 1], &b = pieces[at];
  if (HasKinkBetween(a, ON_SpanCount(a) - 1, b, 0)) return;
  const int order = std::max(a.Order(), b.Order());
  a.ClampAndRaise(order);
  b.ClampAndRaise(order);
  if (a.m_cv.back().w == 0 || b.m_cv.front().w == 0) return;
  // Where a point was left out between them, the domains have a gap.
  b.SetDomain({a.Domain().Max, b.Domain().Max});
  a.Append(b);
  pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(at));
}

bool IsPoint(const ON_NurbsCurve& curve) {
  const ON_3dPoint start = curve.PointAtStart();
  return std::all_of(curve.m_cv.begin(), curve.m_cv.end(), [&](const ON_4dPoint& cv) {
    return ON_PointsAreCoincident(cv.Euclidean(), start);
  });
}

// Leaves out the pieces from `first` on that are only a point.
void DropPoints(std::vector<ON_NurbsCurve>& pieces, std::size_t first) {
  pieces.erase(
      std::remove_if(pieces.begin() + static_cast<std::ptrdiff_t>(first), pieces.end(), IsPoint),
      pieces.end());
}

bool AddPieces(const ON_Curve& curve, ON_Interval domain, std::vector<ON_NurbsCurve>& pieces) {
  if (const ON_PolyCurve* poly = ON_PolyCurve::Cast(&curve)) {
    const ON_Interval old = poly->Domain();
    const auto parameter = [&](std::size_t i) {
      const double t = poly->m_t[i];
      return domain == old ? t : domain.ParameterAt(old.NormalizedParameterAt(t));
    };
    for (std::size_t i = 0; i < poly->m_segment.size(); ++i) {
      if (!AddPieces(*poly->m_segment[i], {parameter(i), parameter(i + 1)}, pieces)) return false;
    }
    return true;
  }
  ON_NurbsCurve form;
  if (!domain.IsIncreasing() || !curve.GetNurbForm(form)) return false;
  form.SetDomain(domain);
  if (!form.IsValid()) return false;
  const std::size_t first = pieces.size();
  Cut(form, pieces);
  DropPoints(pieces, first);
  if (first > 0 && first < pieces.size()) JoinIfSmooth(pieces, first);
  return true;
}

// Moves the end of a piece to the start of the next one.
void EndAt(ON_NurbsCurve& curve, ON_3dPoint p) {
  ON_4dPoint& end = curve.m_cv.back();
  if (end.Euclidean() != p) end = {p.x * end.w, p.y * end.w, p.z * end.w, end.w};
}

}  // namespace

std::vector<ON_NurbsCurve> ON_SmoothPieces(const ON_Curve& curve, ON_Interval domain) {
  std::vector<ON_NurbsCurve> pieces;
  if (!AddPieces(curve, domain, pieces)) return {};
  for (ON_NurbsCurve& piece : pieces) {
    for (ON_4dPoint& cv : piece.m_cv) cv.z = 0;
  }
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    EndAt(pieces[i], pieces[i + 1].PointAtStart());
  }
  if (!pieces.empty() && curve.IsClosed()) EndAt(pieces.back(), pieces.front().PointAtStart());
  const auto is_valid = [](const ON_NurbsCurve& piece) { return piece.IsValid(); };
  return std::all_of(pieces.begin(), pieces.end(), is_valid) ? pieces
                                                             : std::vector<ON_NurbsCurve>{};
}
