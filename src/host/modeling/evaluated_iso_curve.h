#pragma once

#include <Geom_Curve.hxx>
#include <Geom_Surface.hxx>

#include "host/geometry/on_point.h"

namespace host {

// The curve in an evaluated surface along which the parameter of one direction runs.
class EvaluatedIsoCurve : public Geom_Curve {
 public:
  // Along `direction` through its `domain`, where the other parameter is `constant`.
  EvaluatedIsoCurve(Handle(Geom_Surface) surface, int direction, double constant,
                    ON_Interval domain);

  void Reverse() override;
  Standard_Real ReversedParameter(Standard_Real t) const override {
    return domain_.Min + domain_.Max - t;
  }
  Standard_Real FirstParameter() const override { return domain_.Min; }
  Standard_Real LastParameter() const override { return domain_.Max; }
  Standard_Boolean IsClosed() const override;
  Standard_Boolean IsPeriodic() const override { return false; }
  GeomAbs_Shape Continuity() const override { return GeomAbs_C0; }
  Standard_Boolean IsCN(Standard_Integer n) const override { return n <= 0; }
  void D0(Standard_Real t, gp_Pnt& p) const override;
  void D1(Standard_Real t, gp_Pnt& p, gp_Vec& d1) const override;
  void D2(Standard_Real t, gp_Pnt& p, gp_Vec& d1, gp_Vec& d2) const override;
  void D3(Standard_Real t, gp_Pnt& p, gp_Vec& d1, gp_Vec& d2, gp_Vec& d3) const override;
  gp_Vec DN(Standard_Real t, Standard_Integer n) const override;
  void Transform(const gp_Trsf& transform) override;
  Handle(Geom_Geometry) Copy() const override;

 private:
  double UAt(double t) const { return direction_ == 0 ? t : constant_; }
  double VAt(double t) const { return direction_ == 0 ? constant_ : t; }

  Handle(Geom_Surface) surface_;
  int direction_;
  double constant_;
  ON_Interval domain_;
};

}  // namespace host
