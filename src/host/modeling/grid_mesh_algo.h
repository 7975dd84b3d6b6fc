#pragma once

#include <IMeshTools_MeshAlgoFactory.hxx>

namespace host {

// Triangulates a face over a grid of points that follows its curvature, and then adds points until
// the triangles are as close to it as asked.
class GridMeshAlgoFactory : public IMeshTools_MeshAlgoFactory {
 public:
  // `max_edge` is the longest edge of a triangle inside a face; 0 is no limit.
  explicit GridMeshAlgoFactory(double max_edge) : max_edge_(max_edge) {}

  Handle(IMeshTools_MeshAlgo) GetAlgo(const GeomAbs_SurfaceType type,
                                      const IMeshTools_Parameters& parameters) const override;

 private:
  double max_edge_;
};

}  // namespace host
