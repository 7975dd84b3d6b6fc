#pragma once

#include "host/geometry/on_curve.h"
#include "host/geometry/on_line.h"

// A straight line between two points.
class ON_LineCurve : public ON_Curve {
 public:
  ON_LineCurve() = default;
  // The domain is from 0 to the length.
  ON_LineCurve(ON_3dPoint from, ON_3dPoint to);
  static const ON_LineCurve* Cast(const ON_Object* object);

  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain() const override { return m_t; }
  ON_3dPoint PointAt(double t) const override;
  void Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const override;
  bool IsClosed() const override { return false; }
  int IsPolyline(std::vector<ON_3dPoint>* points = nullptr) const override;
  bool GetLength(double* length, double fractional_tolerance = 1e-8) const override;
  bool GetNurbForm(ON_NurbsCurve& form) const override;

  ON_Line m_line{{0, 0, 0}, {0, 0, 0}};
  ON_Interval m_t{0, 1};
};
