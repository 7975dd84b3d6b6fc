#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_nurbs_curve.h"

// A piece of a boundary: a curve in space, and what it is in a plane's coordinates.
struct ON_BoundaryPiece {
  std::shared_ptr<const ON_Curve> curve;
  std::shared_ptr<ON_NurbsCurve> image;
};

// A closed curve of a plane.
struct ON_PlaneBoundary {
  // One, or a polycurve's segments. The image of each of several ends exactly where the next one
  // begins.
  std::vector<ON_BoundaryPiece> pieces;
  // Of the images; positive when they run counterclockwise.
  double area = 0;
};

// Nothing when the curve isn't closed, has no NURBS form, encloses nothing or isn't in the plane
// within `tolerance`. `box` grows so that it holds the images.
std::optional<ON_PlaneBoundary> ON_MakePlaneBoundary(const ON_Plane& plane,
                                                     const std::shared_ptr<const ON_Curve>& curve,
                                                     double tolerance, ON_BoundingBox& box);
