#pragma once

#include "host/document/view.h"
#include "side_export/vrml_stream.h"

namespace orv {

// The camera of a perspective view as a Viewpoint; nothing for a parallel view.
void WriteViewpoint(VrmlStream& stream, const CRhinoViewport& viewport);

}  // namespace orv
