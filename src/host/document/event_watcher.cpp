#include "host/document/event_watcher.h"

#include "host/document/app.h"

CRhinoEventWatcher::~CRhinoEventWatcher() {
  Unregister();
}

void CRhinoEventWatcher::Register() {
  if (list_ != nullptr) return;
  list_ = RhinoApp().EventWatchers();
  list_->Add(*this);
}

void CRhinoEventWatcher::Unregister() {
  if (list_ == nullptr) return;
  list_->Remove(*this);
  list_.reset();
}
