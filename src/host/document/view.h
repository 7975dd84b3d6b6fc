#pragma once

#include <string>

#include "host/geometry/on_settings.h"

// What a view looks through.
class CRhinoViewport {
 public:
  explicit CRhinoViewport(ON_3dmView view) : view_(std::move(view)) {}

  const std::string& Name() const { return view_.m_name; }
  // Never nil, and no other view's of the document.
  const ON_UUID& ViewportId() const { return view_.m_vp.m_id; }
  // Its port is at least one pixel wide and high, with its bottom below its top as in window
  // coordinates; its camera frame and frustum are valid.
  const ON_Viewport& VP() const { return view_.m_vp; }
  // The viewport's own target, or else the view's.
  ON_3dPoint Target() const { return view_.m_vp.m_target.value_or(view_.m_target); }
  const ON_3dmView& View() const { return view_; }
  // Takes the camera, target and projection of a named view; name, id and size stay. What the named
  // view shows is seen whole, whatever the shape of this one.
  void SetFromNamedView(const ON_3dmView& named_view);
  // Looks from `location` to `target`; what is up stays so, as far as it can. False, and nothing
  // changed, when the two are the same or no points.
  [[nodiscard]] bool SetCamera(ON_3dPoint location, ON_3dPoint target);
  // The lens of a perspective view as the length in millimetres that a 35 mm camera would have.
  // False for a parallel view and a length that isn't positive.
  [[nodiscard]] bool SetCamera35mmLensLength(double length);
  // Shows the target in the same size as before.
  void SetProjection(ON_Viewport::View projection);
  // Moves the near and far planes of a perspective view apart so that `box` lies between them, as
  // far as it stands before the camera. What the view shows stays in its place.
  void IncludeInDepth(const ON_BoundingBox& box);

 private:
  ON_3dmView view_;
};

// A window of the document.
class CRhinoView {
 public:
  explicit CRhinoView(ON_3dmView view) : viewport_(std::move(view)) {}

  CRhinoViewport& Viewport() { return viewport_; }
  const CRhinoViewport& Viewport() const { return viewport_; }
  // Shows the view anew, after its viewport has changed: display conduits are told.
  void Redraw();
  bool IsPage() const { return viewport_.View().m_view_type == 1; }

 private:
  CRhinoViewport viewport_;
};
