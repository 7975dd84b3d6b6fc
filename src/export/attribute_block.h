#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"
#include "shading/object_attributes.h"

class CRhinoDoc;
class CRhinoObject;

namespace orv {

// Writes the groups of an object, where it has any.
void WriteGroups(RibWriter& writer, const CRhinoObject& object, const CRhinoDoc& doc);

// Writes what an object's own attributes say: visibility, sides, ink, flatness, kind of curves,
// archive and mesh file. True when an archive takes the object's place and no geometry must follow.
[[nodiscard]] bool WriteAttributeBlock(RibWriter& writer, const CRhinoObject& object,
                                       const ObjectAttributes& attributes,
                                       const RenderSettings& settings);

}  // namespace orv
