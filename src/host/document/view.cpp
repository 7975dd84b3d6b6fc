#include "host/document/view.h"

#include <algorithm>

#include "host/document/app.h"
#include "host/document/default_views.h"

void CRhinoViewport::SetFromNamedView(const ON_3dmView& named_view) {
  const ON_UUID id = view_.m_vp.m_id;
  const ON_Viewport::ScreenPort port = view_.m_vp.m_port;
  ON_3dmView source = named_view;
  CompleteView(source, {});
  view_.m_vp = source.m_vp;
  view_.m_target = source.m_target;
  view_.m_vp.m_id = id;
  view_.m_vp.m_port = port;
  FitFrustumToPort(view_.m_vp);
}

void CRhinoViewport::IncludeInDepth(const ON_BoundingBox& box) {
  ON_Viewport& vp = view_.m_vp;
  if (vp.m_projection != ON_Viewport::View::perspective || !box.IsValid()) return;
  // The nearest that the near plane comes, as a part of the far distance.
  constexpr double kNearestPart = 1e-4;
  ON_Viewport::Frustum& f = vp.m_frustum;
  double nearest = f.near;
  for (const ON_3dPoint& corner : box.GetCorners()) {
    const double depth = ON_DotProduct(vp.m_location - corner, vp.m_z);
    nearest = std::min(nearest, depth);
    f.far = std::max(f.far, depth);
  }
  const double change = std::min(1.0, std::max(nearest, f.far * kNearestPart) / f.near);
  for (double* side : {&f.left, &f.right, &f.bottom, &f.top, &f.near}) *side *= change;
}

void CRhinoView::Redraw() {
  RhinoApp().DisplayConduits()->Raise([this](CRhinoDisplayConduit& conduit) {
    conduit.NotifyConduit(CRhinoConduitEvent::view_changed, *this);
  });
}
