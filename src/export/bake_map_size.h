#pragma once

#include "host/document/object.h"

namespace orv {

// Halves `width` and `height` as long as the map of an object still has enough texels: for the mean
// length that the texture covers along each of its coordinates, and a third more, in texels of
// `texelSize` model units. A texel size of 0, or one that is no number, leaves the size as it is.
// False, and nothing changed, when the object's render meshes have no edges along both coordinates.
[[nodiscard]] bool FitBakeMapSize(const CRhinoObject& object, double texelSize, int& width,
                                  int& height);

}  // namespace orv
