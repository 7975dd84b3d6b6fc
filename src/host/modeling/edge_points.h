#pragma once

#include <Geom2d_Curve.hxx>
#include <Geom_Curve.hxx>
#include <Geom_Surface.hxx>
#include <vector>

namespace host {

struct EdgeLimits {
  // How far the points' polyline may be from the curve, and on each side from the surface.
  double tolerance = 0;
  // The greatest angle between the directions of neighbours, in radians.
  double angle = 0;
  // Shorter pieces aren't divided.
  double min_size = 0;
  // Longer ones are; 0 is no limit.
  double max_size = 0;
};

// The curve of an edge in the parameters of a surface, over the same range as in space; at the same
// parameter it may be elsewhere on the edge.
struct EdgeSide {
  Handle(Geom_Surface) surface;
  Handle(Geom2d_Curve) curve;
};

struct EdgePoints {
  // Of the curve in space, in increasing order, both ends of the range included.
  std::vector<double> parameters;
  // For each side the parameters of its own curve at the same points.
  std::vector<std::vector<double>> side_parameters;
};

// Where an edge is divided. At most 5,000 pieces; a curve that needs more is left coarser.
[[nodiscard]] EdgePoints DivideEdge(const Handle(Geom_Curve) & curve, double first, double last,
                                    const std::vector<EdgeSide>& sides, const EdgeLimits& limits);

}  // namespace host
