#include "export/clipping_planes.h"

#include "export/coordinates.h"
#include "host/document/clipping_plane_object.h"

namespace orv {

void WriteClippingPlanes(RibWriter& writer, const CRhinoView& view, const ObjectList& objects) {
  const ON_UUID& viewportId = view.Viewport().ViewportId();
  for (const CRhinoObject* object : objects) {
    const auto* clippingPlane = CRhinoClippingPlaneObject::Cast(object);
    if (clippingPlane == nullptr || !clippingPlane->ClipsViewport(viewportId)) continue;
    const ON_Plane& plane = clippingPlane->PlaneSurface().m_plane;
    // The host keeps what its normal points to, the renderer cuts it off.
    const ON_3dVector normal = -plane.Normal();
    if (!AreCoordinates(plane.origin) || !AreCoordinates(normal)) continue;
    RibPrintf(writer, "ClippingPlane %g %g %g  %g %g %g\n", plane.origin.x, plane.origin.y,
              plane.origin.z, normal.x, normal.y, normal.z);
  }
}

}  // namespace orv
