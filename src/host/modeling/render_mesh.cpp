#include "host/modeling/render_mesh.h"

#include <BRepMesh_Context.hxx>
#include <BRepMesh_FaceDiscret.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <chrono>

#include "host/modeling/edge_discret.h"
#include "host/modeling/grid_mesh_algo.h"
#include "host/modeling/mesh_of_face.h"
#include "host/modeling/mesh_quality.h"
#include "host/modeling/meshing_limit.h"
#include "host/modeling/occt_shape.h"

namespace host {
namespace {

// Breps smaller or larger than this have no place in single precision.
constexpr double kLeastSize = 1e-30;
constexpr double kGreatestSize = 1e30;

// What the quality asks for, in the frame.
IMeshTools_Parameters MesherParameters(const MeshQuality& quality, const ModelFrame& frame) {
  // The mesher looks at the middles of sides and triangles. Beside them the surface may be a little
  // farther away.
  constexpr double kMargin = 0.8;
  IMeshTools_Parameters parameters;
  parameters.Deflection = quality.tolerance * kMargin * frame.scale;
  parameters.DeflectionInterior = parameters.Deflection;
  parameters.Angle = quality.angle;
  parameters.AngleInterior = quality.angle;
  parameters.MinSize = std::max(quality.min_edge * frame.scale, Precision::Confusion());
  parameters.InParallel = true;
  return parameters;
}

// Longer than any sound brep takes, so that one that isn't doesn't hold up the rest for good.
std::chrono::seconds TimeFor(std::size_t face_count) {
  return std::chrono::seconds(30 + face_count / 4);
}

// Triangles of the faces that the mesher gets on with.
void Triangulate(const BrepShape& shape, const MeshQuality& quality) {
  try {
    const double max_edge = quality.max_edge * shape.frame.scale;
    const Handle(IMeshTools_Context) context = new BRepMesh_Context;
    context->SetEdgeDiscret(new EdgeDiscret(max_edge));
    context->SetFaceDiscret(new BRepMesh_FaceDiscret(new GridMeshAlgoFactory(max_edge)));
    BRepMesh_IncrementalMesh mesher;
    mesher.SetShape(shape.all);
    mesher.ChangeParameters() = MesherParameters(quality, shape.frame);
    const Handle(MeshingLimit) limit = new MeshingLimit(TimeFor(shape.faces.size()));
    mesher.Perform(context, limit->Start());
  } catch (const Standard_Failure&) {
    // What has no triangles then has failed.
  }
}

// Without faces when there is nothing that has a size.
BrepShape TriangulatedShape(const ON_Brep& brep, const ON_MeshParameters& parameters) {
  if (!brep.IsValid()) return {};
  const ON_BoundingBox box = TrimmedBox(brep);
  if (!box.IsValid()) return {};
  const double size = box.m_min.DistanceTo(box.m_max);
  if (!(size > kLeastSize) || !(size < kGreatestSize)) return {};
  BrepShape shape = MakeBrepShape(brep, box);
  Triangulate(shape, QualityOf(parameters, size));
  return shape;
}

}  // namespace

MadeMeshes MakeRenderMeshes(const ON_Brep& brep, const ON_MeshParameters& parameters) {
  MadeMeshes made;
  const BrepShape shape = TriangulatedShape(brep, parameters);
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    const ON_BrepFace& face = brep.m_F[i];
    std::shared_ptr<const ON_Mesh> mesh;
    if (i < shape.faces.size() && !shape.faces[i].face.IsNull()) {
      mesh = MeshOfFace(shape.faces[i], shape.frame, brep.SurfaceOf(face), face.m_bRev);
    }
    if (mesh == nullptr) {
      made.failed_faces.push_back(static_cast<int>(i));
    } else {
      made.meshes.push_back(std::move(mesh));
    }
  }
  return made;
}

}  // namespace host
