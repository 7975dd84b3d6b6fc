#pragma once

#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <vector>

#include "host/geometry/on_brep.h"
#include "host/modeling/occt_geometry.h"

namespace host {

// A brep as a shape of Open CASCADE.
struct BrepShape {
  struct Face {
    // Null when it could not be made. Looks where its surface does, whatever the brep says.
    TopoDS_Face face;
    FrameSurface surface;
  };

  ModelFrame frame;
  // As many as the brep has.
  std::vector<Face> faces;
  // Those that could be made.
  TopoDS_Compound all;
};

// The brep must be valid, with a box that is not a point. Faces that share a vertex or an edge
// share it in the shape too, so that they are divided alike there.
[[nodiscard]] BrepShape MakeBrepShape(const ON_Brep& brep, const ON_BoundingBox& box);

}  // namespace host
