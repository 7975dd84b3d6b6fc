#include "host/geometry/on_plane_surface.h"

#include "host/geometry/on_brep.h"
#include "host/geometry/on_nurbs_surface.h"

const ON_PlaneSurface* ON_PlaneSurface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_PlaneSurface*>(object);
}

ON_BoundingBox ON_PlaneSurface::BoundingBox() const {
  ON_BoundingBox box;
  for (const double x : {m_extents[0].Min, m_extents[0].Max}) {
    for (const double y : {m_extents[1].Min, m_extents[1].Max}) box.Include(m_plane.PointAt(x, y));
  }
  return box;
}

bool ON_PlaneSurface::IsValid() const {
  const ON_3dPoint origin{0, 0, 0};
  const ON_3dVector normal = ON_CrossProduct(m_plane.xaxis, m_plane.yaxis);
  return m_plane.origin.IsValid() && (origin + m_plane.xaxis).IsValid() &&
         (origin + m_plane.yaxis).IsValid() && normal.Length() > 0 && m_domain[0].IsIncreasing() &&
         m_domain[1].IsIncreasing() && m_extents[0].IsIncreasing() && m_extents[1].IsIncreasing();
}

ON_3dPoint ON_PlaneSurface::PointAt(double u, double v) const {
  return m_plane.PointAt(m_extents[0].ParameterAt(m_domain[0].NormalizedParameterAt(u)),
                         m_extents[1].ParameterAt(m_domain[1].NormalizedParameterAt(v)));
}

void ON_PlaneSurface::Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
                             ON_3dVector* dv) const {
  *point = PointAt(u, v);
  *du = m_plane.xaxis * (m_extents[0].Length() / m_domain[0].Length());
  *dv = m_plane.yaxis * (m_extents[1].Length() / m_domain[1].Length());
}

bool ON_PlaneSurface::GetNurbForm(ON_NurbsSurface& form) const {
  ON_SimpleArray<ON_4dPoint> cvs;
  for (const double x : {m_extents[0].Min, m_extents[0].Max}) {
    for (const double y : {m_extents[1].Min, m_extents[1].Max}) {
      cvs.push_back(ON_NurbsCurve::Unweighted(m_plane.PointAt(x, y)));
    }
  }
  form.Create({2, 2}, {{{m_domain[0].Min, m_domain[0].Max}, {m_domain[1].Min, m_domain[1].Max}}},
              std::move(cvs), false);
  return form.IsValid();
}

std::unique_ptr<ON_Surface> ON_PlaneSurface::DuplicateSurface() const {
  return std::make_unique<ON_PlaneSurface>(*this);
}

const ON_ClippingPlaneSurface* ON_ClippingPlaneSurface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_ClippingPlaneSurface*>(object);
}

std::unique_ptr<ON_Brep> ON_ClippingPlaneSurface::BrepForm() const {
  return nullptr;
}

std::unique_ptr<ON_Surface> ON_ClippingPlaneSurface::DuplicateSurface() const {
  return std::make_unique<ON_ClippingPlaneSurface>(*this);
}
