#pragma once

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line.h"
#include "host/geometry/on_surface.h"

// A curve that is turned about an axis. Direction 0 is the way around and direction 1 the curve, or
// the other way about when it is transposed.
class ON_RevSurface : public ON_Surface {
 public:
  static const ON_RevSurface* Cast(const ON_Object* object);

  // The box that the curve's box sweeps, around by the control points of an arc: as the host has
  // it, looser than need be.
  ON_BoundingBox BoundingBox() const override;
  // The angle is more than nothing and at most a whole turn.
  bool IsValid() const override;
  ON_Interval Domain(int direction) const override {
    return direction == AngleDirection() ? m_t : m_curve->Domain();
  }
  ON_3dPoint PointAt(double u, double v) const override;
  void Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
              ON_3dVector* dv) const override;
  bool IsClosed(int direction) const override;
  // At an end of the curve that lies on the axis.
  bool IsSingular(Side side) const override;
  // Exact: around, the form of an arc; see ON_ArcCurve::GetNurbForm.
  bool GetNurbForm(ON_NurbsSurface& form) const override;
  std::unique_ptr<ON_Surface> DuplicateSurface() const override;

  int AngleDirection() const { return m_bTransposed ? 1 : 0; }

  // By the right hand, from `from` to `to`.
  ON_Line m_axis{{0, 0, 0}, {0, 0, 1}};
  // In radians, from where the curve stands.
  ON_Interval m_angle{0, 0};
  // The domain that is stretched over the angle.
  ON_Interval m_t{0, 1};
  std::shared_ptr<const ON_Curve> m_curve;
  bool m_bTransposed = false;

 private:
  ON_ArcCurve UnitArc() const;
  ON_3dVector AxisDirection() const;
  ON_3dPoint Foot(const ON_3dPoint& p) const;
  ON_4dPoint TurnedCV(const ON_4dPoint& cv, const ON_4dPoint& arc) const;
};
