#pragma once

#include <vector>

#include "host/command/command.h"

class CRhinoObject;

namespace orv {

// Asks for the objects whose attributes a command edits: points, point clouds, curves, surfaces,
// polysurfaces, meshes and blocks. The selected ones are taken. Success with at least one object;
// otherwise what the command is to give back.
[[nodiscard]] CommandResult GetObjectsToEdit(CRhinoCommandContext& context,
                                             std::vector<CRhinoObject*>& objects);

}  // namespace orv
