#pragma once

#include "host/document/object.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_settings.h"
#include "settings/render_settings.h"
#include "shading/object_attributes.h"

namespace orv {

// True when a surface object is written as the host's render meshes, false when it is written as
// NURBS. The object's own word comes first, then that of the scene. Where that leaves it open, it
// is a mesh only if the material needs one (`wantsRenderMesh`) and the texture coordinates of the
// mesh are not those that NURBS have: they are packed, by the first mesh that the document holds
// or, without one, by the parameters `quality` of those that would be made of several faces; or
// the user has given the object a texture mapping.
bool IsWrittenAsMesh(const CRhinoObject& object, const ON_Brep& brep,
                     const ObjectAttributes& attributes, const RenderSettings& settings,
                     bool wantsRenderMesh, const ON_MeshParameters& quality);

}  // namespace orv
