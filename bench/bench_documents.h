#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/archive/model.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_mesh.h"

// What the benchmarks work on.

// A field of waves of 1000 x 1000 vertices with normals and texture coordinates; no two vertices
// have one position.
ON_Mesh DenseMesh();
// A closed tube of as many vertices, of which only those along its seams have a twin.
ON_Mesh SeamedMesh();
// As many vertices in quads that share none: each position stands for up to four vertices.
ON_Mesh ApartMesh();

// How many numbers the plain form of the mesh's statement holds.
std::int64_t NumberCount(const ON_Mesh& mesh);

// A document of one mesh.
ONX_Model ModelOf(ON_Mesh mesh);
// A document of 20,000 boxes, each with its name.
ONX_Model ManySmallObjects();

// A document of 20,000 named meshes without faces in groups, with 200 materials, of which every
// second one has shaders of its own, and 50 lights. Each object has the first `attributeCount` of
// five attribute strings.
ONX_Model ManyObjectsWithoutFaces(int attributeCount);

// 5,000 faces of cubic surfaces with a boundary of four trims and a round hole, in one brep and in
// a document of as many breps.
ON_Brep ManyTrimmedFaces();
ONX_Model ManyTrimmedSurfaces();
// A document of 50,000 curves: lines, polylines, arcs and cubics in turn.
ONX_Model ManyCurves(bool dashed);

// A file that is there as long as the object is.
class BenchFile {
 public:
  explicit BenchFile(std::string_view name);
  BenchFile(std::string_view name, std::string_view content);
  ~BenchFile();
  BenchFile(const BenchFile&) = delete;
  BenchFile& operator=(const BenchFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};
