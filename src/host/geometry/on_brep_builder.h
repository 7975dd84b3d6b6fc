#pragma once

#include <memory>

#include "host/geometry/on_brep.h"

// Fills the tables of a brep part by part, so that the parts name each other rightly. Loops belong
// to the face that was added last, trims to the loop that was. All is exact: the tolerances are 0.
class ON_BrepBuilder {
 public:
  int AddVertex(ON_3dPoint p);
  // An edge that is a whole curve in its own direction.
  int AddEdge(std::shared_ptr<const ON_Curve> curve, int from_vertex, int to_vertex);
  // A face with a surface of its own.
  void AddFace(std::shared_ptr<const ON_Surface> surface, bool is_reversed);
  void AddLoop(ON_BrepLoop::Type type);
  // A trim that is a whole curve in its own direction, and runs against its edge if `is_reversed`.
  void AddTrim(std::shared_ptr<const ON_Curve> curve, int edge, bool is_reversed,
               ON_BrepTrim::Iso iso);
  // The brep; its trims have their types by how often their edges are used.
  std::unique_ptr<ON_Brep> Finish();

 private:
  std::unique_ptr<ON_Brep> brep_ = std::make_unique<ON_Brep>();
};
