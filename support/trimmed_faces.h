#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_brep.h"

// Breps of trimmed faces for the tests and the benchmarks.

// A loop's curves in the parameters of the surface: each begins where the one before it ends, the
// first one where the last one does.
using TrimLoop = std::vector<std::shared_ptr<const ON_Curve>>;

// Straight trims from point to point, and back to the first one.
TrimLoop PolygonLoop(const std::vector<ON_2dPoint>& corners);
// One trim: a circle about a point, counterclockwise.
TrimLoop CircleLoop(ON_2dPoint center, double radius);

// Adds a face that shares nothing with the others. The outer loop is the first one. Edges are
// polylines near the surface.
void AddTrimmedFace(ON_Brep& brep, std::shared_ptr<const ON_Surface> surface,
                    const std::vector<TrimLoop>& loops);
