#pragma once

#include "host/document/object.h"
#include "host/geometry/on_plane_surface.h"

// An object of the document that cuts views. Its geometry is an ON_ClippingPlaneSurface.
class CRhinoClippingPlaneObject : public CRhinoObject {
 public:
  using CRhinoObject::CRhinoObject;

  static const CRhinoClippingPlaneObject* Cast(const CRhinoObject* object);

  // True when it is switched on and cuts the viewport of that id.
  bool ClipsViewport(const ON_UUID& viewport_id) const;
  const ON_PlaneSurface& PlaneSurface() const { return Surface(); }

 private:
  const ON_ClippingPlaneSurface& Surface() const;
};
