#include "host/geometry/on_curve_lengths.h"

#include <algorithm>
#include <array>

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"

namespace {

// Half the points of Gauss's rule with eight points on [-1, 1]; the others mirror them.
struct GaussPoint {
  double x;
  double weight;
};
constexpr std::array<GaussPoint, 4> kGaussPoints{{
    {0.18343464249564980, 0.36268378337836198},
    {0.52553240991632899, 0.31370664587788729},
    {0.79666647741362674, 0.22238103445337447},
    {0.96028985649753623, 0.10122853629037626},
}};

// Adds the parameters between which the curve is smooth, without its start, mapped from its domain
// to `image`.
void AddBreaks(const ON_Curve& curve, ON_Interval image, std::vector<double>& breaks) {
  const ON_Interval domain = curve.Domain();
  const auto imageOf = [&](double t) { return image.ParameterAt(domain.NormalizedParameterAt(t)); };
  if (const auto* nurbs = dynamic_cast<const ON_NurbsCurve*>(&curve)) {
    const auto knots = ON_DomainKnots(nurbs->Order(), nurbs->CVCount(), nurbs->m_knot);
    for (const double knot : knots.subspan(1)) breaks.push_back(imageOf(knot));
  } else if (const auto* polyline = ON_PolylineCurve::Cast(&curve)) {
    for (std::size_t i = 1; i < polyline->m_t.size(); ++i) {
      breaks.push_back(imageOf(polyline->m_t[i]));
    }
  } else if (const auto* poly = ON_PolyCurve::Cast(&curve)) {
    for (std::size_t i = 0; i < poly->m_segment.size(); ++i) {
      const ON_Interval part{imageOf(poly->m_t[i]), imageOf(poly->m_t[i + 1])};
      AddBreaks(*poly->m_segment[i], part, breaks);
    }
  } else {
    breaks.push_back(image.Max);
  }
}

}  // namespace

ON_CurveLengths::ON_CurveLengths(const ON_Curve& curve, double fractional_tolerance)
    : curve_(curve) {
  std::vector<double> breaks{curve.Domain().Min};
  AddBreaks(curve, curve.Domain(), breaks);
  std::vector<Piece> spans;
  double rough = 0;
  for (std::size_t i = 1; i < breaks.size(); ++i) {
    if (!(breaks[i] > breaks[i - 1])) continue;
    const ON_Interval span{breaks[i - 1], breaks[i]};
    spans.push_back({span, Estimate(span), 0});
    rough += spans.back().length;
  }
  tolerance_ = fractional_tolerance * rough / static_cast<double>(spans.size());
  halvings_left_ = 2000 + 4 * spans.size();
  pieces_.reserve(2 * spans.size());
  for (const Piece& span : spans) Refine(span.interval, span.length, 0);
}

double ON_CurveLengths::Speed(double t) const {
  ON_3dPoint point;
  ON_3dVector derivative;
  curve_.Ev1Der(t, &point, &derivative);
  return derivative.Length();
}

double ON_CurveLengths::Estimate(ON_Interval piece) const {
  const double middle = piece.ParameterAt(0.5);
  const double half = piece.Length() / 2;
  double sum = 0;
  for (const auto& [x, weight] : kGaussPoints) {
    sum += weight * (Speed(middle - half * x) + Speed(middle + half * x));
  }
  return sum * half;
}

// Halves a piece until its halves agree with it.
void ON_CurveLengths::Refine(ON_Interval piece, double estimate, int depth) {
  constexpr int kMaxDepth = 40;
  const double middle = piece.ParameterAt(0.5);
  const ON_Interval first{piece.Min, middle};
  const ON_Interval second{middle, piece.Max};
  const double a = Estimate(first);
  const double b = Estimate(second);
  // What isn't a number agrees with nothing; it won't get better.
  if (!(std::abs(a + b - estimate) > tolerance_) || depth >= kMaxDepth || halvings_left_ == 0) {
    Add(first, a);
    Add(second, b);
    return;
  }
  --halvings_left_;
  Refine(first, a, depth + 1);
  Refine(second, b, depth + 1);
}

void ON_CurveLengths::Add(ON_Interval piece, double length) {
  total_ += length;
  pieces_.push_back({piece, length, total_});
}

double ON_CurveLengths::NormalizedArcLengthPoint(double s) const {
  const ON_Interval domain = curve_.Domain();
  if (!(s > 0)) return domain.Min;
  if (s >= 1) return domain.Max;
  if (!(total_ > 0) || !std::isfinite(total_)) return domain.ParameterAt(s);
  const double way = s * total_;
  const auto piece = std::partition_point(pieces_.begin(), pieces_.end(),
                                          [&](const Piece& p) { return p.end < way; });
  if (piece == pieces_.end()) return domain.Max;
  return ParameterIn(*piece, way - (piece->end - piece->length));
}

// Newton's steps, held in a bracket that shrinks with each of them.
double ON_CurveLengths::ParameterIn(const Piece& piece, double length) const {
  constexpr int kMostSteps = 60;
  constexpr double kCloseEnough = 1e-14;
  ON_Interval bracket = piece.interval;
  double t = bracket.ParameterAt(std::clamp(length / piece.length, 0.0, 1.0));
  for (int i = 0; i < kMostSteps; ++i) {
    const double excess = Estimate({piece.interval.Min, t}) - length;
    if (!(std::abs(excess) > kCloseEnough * total_)) break;
    (excess > 0 ? bracket.Max : bracket.Min) = t;
    const double next = t - excess / Speed(t);
    const double last = t;
    t = next > bracket.Min && next < bracket.Max ? next : bracket.ParameterAt(0.5);
    if (t == last) break;
  }
  return t;
}
