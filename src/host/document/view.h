#pragma once

#include <string>

#include "host/geometry/on_settings.h"

// What a view looks through.
class CRhinoViewport {
 public:
  explicit CRhinoViewport(ON_3dmView view) : view_(std::move(view)) {}

  const std::string& Name() const { return view_.m_name; }
  const ON_UUID& ViewportId() const { return view_.m_vp.m_id; }
  const ON_Viewport& VP() const { return view_.m_vp; }
  ON_3dPoint Target() const { return view_.m_target; }
  const ON_3dmView& View() const { return view_; }
  // Takes the camera, target and projection of a named view; name, id and size stay.
  void SetFromNamedView(const ON_3dmView& named_view);

 private:
  ON_3dmView view_;
};

// A window of the document.
class CRhinoView {
 public:
  explicit CRhinoView(ON_3dmView view) : viewport_(std::move(view)) {}

  CRhinoViewport& Viewport() { return viewport_; }
  const CRhinoViewport& Viewport() const { return viewport_; }
  bool IsPage() const { return viewport_.View().m_view_type == 1; }

 private:
  CRhinoViewport viewport_;
};
