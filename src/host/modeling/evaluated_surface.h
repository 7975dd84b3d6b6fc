#pragma once

#include <Geom_Surface.hxx>
#include <memory>

#include "host/modeling/occt_geometry.h"

namespace host {

// A surface that Open CASCADE doesn't know, as one that it evaluates: so that its parameters stay
// as they are, which the NURBS form of a turned curve doesn't do. It has what the mesher asks for;
// there are no derivatives above the second.
class EvaluatedSurface : public Geom_Surface {
 public:
  // `chart` says how the parameters are put; its surface isn't used.
  EvaluatedSurface(std::shared_ptr<const ON_Surface> surface, const ModelFrame& frame,
                   FrameSurface chart);

  void UReverse() override;
  Standard_Real UReversedParameter(Standard_Real u) const override;
  void VReverse() override;
  Standard_Real VReversedParameter(Standard_Real v) const override;
  void Bounds(Standard_Real& u1, Standard_Real& u2, Standard_Real& v1,
              Standard_Real& v2) const override;
  Standard_Boolean IsUClosed() const override { return surface_->IsClosed(0); }
  Standard_Boolean IsVClosed() const override { return surface_->IsClosed(1); }
  Standard_Boolean IsUPeriodic() const override { return false; }
  Standard_Boolean IsVPeriodic() const override { return false; }
  Handle(Geom_Curve) UIso(Standard_Real u) const override;
  Handle(Geom_Curve) VIso(Standard_Real v) const override;
  GeomAbs_Shape Continuity() const override { return GeomAbs_C0; }
  Standard_Boolean IsCNu(Standard_Integer n) const override { return n <= 0; }
  Standard_Boolean IsCNv(Standard_Integer n) const override { return n <= 0; }
  void D0(Standard_Real u, Standard_Real v, gp_Pnt& p) const override;
  void D1(Standard_Real u, Standard_Real v, gp_Pnt& p, gp_Vec& du, gp_Vec& dv) const override;
  void D2(Standard_Real u, Standard_Real v, gp_Pnt& p, gp_Vec& du, gp_Vec& dv, gp_Vec& duu,
          gp_Vec& dvv, gp_Vec& duv) const override;
  void D3(Standard_Real u, Standard_Real v, gp_Pnt& p, gp_Vec& du, gp_Vec& dv, gp_Vec& duu,
          gp_Vec& dvv, gp_Vec& duv, gp_Vec& duuu, gp_Vec& dvvv, gp_Vec& duuv,
          gp_Vec& duvv) const override;
  gp_Vec DN(Standard_Real u, Standard_Real v, Standard_Integer nu,
            Standard_Integer nv) const override;
  void Transform(const gp_Trsf& transform) override;
  Handle(Geom_Geometry) Copy() const override;

 private:
  ON_Interval FrameDomain(int direction) const;

  std::shared_ptr<const ON_Surface> surface_;
  ModelFrame frame_;
  FrameSurface chart_;
};

}  // namespace host
