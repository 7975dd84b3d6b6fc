#pragma once

#include <string_view>

#include "host/command/command.h"
#include "host/geometry/on_mesh_point.h"

// Asks for a point on a mesh: for a point in space, typed as "x,y,z" or "x,y", to which the mesh's
// closest one is taken. Cancel when none was given; failure when the answer can't be used, or the
// mesh has no face.
[[nodiscard]] CommandResult RhinoGetPointOnMesh(CRhinoCommandContext& context, const ON_Mesh& mesh,
                                                std::string_view prompt, ON_MESH_POINT& point);
