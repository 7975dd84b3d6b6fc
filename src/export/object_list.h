#pragma once

#include <vector>

#include "host/document/doc.h"
#include "settings/render_settings.h"

namespace orv {

// The objects of the document that an export works on, in the document's order: every light, hidden
// ones too, and every visible object. With `selectedOnly` other objects than lights count only when
// they are selected; a bake pass takes the unselected ones all the same, because they shade and
// shadow the others.
using ObjectList = std::vector<CRhinoObject*>;
ObjectList GatherObjects(CRhinoDoc& doc, bool selectedOnly, const RenderSettings& settings);

// The objects that a bake pass makes maps of, hidden ones too, with every light. With
// `selectedOnly` only the selected objects.
ObjectList GatherBakeObjects(CRhinoDoc& doc, bool selectedOnly);

}  // namespace orv
