#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

// A geometry field of a shape.
struct VrmlMesh {
  // The corners of each face.
  std::vector<std::vector<int>> faces;
  std::vector<std::array<double, 3>> points;
  std::vector<std::array<double, 2>> texture;
};

struct VrmlShape {
  std::string map;
  std::vector<VrmlMesh> meshes;
};

struct VrmlView {
  std::array<double, 3> position{};
  double fieldOfView = 0;
  std::array<double, 4> orientation{};
  std::string description;
};

struct VrmlReport {
  // What is wrong: "behind 'solid FALSE': ...".
  std::vector<std::string> complaints;
  std::vector<double> sky;
  std::vector<VrmlView> views;
  std::vector<VrmlShape> shapes;
};

// Reads a file of the plug-in's own export, node by node, and checks its head, its nodes and
// fields, that all numbers are finite, that turns have an axis of unit length, and that faces have
// three or four corners among the points, with a texture coordinate for each point.
VrmlReport CheckVrml(std::string_view vrml);
