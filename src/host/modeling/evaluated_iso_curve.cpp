#include "host/modeling/evaluated_iso_curve.h"

#include <Standard_NotImplemented.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

namespace host {

EvaluatedIsoCurve::EvaluatedIsoCurve(Handle(Geom_Surface) surface, int direction, double constant,
                                     ON_Interval domain)
    : surface_(std::move(surface)), direction_(direction), constant_(constant), domain_(domain) {}

Standard_Boolean EvaluatedIsoCurve::IsClosed() const {
  return direction_ == 0 ? surface_->IsUClosed() : surface_->IsVClosed();
}

void EvaluatedIsoCurve::D0(Standard_Real t, gp_Pnt& p) const {
  surface_->D0(UAt(t), VAt(t), p);
}

void EvaluatedIsoCurve::D1(Standard_Real t, gp_Pnt& p, gp_Vec& d1) const {
  gp_Vec du;
  gp_Vec dv;
  surface_->D1(UAt(t), VAt(t), p, du, dv);
  d1 = direction_ == 0 ? du : dv;
}

void EvaluatedIsoCurve::D2(Standard_Real t, gp_Pnt& p, gp_Vec& d1, gp_Vec& d2) const {
  gp_Vec du;
  gp_Vec dv;
  gp_Vec duu;
  gp_Vec dvv;
  gp_Vec duv;
  surface_->D2(UAt(t), VAt(t), p, du, dv, duu, dvv, duv);
  d1 = direction_ == 0 ? du : dv;
  d2 = direction_ == 0 ? duu : dvv;
}

gp_Vec EvaluatedIsoCurve::DN(Standard_Real t, Standard_Integer n) const {
  return direction_ == 0 ? surface_->DN(UAt(t), VAt(t), n, 0) : surface_->DN(UAt(t), VAt(t), 0, n);
}

// What the mesher doesn't ask for.

void EvaluatedIsoCurve::D3(Standard_Real, gp_Pnt&, gp_Vec&, gp_Vec&, gp_Vec&) const {
  throw Standard_NotImplemented("third derivatives");
}

void EvaluatedIsoCurve::Reverse() {
  throw Standard_NotImplemented("reversing");
}

void EvaluatedIsoCurve::Transform(const gp_Trsf&) {
  throw Standard_NotImplemented("transforming");
}

Handle(Geom_Geometry) EvaluatedIsoCurve::Copy() const {
  return new EvaluatedIsoCurve(surface_, direction_, constant_, domain_);
}

}  // namespace host
