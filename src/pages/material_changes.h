#pragma once

#include <string_view>

#include "shading/material_attributes.h"

class CRhinoDoc;

namespace orv {

class InteractiveRender;

// What happens to the materials of all selected objects. Lights have none.

inline constexpr std::string_view kMaterialUndo = "Orv Material change";

// A record whose marks are all set.
MaterialAttributes WithAllMarks(MaterialAttributes attributes);
// Sets the fields that `change` marks.
void TakeChanges(const MaterialAttributes& change, MaterialAttributes& attributes);

// Stores what is marked, as one record for Undo.
void StoreMaterialChange(CRhinoDoc& doc, const MaterialAttributes& change);
// Tells a live session of the objects when the change may be seen.
void SendMaterialChange(CRhinoDoc& doc, const MaterialAttributes& change, InteractiveRender& live);

enum class NewMaterialsFor { allObjects, objectsWithoutTheirOwn };
// Gives each of these objects a copy of the host's default material. True when there was any.
bool GiveNewMaterials(CRhinoDoc& doc, NewMaterialsFor objects);

// Selects all objects whose materials look and are called like this one. Objects that were
// selected stay so.
void SelectMatchingObjects(CRhinoDoc& doc, const MaterialAttributes& attributes);

}  // namespace orv
