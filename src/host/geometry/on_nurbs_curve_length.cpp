#include <algorithm>
#include <array>

#include "host/geometry/on_nurbs_curve.h"

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

// Adds up the lengths of the spans of a curve, halving a piece until its halves agree with it.
class LengthSum {
 public:
  LengthSum(const ON_NurbsCurve& curve, double fractional_tolerance);
  double Total() const { return total_; }

 private:
  double Speed(double t) const;
  double Estimate(ON_Interval piece) const;
  double Refined(ON_Interval piece, double estimate, int depth);

  const ON_NurbsCurve& curve_;
  double tolerance_ = 0;
  double total_ = 0;
  // How many pieces may still be halved. Only curves that are made to be slow need more.
  std::size_t halvings_left_ = 0;
};

LengthSum::LengthSum(const ON_NurbsCurve& curve, double fractional_tolerance) : curve_(curve) {
  const auto degree = static_cast<std::size_t>(curve.Degree());
  const auto breaks = std::span(curve.m_knot).subspan(degree - 1, curve.m_cv.size() - degree + 1);
  std::vector<std::pair<ON_Interval, double>> spans;
  double rough = 0;
  for (std::size_t i = 1; i < breaks.size(); ++i) {
    if (breaks[i] <= breaks[i - 1]) continue;
    const ON_Interval span{breaks[i - 1], breaks[i]};
    spans.emplace_back(span, Estimate(span));
    rough += spans.back().second;
  }
  tolerance_ = fractional_tolerance * rough / static_cast<double>(spans.size());
  halvings_left_ = 2000 + 4 * spans.size();
  for (const auto& [span, estimate] : spans) total_ += Refined(span, estimate, 0);
}

double LengthSum::Speed(double t) const {
  ON_3dPoint point;
  ON_3dVector derivative;
  curve_.Ev1Der(t, &point, &derivative);
  return derivative.Length();
}

double LengthSum::Estimate(ON_Interval piece) const {
  const double middle = piece.ParameterAt(0.5);
  const double half = piece.Length() / 2;
  double sum = 0;
  for (const auto& [x, weight] : kGaussPoints) {
    sum += weight * (Speed(middle - half * x) + Speed(middle + half * x));
  }
  return sum * half;
}

double LengthSum::Refined(ON_Interval piece, double estimate, int depth) {
  constexpr int kMaxDepth = 40;
  const double middle = piece.ParameterAt(0.5);
  const ON_Interval first{piece.Min, middle};
  const ON_Interval second{middle, piece.Max};
  const double a = Estimate(first);
  const double b = Estimate(second);
  // What isn't a number agrees with nothing; it won't get better.
  if (!(std::abs(a + b - estimate) > tolerance_) || depth >= kMaxDepth || halvings_left_ == 0) {
    return a + b;
  }
  --halvings_left_;
  return Refined(first, a, depth + 1) + Refined(second, b, depth + 1);
}

}  // namespace

bool ON_NurbsCurve::GetLength(double* length, double fractional_tolerance) const {
  const double total = LengthSum(*this, fractional_tolerance).Total();
  if (!std::isfinite(total)) return false;
  *length = total;
  return true;
}
