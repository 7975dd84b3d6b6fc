#pragma once

#include <memory>

#include "host/document/listener_list.h"

class CRhinoDoc;
class CRhinoLayerTable;
class CRhinoLightTable;
class CRhinoMaterialTable;
class CRhinoObject;
class ON_3dmObjectAttributes;
class ON_Layer;
class ON_Light;
class ON_Material;

// What happened to a record of a table. The values are the host's.
enum class CRhinoTableEvent : int { added = 0, deleted = 1, undeleted = 2, modified = 3 };

// Is told of changes of the open document, at once and on the thread that made them, whether a
// command, a plug-in, Undo or Redo made them. Loading or importing a document tells nothing.
//
// Its operations may edit the document, and register, unregister or destroy any watcher, itself
// included. They can't undo or redo, nor open or import a document. An edit that is made in one is
// told to all watchers before the rest of them hears of the first. A watcher that is registered in
// one hears of the next event.
class CRhinoEventWatcher {
 public:
  CRhinoEventWatcher() = default;
  // Unregisters.
  virtual ~CRhinoEventWatcher();
  CRhinoEventWatcher(const CRhinoEventWatcher&) = delete;
  CRhinoEventWatcher& operator=(const CRhinoEventWatcher&) = delete;

  // Puts the watcher behind the registered ones; once is enough.
  void Register();
  void Unregister();
  // A watcher hears of events while it is registered and enabled; it is not enabled at first.
  void Enable(bool enable = true) { enabled_ = enable; }
  bool IsEnabled() const { return enabled_; }

  // The record stands at `index` of the table, unless it is deleted. The old record is what stood
  // there before; null for one that was added or undeleted. It is valid during the call only. That
  // a material was deleted isn't told where another one has been added in its place meanwhile.
  virtual void LayerTableEvent(CRhinoTableEvent /*event*/, const CRhinoLayerTable& /*table*/,
                               int /*index*/, const ON_Layer* /*old_layer*/) {}
  virtual void LightTableEvent(CRhinoTableEvent /*event*/, const CRhinoLightTable& /*table*/,
                               int /*index*/, const ON_Light* /*old_light*/) {}
  virtual void MaterialTableEvent(CRhinoTableEvent /*event*/, const CRhinoMaterialTable& /*table*/,
                                  int /*index*/, const ON_Material* /*old_material*/) {}
  // Also when the object was hidden or shown.
  virtual void OnModifyObjectAttributes(CRhinoDoc& /*doc*/, CRhinoObject& /*object*/,
                                        const ON_3dmObjectAttributes& /*old_attributes*/) {}

 private:
  // Where it is registered; null when it isn't. Shared, as a watcher may outlive the application.
  std::shared_ptr<ListenerList<CRhinoEventWatcher>> list_;
  bool enabled_ = false;
};
