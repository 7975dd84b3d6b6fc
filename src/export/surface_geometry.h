#pragma once

#include <memory>
#include <vector>

#include "export/object_pieces.h"
#include "export/object_stream.h"
#include "host/geometry/on_brep.h"
#include "shading/object_attributes.h"

namespace orv {

// The brep form of a geometry: itself when it is a brep. Null when it has none.
std::shared_ptr<const ON_Brep> BrepFormOf(const ON_Geometry& geometry);

// Lets the host make the render meshes of all breps of the list at once, when the settings ask for
// meshes everywhere. Meshes that would have to be made one by one in the middle of the file are
// then there.
void PrepareRenderMeshes(const std::vector<RIBRhinoObject>& objects,
                         const RenderSettings& settings);

// Writes a surface object as render meshes or as NURBS. `brep` is its form. False when a writer has
// failed.
[[nodiscard]] bool WriteSurfaceGeometry(const ObjectStream& stream, const CRhinoObject& object,
                                        const ON_Brep& brep, const ObjectAttributes& attributes,
                                        bool wantsRenderMesh);

}  // namespace orv
