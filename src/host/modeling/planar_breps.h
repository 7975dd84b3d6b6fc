#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_brep.h"

// Fills closed planar curves: each outer one becomes a brep of one face, the curves directly inside
// it are its holes, and what lies inside a hole is a brep of its own. Curves that aren't closed or
// planar, that enclose nothing or are there twice are left out. Curves in different planes make
// different breps. Curves that cross are filled each by itself. The breps come in the order of
// their outer curves.
//
// All faces of a plane look to where the curve that encloses most of them runs counterclockwise.
[[nodiscard]] std::vector<std::unique_ptr<ON_Brep>> RhinoMakePlanarBreps(
    const std::vector<std::shared_ptr<const ON_Curve>>& curves, double tolerance);
