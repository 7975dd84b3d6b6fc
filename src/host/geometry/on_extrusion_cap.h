#pragma once

#include <span>

#include "host/geometry/on_brep.h"

// The rectangle of the plane that closes an end of an extrusion, from the boxes of its trims.

// A little more than the outer boundary takes, or just that much when it runs along the axes all
// around.
ON_BoundingBox ON_CapRectangle(std::span<const ON_BoundingBox> outer_trims);
// How a trim runs over the rectangle.
ON_BrepTrim::Iso ON_IsoInRectangle(const ON_BoundingBox& trim, const ON_BoundingBox& rectangle);
