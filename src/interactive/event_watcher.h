#pragma once

#include "host/document/display_conduit.h"
#include "host/document/event_watcher.h"

namespace orv {

class InteractiveRender;

// Sends the changes of lights and materials of the document.
class OrvEventWatcher : public CRhinoEventWatcher {
 public:
  explicit OrvEventWatcher(InteractiveRender& render) : render_(render) {}

  void LightTableEvent(CRhinoTableEvent event, const CRhinoLightTable& table, int index,
                       const ON_Light* oldLight) override;
  void MaterialTableEvent(CRhinoTableEvent event, const CRhinoMaterialTable& table, int index,
                          const ON_Material* oldMaterial) override;

 private:
  InteractiveRender& render_;
};

// Sends the camera of the view that the renderer shows.
class COrvConduit : public CRhinoDisplayConduit {
 public:
  explicit COrvConduit(InteractiveRender& render) : render_(render) {}

  void NotifyConduit(CRhinoConduitEvent event, CRhinoView& view) override;

 private:
  InteractiveRender& render_;
};

}  // namespace orv
