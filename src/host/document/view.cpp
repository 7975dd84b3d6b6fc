#include "host/document/view.h"

#include <algorithm>
#include <cmath>

#include "host/document/app.h"
#include "host/document/default_views.h"

namespace {

void ScaleFrustumSides(ON_Viewport::Frustum& frustum, double factor) {
  for (double* side : {&frustum.left, &frustum.right, &frustum.bottom, &frustum.top}) {
    *side *= factor;
  }
}

}  // namespace

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

bool CRhinoViewport::SetCamera(ON_3dPoint location, ON_3dPoint target) {
  const ON_3dVector direction = target - location;
  for (const ON_3dVector up : {view_.m_vp.m_up, ON_3dVector{0, 0, 1}, ON_3dVector{0, 1, 0}}) {
    if (!view_.m_vp.SetCameraFrame(location, direction, up)) continue;
    view_.m_target = target;
    if (view_.m_vp.m_target) view_.m_vp.m_target = target;
    return true;
  }
  return false;
}

bool CRhinoViewport::SetCamera35mmLensLength(double length) {
  const bool isPerspective = view_.m_vp.m_projection == ON_Viewport::View::perspective;
  const double present = view_.m_vp.Camera35mmLensLength();
  if (!isPerspective || !(length > 0) || !std::isfinite(length) || !(present > 0)) return false;
  ScaleFrustumSides(view_.m_vp.m_frustum, present / length);
  return true;
}

void CRhinoViewport::SetProjection(ON_Viewport::View projection) {
  ON_Viewport& vp = view_.m_vp;
  if (vp.m_projection == projection) return;
  vp.m_projection = projection;
  const double distance = ON_DotProduct(vp.m_location - Target(), vp.m_z);
  if (!(distance > 0)) return;
  // A parallel view may reach behind its camera; one in perspective begins before it.
  constexpr double kNearestPart = 0.01;
  if (projection == ON_Viewport::View::perspective) {
    if (!(vp.m_frustum.near > 0)) vp.m_frustum.near = distance * kNearestPart;
    vp.m_frustum.far = std::max(vp.m_frustum.far, 2 * distance);
    ScaleFrustumSides(vp.m_frustum, vp.m_frustum.near / distance);
  } else {
    ScaleFrustumSides(vp.m_frustum, distance / vp.m_frustum.near);
  }
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
  f.near *= change;
  ScaleFrustumSides(f, change);
}

void CRhinoView::Redraw() {
  RhinoApp().DisplayConduits()->Raise([this](CRhinoDisplayConduit& conduit) {
    conduit.NotifyConduit(CRhinoConduitEvent::view_changed, *this);
  });
}
