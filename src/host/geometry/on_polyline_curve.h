#pragma once

#include "host/geometry/on_array.h"
#include "host/geometry/on_curve.h"

// Straight lines from point to point.
class ON_PolylineCurve : public ON_Curve {
 public:
  static const ON_PolylineCurve* Cast(const ON_Object* object);

  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain() const override { return {m_t.front(), m_t.back()}; }
  ON_3dPoint PointAt(double t) const override;
  void Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const override;
  // At least four points, the last one where the first one is.
  bool IsClosed() const override;
  int IsPolyline(std::vector<ON_3dPoint>* points = nullptr) const override;
  bool GetLength(double* length, double fractional_tolerance = 1e-8) const override;
  bool GetNurbForm(ON_NurbsCurve& form) const override;

  // At least two points, and the parameter of each, which increase.
  ON_SimpleArray<ON_3dPoint> m_pline;
  ON_SimpleArray<double> m_t;
};
