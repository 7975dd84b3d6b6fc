#include "host/modeling/occt_knots.h"

#include <vector>

namespace host {

std::optional<Knots> MakeKnots(std::span<const double> knots, int degree) {
  // As a part of the domain.
  constexpr double kSame = 1e-12;
  const double same = (knots.back() - knots.front()) * kSame;
  std::vector<double> values{knots.front()};
  std::vector<int> counts{1};
  for (const double knot : knots) {
    if (knot - values.back() > same) {
      values.push_back(knot);
      counts.push_back(0);
    }
    ++counts.back();
  }
  ++counts.back();
  // The last one exactly, however close to the one before.
  values.back() = knots.back();
  const auto count = static_cast<int>(values.size());
  if (count < 2) return std::nullopt;
  Knots result{TColStd_Array1OfReal(1, count), TColStd_Array1OfInteger(1, count)};
  for (int i = 1; i <= count; ++i) {
    const auto at = static_cast<std::size_t>(i) - 1;
    const int most = i == 1 || i == count ? degree + 1 : degree;
    if (counts[at] > most) return std::nullopt;
    result.values(i) = values[at];
    result.multiplicities(i) = counts[at];
  }
  return result;
}

}  // namespace host
