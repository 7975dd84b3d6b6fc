#include "host/modeling/render_mesh.h"

#include <BRepMesh_Context.hxx>
#include <BRepMesh_FaceDiscret.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>

#include "host/modeling/edge_discret.h"
#include "host/modeling/grid_mesh_algo.h"
#include "host/modeling/mesh_of_face.h"
#include "host/modeling/mesh_quality.h"
#include "host/modeling/occt_shape.h"

namespace host {
namespace {

// What the quality asks for, in the frame.
IMeshTools_Parameters MesherParameters(const MeshQuality& quality, const ModelFrame& frame) {
  IMeshTools_Parameters parameters;
  parameters.Deflection = quality.tolerance * frame.scale;
  parameters.DeflectionInterior = parameters.Deflection;
  parameters.Angle = quality.angle;
  parameters.AngleInterior = quality.angle;
  parameters.MinSize = std::max(quality.min_edge * frame.scale, Precision::Confusion());
  parameters.InParallel = true;
  return parameters;
}

// Triangles of the faces that the mesher gets on with.
void Triangulate(const TopoDS_Shape& shape, const IMeshTools_Parameters& parameters,
                 double max_edge) {
  try {
    const Handle(IMeshTools_Context) context = new BRepMesh_Context;
    context->SetEdgeDiscret(new EdgeDiscret(max_edge));
    context->SetFaceDiscret(new BRepMesh_FaceDiscret(new GridMeshAlgoFactory(max_edge)));
    BRepMesh_IncrementalMesh mesher;
    mesher.SetShape(shape);
    mesher.ChangeParameters() = parameters;
    mesher.Perform(context);
  } catch (const Standard_Failure&) {
    // What has no triangles then has failed.
  }
}

}  // namespace

MadeMeshes MakeRenderMeshes(const ON_Brep& brep, const ON_MeshParameters& parameters) {
  MadeMeshes made;
  const ON_BoundingBox box = brep.IsValid() ? TrimmedBox(brep) : ON_BoundingBox{};
  const double size = box.IsValid() ? box.m_min.DistanceTo(box.m_max) : 0;
  BrepShape shape;
  shape.faces.resize(brep.m_F.size());
  if (size > 0 && std::isfinite(size)) {
    const MeshQuality quality = QualityOf(parameters, size);
    shape = MakeBrepShape(brep, box, quality.tolerance);
    Triangulate(shape.all, MesherParameters(quality, shape.frame),
                quality.max_edge * shape.frame.scale);
  }
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    const ON_BrepFace& face = brep.m_F[i];
    auto mesh = shape.faces[i].face.IsNull() ? nullptr
                                             : MeshOfFace(shape.faces[i], shape.frame,
                                                          brep.SurfaceOf(face), face.m_bRev);
    if (mesh == nullptr) {
      made.failed_faces.push_back(static_cast<int>(i));
    } else {
      made.meshes.push_back(std::move(mesh));
    }
  }
  return made;
}

}  // namespace host
