#include "host/modeling/evaluated_surface.h"

#include <Standard_NotImplemented.hxx>
#include <algorithm>

#include "host/modeling/evaluated_iso_curve.h"

namespace host {
namespace {

gp_Vec Difference(const gp_Vec& a, const gp_Vec& b, double width) {
  return (b - a) / width;
}

}  // namespace

EvaluatedSurface::EvaluatedSurface(std::shared_ptr<const ON_Surface> surface,
                                   const ModelFrame& frame, FrameSurface chart)
    : surface_(std::move(surface)), frame_(frame), chart_(std::move(chart)) {}

ON_Interval EvaluatedSurface::FrameDomain(int direction) const {
  const auto d = static_cast<std::size_t>(direction);
  const ON_Interval domain = surface_->Domain(direction);
  return {(domain.Min - chart_.origin[d]) * chart_.scale[d],
          (domain.Max - chart_.origin[d]) * chart_.scale[d]};
}

void EvaluatedSurface::Bounds(Standard_Real& u1, Standard_Real& u2, Standard_Real& v1,
                              Standard_Real& v2) const {
  const ON_Interval u = FrameDomain(0);
  const ON_Interval v = FrameDomain(1);
  u1 = u.Min;
  u2 = u.Max;
  v1 = v.Min;
  v2 = v.Max;
}

void EvaluatedSurface::D0(Standard_Real u, Standard_Real v, gp_Pnt& p) const {
  const ON_2dPoint at = chart_.FromFrame(u, v);
  p = frame_.ToFrame(surface_->PointAt(at.x, at.y));
}

void EvaluatedSurface::D1(Standard_Real u, Standard_Real v, gp_Pnt& p, gp_Vec& du,
                          gp_Vec& dv) const {
  const ON_2dPoint at = chart_.FromFrame(u, v);
  ON_3dPoint point;
  ON_3dVector u_slope;
  ON_3dVector v_slope;
  surface_->Ev1Der(at.x, at.y, &point, &u_slope, &v_slope);
  u_slope = u_slope * (frame_.scale / chart_.scale[0]);
  v_slope = v_slope * (frame_.scale / chart_.scale[1]);
  p = frame_.ToFrame(point);
  du = gp_Vec(u_slope.x, u_slope.y, u_slope.z);
  dv = gp_Vec(v_slope.x, v_slope.y, v_slope.z);
}

// Second derivatives as differences of first ones, inside the domain.
void EvaluatedSurface::D2(Standard_Real u, Standard_Real v, gp_Pnt& p, gp_Vec& du, gp_Vec& dv,
                          gp_Vec& duu, gp_Vec& dvv, gp_Vec& duv) const {
  constexpr double kStep = 1e-5;
  const ON_Interval u_domain = FrameDomain(0);
  const ON_Interval v_domain = FrameDomain(1);
  const double u_step = u_domain.Length() * kStep;
  const double v_step = v_domain.Length() * kStep;
  const double u_mid = std::clamp(u, u_domain.Min + u_step, u_domain.Max - u_step);
  const double v_mid = std::clamp(v, v_domain.Min + v_step, v_domain.Max - v_step);
  gp_Vec du_before;
  gp_Vec du_behind;
  gp_Vec dv_before;
  gp_Vec dv_behind;
  gp_Vec unused;
  D1(u_mid - u_step, v, p, du_before, unused);
  D1(u_mid + u_step, v, p, du_behind, unused);
  duu = Difference(du_before, du_behind, 2 * u_step);
  D1(u, v_mid - v_step, p, du_before, dv_before);
  D1(u, v_mid + v_step, p, du_behind, dv_behind);
  dvv = Difference(dv_before, dv_behind, 2 * v_step);
  duv = Difference(du_before, du_behind, 2 * v_step);
  D1(u, v, p, du, dv);
}

gp_Vec EvaluatedSurface::DN(Standard_Real u, Standard_Real v, Standard_Integer nu,
                            Standard_Integer nv) const {
  if (nu < 0 || nv < 0 || nu + nv < 1 || nu + nv > 2) {
    throw Standard_NotImplemented("derivatives above the second");
  }
  gp_Pnt p;
  gp_Vec du;
  gp_Vec dv;
  gp_Vec duu;
  gp_Vec dvv;
  gp_Vec duv;
  D2(u, v, p, du, dv, duu, dvv, duv);
  if (nu + nv == 1) return nu == 1 ? du : dv;
  return nu == 2 ? duu : nv == 2 ? dvv : duv;
}

// What the mesher doesn't ask for.

void EvaluatedSurface::D3(Standard_Real, Standard_Real, gp_Pnt&, gp_Vec&, gp_Vec&, gp_Vec&, gp_Vec&,
                          gp_Vec&, gp_Vec&, gp_Vec&, gp_Vec&, gp_Vec&) const {
  throw Standard_NotImplemented("third derivatives");
}

void EvaluatedSurface::UReverse() {
  throw Standard_NotImplemented("reversing");
}

void EvaluatedSurface::VReverse() {
  throw Standard_NotImplemented("reversing");
}

Standard_Real EvaluatedSurface::UReversedParameter(Standard_Real u) const {
  const ON_Interval domain = FrameDomain(0);
  return domain.Min + domain.Max - u;
}

Standard_Real EvaluatedSurface::VReversedParameter(Standard_Real v) const {
  const ON_Interval domain = FrameDomain(1);
  return domain.Min + domain.Max - v;
}

Handle(Geom_Curve) EvaluatedSurface::UIso(Standard_Real u) const {
  return new EvaluatedIsoCurve(this, 1, u, FrameDomain(1));
}

Handle(Geom_Curve) EvaluatedSurface::VIso(Standard_Real v) const {
  return new EvaluatedIsoCurve(this, 0, v, FrameDomain(0));
}

void EvaluatedSurface::Transform(const gp_Trsf&) {
  throw Standard_NotImplemented("transforming");
}

Handle(Geom_Geometry) EvaluatedSurface::Copy() const {
  return new EvaluatedSurface(surface_, frame_, chart_);
}

}  // namespace host
