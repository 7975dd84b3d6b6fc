#pragma once

#include "host/geometry/on_curve.h"

// A part of a circle, or the whole of it: around the plane's origin, from angle to angle in
// radians, counted from the plane's x axis towards its y axis.
struct ON_Arc {
  ON_Plane plane;
  double radius = 1;
  ON_Interval m_angle{0, 0};

  ON_3dPoint PointAt(double angle) const;
  // True for a whole turn, but for rounding.
  bool IsCircle() const;
  // True when the radius is positive and the angle more than nothing and at most a whole turn.
  bool IsValid() const;
};

// An arc that is run through with even speed.
class ON_ArcCurve : public ON_Curve {
 public:
  ON_ArcCurve() = default;
  // The domain is from 0 to the length.
  explicit ON_ArcCurve(const ON_Arc& arc);
  static const ON_ArcCurve* Cast(const ON_Object* object);

  // The box of the control points of its NURBS form.
  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override { return m_arc.IsValid() && m_t.IsIncreasing(); }
  ON_Interval Domain() const override { return m_t; }
  ON_3dPoint PointAt(double t) const override;
  void Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const override;
  bool IsClosed() const override { return m_arc.IsCircle(); }
  bool GetLength(double* length, double fractional_tolerance = 1e-8) const override;
  // Exact: rational and quadratic, with one span up to a quarter of a turn, two up to a half, four
  // beyond. It agrees in its parameters at the ends of the spans and in their middle.
  bool GetNurbForm(ON_NurbsCurve& form) const override;

  ON_Arc m_arc;
  ON_Interval m_t{0, 1};
};
