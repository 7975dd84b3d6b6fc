#pragma once

#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <optional>
#include <span>

namespace host {

// Smaller weights of control points are refused.
inline constexpr double kLeastWeight = 1e-12;

// Knots as Open CASCADE counts them.
struct Knots {
  TColStd_Array1OfReal values;
  TColStd_Array1OfInteger multiplicities;
};

// Of clamped knots without the outermost ones. Knots that differ by rounding only become one.
// Nothing when that gives a knot more weight than the degree allows.
[[nodiscard]] std::optional<Knots> MakeKnots(std::span<const double> knots, int degree);

}  // namespace host
