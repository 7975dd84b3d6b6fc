#include "host/geometry/on_plane_surface.h"

ON_BoundingBox ON_PlaneSurface::BoundingBox() const {
  ON_BoundingBox box;
  for (const double x : {m_extents[0].Min, m_extents[0].Max}) {
    for (const double y : {m_extents[1].Min, m_extents[1].Max}) box.Include(m_plane.PointAt(x, y));
  }
  return box;
}

const ON_ClippingPlaneSurface* ON_ClippingPlaneSurface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_ClippingPlaneSurface*>(object);
}
