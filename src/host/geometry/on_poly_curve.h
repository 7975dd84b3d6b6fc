#pragma once

#include <memory>

#include "host/geometry/on_array.h"
#include "host/geometry/on_curve.h"

// Curves one behind the other. A segment may be a polycurve itself.
class ON_PolyCurve : public ON_Curve {
 public:
  static const ON_PolyCurve* Cast(const ON_Object* object);

  ON_BoundingBox BoundingBox() const override;
  bool IsValid() const override;
  ON_Interval Domain() const override { return {m_t.front(), m_t.back()}; }
  ON_3dPoint PointAt(double t) const override;
  void Ev1Der(double t, ON_3dPoint* point, ON_3dVector* derivative) const override;
  // A polyline when all segments are. Where two of them meet stands the point of the second.
  int IsPolyline(std::vector<ON_3dPoint>* points = nullptr) const override;
  bool GetLength(double* length, double fractional_tolerance = 1e-8) const override;
  // In the order of the highest segment; where segments meet, as many knots as that needs.
  bool GetNurbForm(ON_NurbsCurve& form) const override;

  // At least one segment, and the parameters at which each begins, with the end of the last one.
  // They increase; the domains of the segments themselves don't count.
  std::vector<std::unique_ptr<ON_Curve>> m_segment;
  ON_SimpleArray<double> m_t;
};
