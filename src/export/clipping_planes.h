#pragma once

#include "export/object_list.h"
#include "export/rib_writer.h"
#include "host/document/view.h"

namespace orv {

// The clipping planes that cut the view. One with a coordinate that is unset or no number is left
// out.
void WriteClippingPlanes(RibWriter& writer, const CRhinoView& view, const ObjectList& objects);

}  // namespace orv
