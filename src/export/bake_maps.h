#pragma once

#include <string>
#include <string_view>

#include "export/object_list.h"
#include "export/rib_writer.h"
#include "host/document/object.h"
#include "settings/render_settings.h"

namespace orv {

// True for a brep or a mesh that isn't hidden itself. One on a layer that is off counts, too.
bool CanBeBaked(const CRhinoObject& object);

// The file of one map of an object, by the pattern ImageName and with forward slashes.
std::string BakeMapName(const RenderSettings& settings, const CRhinoObject& object,
                        std::string_view suffix);

// The files of all maps that are made of an object, with commas between them; empty without maps.
std::string BakeMapList(const RenderSettings& settings, const CRhinoObject& object);

// What a pass that bakes maps produces, in place of an image: the greatest size, the maps of each
// object, and their border.
void WriteBakeOutput(RibWriter& writer, RenderSettings& settings, const ObjectList& bakeObjects);

// The maps of each object that can be baked: their size and a Display for each. An object whose
// size can't be told has none. Their number becomes BakeDisplayCount.
void WriteBakeDisplays(RibWriter& writer, RenderSettings& settings, const ObjectList& bakeObjects);

}  // namespace orv
