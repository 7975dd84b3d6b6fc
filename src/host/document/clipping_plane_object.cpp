#include "host/document/clipping_plane_object.h"

#include <algorithm>

const CRhinoClippingPlaneObject* CRhinoClippingPlaneObject::Cast(const CRhinoObject* object) {
  return dynamic_cast<const CRhinoClippingPlaneObject*>(object);
}

bool CRhinoClippingPlaneObject::ClipsViewport(const ON_UUID& viewport_id) const {
  const ON_ClippingPlaneSurface& surface = Surface();
  const std::vector<ON_UUID>& ids = surface.m_viewport_ids;
  return surface.m_bEnabled && std::find(ids.begin(), ids.end(), viewport_id) != ids.end();
}

const ON_ClippingPlaneSurface& CRhinoClippingPlaneObject::Surface() const {
  return static_cast<const ON_ClippingPlaneSurface&>(*Geometry());
}
