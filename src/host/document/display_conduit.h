#pragma once

#include <memory>

#include "host/document/listener_list.h"

class CRhinoView;

// What a conduit is told of a view.
enum class CRhinoConduitEvent {
  // The view is shown anew, as after its camera has moved.
  view_changed = 7,
};

// Is told when a view of the open document is shown anew, at once and on the thread that did it.
class CRhinoDisplayConduit {
 public:
  CRhinoDisplayConduit() = default;
  // Disables.
  virtual ~CRhinoDisplayConduit();
  CRhinoDisplayConduit(const CRhinoDisplayConduit&) = delete;
  CRhinoDisplayConduit& operator=(const CRhinoDisplayConduit&) = delete;

  // A conduit hears of views from the first Enable on, and not while it is disabled.
  void Enable();
  void Disable() { enabled_ = false; }
  bool IsEnabled() const { return enabled_; }

  virtual void NotifyConduit(CRhinoConduitEvent event, CRhinoView& view) = 0;

 private:
  // Where it is registered; null before. Shared, as a conduit may outlive the application.
  std::shared_ptr<ListenerList<CRhinoDisplayConduit>> list_;
  bool enabled_ = false;
};
