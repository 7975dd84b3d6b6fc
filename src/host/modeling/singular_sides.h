#pragma once

#include <Adaptor3d_Surface.hxx>
#include <array>
#include <gp_Pnt2d.hxx>

namespace host {

// The sides of a surface's domain that are a point in space: poles. The parameter that runs along
// such a side means nothing on it.
class SingularSides {
 public:
  SingularSides() = default;
  explicit SingularSides(const Adaptor3d_Surface& surface);

  bool HasAny() const {
    return is_singular_[0] || is_singular_[1] || is_singular_[2] || is_singular_[3];
  }
  // True for parameters on such a side.
  bool Contains(const gp_Pnt2d& uv) const { return FreeDirection(uv) >= 0; }
  // Gives the corners of a triangle that lie on such a side the parameter that is halfway between
  // the others'.
  void Adjust(const std::array<gp_Pnt2d*, 3>& corners) const;

 private:
  // The direction whose parameter means nothing there; -1 when both do.
  int FreeDirection(const gp_Pnt2d& uv) const;

  // For each direction, first u, the parameters of the side where it begins and where it ends.
  std::array<double, 4> parameter_{};
  std::array<bool, 4> is_singular_{};
  std::array<double, 2> length_{};
};

}  // namespace host
