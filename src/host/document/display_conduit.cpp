#include "host/document/display_conduit.h"

#include "host/document/app.h"

CRhinoDisplayConduit::~CRhinoDisplayConduit() {
  if (list_ != nullptr) list_->Remove(*this);
}

void CRhinoDisplayConduit::Enable() {
  enabled_ = true;
  if (list_ != nullptr) return;
  list_ = RhinoApp().DisplayConduits();
  list_->Add(*this);
}
