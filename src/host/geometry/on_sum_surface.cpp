#include "host/geometry/on_sum_surface.h"

#include "host/geometry/on_nurbs_surface.h"

const ON_SumSurface* ON_SumSurface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_SumSurface*>(object);
}

ON_BoundingBox ON_SumSurface::BoundingBox() const {
  const ON_BoundingBox u = Curve(0).BoundingBox(), v = Curve(1).BoundingBox();
  ON_BoundingBox box;
  if (!u.IsValid() || !v.IsValid()) return box;
  box.Include(u.m_min + ON_FromOrigin(v.m_min) + m_basepoint);
  box.Include(u.m_max + ON_FromOrigin(v.m_max) + m_basepoint);
  return box;
}

bool ON_SumSurface::IsValid() const {
  const ON_3dPoint origin{0, 0, 0};
  return (origin + m_basepoint).IsValid() && m_curve[0] != nullptr && m_curve[0]->IsValid() &&
         m_curve[1] != nullptr && m_curve[1]->IsValid();
}

ON_3dPoint ON_SumSurface::PointAt(double u, double v) const {
  return Curve(0).PointAt(u) + ON_FromOrigin(Curve(1).PointAt(v)) + m_basepoint;
}

void ON_SumSurface::Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
                           ON_3dVector* dv) const {
  ON_3dPoint a, b;
  Curve(0).Ev1Der(u, &a, du);
  Curve(1).Ev1Der(v, &b, dv);
  *point = a + ON_FromOrigin(b) + m_basepoint;
}

bool ON_SumSurface::GetNurbForm(ON_NurbsSurface& form) const {
  ON_NurbsCurve u, v;
  if (!Curve(0).GetNurbForm(u) || !Curve(1).GetNurbForm(v)) return false;
  return form.CreateProduct(
      u, v, u.IsRational() || v.IsRational(), [&](const ON_4dPoint& a, const ON_4dPoint& b) {
        const double w = a.w * b.w;
        const ON_3dVector& base = m_basepoint;
        return ON_4dPoint{a.x * b.w + b.x * a.w + base.x * w, a.y * b.w + b.y * a.w + base.y * w,
                          a.z * b.w + b.z * a.w + base.z * w, w};
      });
}

std::unique_ptr<ON_Surface> ON_SumSurface::DuplicateSurface() const {
  return std::make_unique<ON_SumSurface>(*this);
}
