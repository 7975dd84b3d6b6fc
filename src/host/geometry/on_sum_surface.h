#pragma once

#include <array>

#include "host/geometry/on_curve.h"
#include "host/geometry/on_surface.h"

// The sum of two curves: one of them is moved along the other. m_curve[0] runs with u, m_curve[1]
// with v.
class ON_SumSurface : public ON_Surface {
 public:
  static const ON_SumSurface* Cast(const ON_Object* object);

  // The sum of the boxes of both curves.
  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain(int direction) const override { return Curve(direction).Domain(); }
  ON_3dPoint PointAt(double u, double v) const override;
  void Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
              ON_3dVector* dv) const override;
  bool IsClosed(int direction) const override { return Curve(direction).IsClosed(); }
  bool IsSingular(Side) const override { return false; }
  // Exact, from the forms of both curves. None when both are so long that the product of their
  // control points would fill the memory: 3 million of them.
  bool GetNurbForm(ON_NurbsSurface& form) const override;
  std::unique_ptr<ON_Surface> DuplicateSurface() const override;

  // What is added to the points of both curves.
  ON_3dVector m_basepoint{0, 0, 0};
  std::array<std::shared_ptr<const ON_Curve>, 2> m_curve;

 private:
  const ON_Curve& Curve(int direction) const {
    return *m_curve[static_cast<std::size_t>(direction)];
  }
};
