#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_brep.h"

// What is measured of meshes, for tests.

using Meshes = std::vector<std::shared_ptr<const ON_Mesh>>;

// How far a mesh is from the surface that it was made of, and how its normals stand to it.
struct MeshFit {
  // The greatest distance of a vertex to the surface's point of its parameters.
  double vertex = 0;
  // The greatest distance of the middle of an edge or triangle to the surface, along its normal.
  double sag = 0;
  // The least cosine between the normal of a vertex and that of the surface, and between that of a
  // triangle and that of the surface in its middle; with the side that the face looks to.
  double vertex_normal = 1;
  double triangle_normal = 1;
};
// Triangles that are narrower than twice the tolerance count for the distances only.
MeshFit FitOf(const ON_Mesh& mesh, const ON_Surface& surface, bool is_reversed, double tolerance);

// How often the edges between vertices at different places are used, in whatever direction.
struct EdgeUse {
  int once = 0;
  int twice = 0;
  int more = 0;
  // Used twice in the same direction.
  int twisted = 0;
};
EdgeUse EdgeUseOf(const Meshes& meshes);

double AreaOf(const Meshes& meshes);
// Of closed meshes; positive when their triangles are counterclockwise seen from outside.
double VolumeOf(const Meshes& meshes);
