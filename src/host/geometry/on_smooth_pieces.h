#pragma once

#include <vector>

#include "host/geometry/on_nurbs_curve.h"

// The pieces between the kinks of a planar curve, in x and y, as clamped NURBS curves, each from
// where the one before ends, with domains that follow each other through `domain`. A closed curve's
// last piece ends where the first begins. A kink is where the direction turns by more than a
// degree, where a straight line meets a bend, and where the bend changes from one side to the
// other. Pieces that are only a point are left out. Empty when the curve has no NURBS form.
std::vector<ON_NurbsCurve> ON_SmoothPieces(const ON_Curve& curve, ON_Interval domain);
