#pragma once

#include <memory>

#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_subd.h"

// Extrusions and SubDs for tests and examples.

// A closed line of straight pieces through the corners, in the domain 0 to their count.
std::unique_ptr<ON_Curve> MakePolygon(const std::vector<ON_3dPoint>& corners);
// A block of 10 x 8 x 6 with a round hole of radius 2 along the z axis, capped. The block begins at
// the world's origin.
std::unique_ptr<ON_Extrusion> MakeDrilledBlock();
// The control net of a closed SubD, the corners and sides of a box. The edges around its bottom are
// a crease.
ON_SubD MakeSubDBox(const ON_BoundingBox& box);
