#include "host/command/plugin.h"

namespace {

// A module's plug-in object makes itself known by its constructor, which runs while the module is
// being opened. There is no other way to hand it over, as no export gives it.
CRhinoFileExportPlugIn* last_made = nullptr;

}  // namespace

CRhinoFileExportPlugIn::CRhinoFileExportPlugIn() {
  last_made = this;
}

CRhinoFileExportPlugIn::~CRhinoFileExportPlugIn() {
  if (last_made == this) last_made = nullptr;
}

CRhinoFileExportPlugIn* CRhinoFileExportPlugIn::TakeLastMade() {
  CRhinoFileExportPlugIn* plug_in = last_made;
  last_made = nullptr;
  return plug_in;
}
