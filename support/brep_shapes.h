#pragma once

#include <array>
#include <memory>

#include "host/geometry/on_brep.h"

// Breps for the tests and the benchmarks. They look outwards, share their edges, and every list and
// flag of them is set as documents have it.

// The square of the xy plane from -half to half with a circular hole about the origin: one face
// that looks up, with an outer and an inner loop.
std::unique_ptr<ON_Brep> MakePlateBrep(double half, double hole_radius);

// Six plane faces, twelve edges, eight vertices. The box must be valid and have a volume.
std::unique_ptr<ON_Brep> MakeBoxBrep(const ON_BoundingBox& box);

// The cylinder about the z axis from 0 to `height`: a closed rational face with a seam, and two
// caps of one circular trim each, of which the lower one is reversed.
std::unique_ptr<ON_Brep> MakeCylinderBrep(double radius, double height);

// Puts a brep together part by part.
class BrepBuilder {
 public:
  struct Trim {
    // In the parameters of the surface, as the loop runs.
    std::shared_ptr<const ON_Curve> curve;
    int edge = -1;
    // True when the trim runs against its edge.
    bool is_reversed = false;
    ON_BrepTrim::Iso iso = ON_BrepTrim::Iso::none;
    // Of a singular trim, which has no edge.
    int vertex = -1;
  };

  int AddVertex(ON_3dPoint point);
  // From vertex to vertex as the curve runs.
  int AddEdge(std::shared_ptr<const ON_Curve> curve, int from, int to);
  // The next loops are those of this face.
  void AddFace(std::shared_ptr<const ON_Surface> surface, bool is_reversed = false);
  void AddLoop(ON_BrepLoop::Type type, const std::vector<Trim>& trims);
  // With the types of the trims, which follow from the rest.
  std::unique_ptr<ON_Brep> Take();

 private:
  void AddTrim(const Trim& trim);

  std::unique_ptr<ON_Brep> brep_ = std::make_unique<ON_Brep>();
};

// The trims of a rectangle of parameters, counterclockwise from its south-west corner: south, east,
// north, west. They are still without edges.
std::vector<BrepBuilder::Trim> RectangleTrims(ON_Interval u, ON_Interval v);
