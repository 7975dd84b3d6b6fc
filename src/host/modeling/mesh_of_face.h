#pragma once

#include <memory>

#include "host/geometry/on_mesh.h"
#include "host/modeling/occt_shape.h"

namespace host {

// The triangles that Open CASCADE has made of a face, as a mesh of the model; null when there are
// none. `is_reversed` says that the brep's face looks to the other side than its surface.
[[nodiscard]] std::shared_ptr<const ON_Mesh> MeshOfFace(const BrepShape::Face& face,
                                                        const ModelFrame& frame,
                                                        const ON_Surface& surface,
                                                        bool is_reversed);

}  // namespace host
