#pragma once

#include <functional>
#include <span>

#include "host/geometry/on_mesh.h"

// Meshes for the example document, the tests and the benchmarks. All have unit normals that point
// outwards, texture coordinates over the unit square, and faces that run counter-clockwise as seen
// from outside.

// A place on a surface and the surface's two tangents there, of any length; their cross product
// points outwards.
struct SurfaceSample {
  ON_3dPoint point;
  ON_3dVector alongU;
  ON_3dVector alongV;
};

// A surface over 0 <= u <= 1, 0 <= v <= 1, sampled in `columns` by `rows` quads (each at least 1),
// u fastest: (columns + 1) * (rows + 1) vertices, so that a closed surface has a seam with vertices
// of its own. A quad with two equal corners becomes a triangle, one with less is left out.
ON_Mesh MakeSurface(int columns, int rows,
                    const std::function<SurfaceSample(double u, double v)>& surface);

// A box with four vertices a side.
ON_Mesh MakeBox(const ON_BoundingBox& box);

ON_Mesh MakeSphere(ON_3dPoint center, double radius, int columns, int rows);

// A field of gentle waves over the square from 0 to `size` in x and y.
ON_Mesh MakeWaves(double size, int columns, int rows);

// The curve through `profile` (x: distance from the z axis, y: height) turned about the vertical
// through `foot`. The inside is to the left of the profile's direction.
ON_Mesh MakeTurned(ON_3dPoint foot, std::span<const ON_2dPoint> profile, int columns, int rows);

// A tube of radius `tube` along a knot on a torus about the vertical through `center`, of radius
// `radius`: `turns` times about the vertical, `windings` times through the hole. Without windings
// it is a ring.
struct TorusKnot {
  ON_3dPoint center{0, 0, 0};
  double radius = 10;
  double tube = 2;
  int turns = 2;
  int windings = 3;
};
ON_Mesh MakeTorusKnot(const TorusKnot& knot, int columns, int rows);
