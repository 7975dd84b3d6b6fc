#pragma once

#include <vector>

#include "export/object_list.h"
#include "export/rib_writer.h"
#include "host/geometry/on_xform.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "shading/texture_converter.h"

namespace orv {

// One object of an export, or one piece of a block placement.
struct RIBRhinoObject {
  // What is written; for a piece, the object inside the block's definition.
  const CRhinoObject* Object = nullptr;
  // The block placement of a piece; null for a plain object.
  const CRhinoObject* Parent = nullptr;
  // Where a piece stands.
  ON_Xform Xform;
  bool IsPiece = false;
};

// The list of what is to be written, in the order of `objects`.
std::vector<RIBRhinoObject> FlattenObjects(const ObjectList& objects);

// Writes the block of each visible object, each with a blank line before it: groups, material,
// attributes and geometry. An interactive session (`iprSettings` not null) names objects by their
// runtime serial numbers. False when a writer has failed or the user has cancelled, even during the
// last object; an error of the stream ends the walk and is left to the closing.
[[nodiscard]] bool WriteObjects(RibWriter& writer, const CRhinoDoc& doc,
                                const std::vector<RIBRhinoObject>& objects,
                                const RenderSettings& settings, const IprSettings* iprSettings,
                                TextureConverter& textures);

}  // namespace orv
