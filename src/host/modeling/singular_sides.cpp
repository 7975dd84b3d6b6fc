#include "host/modeling/singular_sides.h"

#include <Precision.hxx>
#include <cmath>
#include <gp_Pnt.hxx>

namespace host {
namespace {

// True when all points of a side, on which the parameter of `direction` is `constant`, are one.
bool IsPoint(const Adaptor3d_Surface& surface, int direction, double constant, double from,
             double to) {
  constexpr int kSamples = 8;
  const auto at = [&](double t) {
    return direction == 0 ? surface.Value(constant, t) : surface.Value(t, constant);
  };
  const gp_Pnt first = at(from);
  for (int i = 1; i <= kSamples; ++i) {
    if (first.Distance(at(from + (to - from) * i / kSamples)) > 10 * Precision::Confusion()) {
      return false;
    }
  }
  return true;
}

}  // namespace

SingularSides::SingularSides(const Adaptor3d_Surface& surface) {
  // The bounds of the whole surface.
  parameter_ = {surface.FirstUParameter(), surface.LastUParameter(), surface.FirstVParameter(),
                surface.LastVParameter()};
  length_ = {parameter_[1] - parameter_[0], parameter_[3] - parameter_[2]};
  for (std::size_t side = 0; side < 4; ++side) {
    const std::size_t along = side < 2 ? 2 : 0;
    is_singular_[side] = IsPoint(surface, side < 2 ? 0 : 1, parameter_[side], parameter_[along],
                                 parameter_[along + 1]);
  }
}

int SingularSides::FreeDirection(const gp_Pnt2d& uv) const {
  constexpr double kClose = 1e-9;
  for (std::size_t side = 0; side < 4; ++side) {
    const std::size_t direction = side / 2;
    const double t = direction == 0 ? uv.X() : uv.Y();
    if (is_singular_[side] && std::abs(t - parameter_[side]) <= kClose * length_[direction]) {
      return direction == 0 ? 1 : 0;
    }
  }
  return -1;
}

void SingularSides::Adjust(const std::array<gp_Pnt2d*, 3>& corners) const {
  if (!HasAny()) return;
  std::array<int, 3> free;
  for (std::size_t i = 0; i < 3; ++i) free[i] = FreeDirection(*corners[i]);
  for (std::size_t i = 0; i < 3; ++i) {
    if (free[i] < 0) continue;
    double sum = 0;
    int count = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      if (free[j] == free[i]) continue;
      sum += free[i] == 0 ? corners[j]->X() : corners[j]->Y();
      ++count;
    }
    if (count == 0) continue;
    free[i] == 0 ? corners[i]->SetX(sum / count) : corners[i]->SetY(sum / count);
  }
}

}  // namespace host
