#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_settings.h"

namespace host {

struct MadeMeshes {
  // One for each face that could be meshed, in the order of the faces.
  std::vector<std::shared_ptr<const ON_Mesh>> meshes;
  // The positions of the faces that could not.
  std::vector<int> failed_faces;
};

// Triangulates the faces of a brep as finely as `parameters` ask, but never coarser than a default
// tolerance that follows from the brep's size. Meshes of faces that share an edge have the same
// vertices along it. Vertices have unit normals, which point where the face looks, texture
// coordinates (the face's parameters, each from 0 to 1) and surface parameters.
[[nodiscard]] MadeMeshes MakeRenderMeshes(const ON_Brep& brep, const ON_MeshParameters& parameters);

}  // namespace host
