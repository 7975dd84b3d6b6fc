#include "host/geometry/on_parameters.h"

#include <algorithm>

bool ON_AreIncreasing(std::span<const double> parameters) {
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (!ON_IsValid(parameters[i]) || (i > 0 && parameters[i] <= parameters[i - 1])) return false;
  }
  return true;
}

std::size_t ON_IntervalIndex(std::span<const double> parameters, double t) {
  // The ends of all intervals but the last.
  const auto ends = parameters.subspan(1, parameters.size() - 2);
  return static_cast<std::size_t>(std::upper_bound(ends.begin(), ends.end(), t) - ends.begin());
}

bool ON_PointsAreCoincident(const ON_3dPoint& a, const ON_3dPoint& b) {
  constexpr double kZeroTolerance = 0x1p-32;
  constexpr double kRelativeTolerance = 0x1p-42;
  const auto agree = [](double p, double q) {
    const double difference = std::abs(p - q);
    return difference <= kZeroTolerance ||
           difference <= kRelativeTolerance * (std::abs(p) + std::abs(q));
  };
  return agree(a.x, b.x) && agree(a.y, b.y) && agree(a.z, b.z);
}
