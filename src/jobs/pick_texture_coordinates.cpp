#include "jobs/pick_texture_coordinates.h"

#include <array>

#include "export/surface_geometry.h"
#include "host/command/get_point.h"
#include "host/command/get_point_on_mesh.h"
#include "host/document/app.h"
#include "host/geometry/on_brep.h"

namespace orv {
namespace {

ON_2dPoint PlaceInSurface(const ON_Surface& surface, double u, double v) {
  return {surface.Domain(0).NormalizedParameterAt(u),
          1 - surface.Domain(1).NormalizedParameterAt(v)};
}

// Whether a face's map is packed into a part of the picture of all faces.
bool IsPacked(const ON_Mesh* mesh) {
  return mesh != nullptr && mesh->HasPackedTextureRegion() &&
         mesh->m_srf_domain[0].IsIncreasing() && mesh->m_srf_domain[1].IsIncreasing();
}

ON_2dPoint PlaceInPackedRegion(const ON_Mesh& mesh, double u, double v) {
  const double along = mesh.m_srf_domain[0].NormalizedParameterAt(u);
  const double across = mesh.m_srf_domain[1].NormalizedParameterAt(v);
  const auto& region = mesh.m_packed_tex_domain;
  if (mesh.m_packed_tex_rotate) {
    return {region[0].ParameterAt(1 - across), 1 - region[1].ParameterAt(along)};
  }
  return {region[0].ParameterAt(along), 1 - region[1].ParameterAt(across)};
}

std::optional<ON_2dPoint> PickOnBrep(CRhinoCommandContext& context, const ON_Brep& brep) {
  CRhinoGetPoint get(context);
  get.SetCommandPrompt("Pick point on surface");
  get.Constrain(brep);
  if (get.GetPoint() != CRhinoGet::Result::point) return std::nullopt;
  double u = 0;
  double v = 0;
  const ON_BrepFace* face = get.PointOnBrep(&u, &v);
  if (face == nullptr) return std::nullopt;
  // Only meshes of documents are packed; those that are made for a face fill the whole map.
  const ON_Mesh* mesh = face->m_render_mesh.get();
  if (!brep.IsSurface() && IsPacked(mesh)) return PlaceInPackedRegion(*mesh, u, v);
  return PlaceInSurface(brep.SurfaceOf(*face), u, v);
}

std::optional<ON_2dPoint> PickOnMesh(CRhinoCommandContext& context, const ON_Mesh& mesh) {
  ON_MESH_POINT point;
  if (RhinoGetPointOnMesh(context, mesh, "Pick point on mesh", point) != CommandResult::success) {
    return std::nullopt;
  }
  std::array<int, 3> corners{};
  if (!point.GetTriangle(corners)) return std::nullopt;
  const ON_MeshFace& face = mesh.m_F[static_cast<std::size_t>(point.m_face_index)];
  ON_2dPoint place{0, 0};
  for (const int corner : corners) {
    const auto at = static_cast<std::size_t>(corner);
    const ON_2fPoint& texture = mesh.m_T[static_cast<std::size_t>(face.vi[at])];
    place.x += point.m_t[at] * static_cast<double>(texture.x);
    place.y += point.m_t[at] * static_cast<double>(texture.y);
  }
  return ON_2dPoint{place.x, 1 - place.y};
}

}  // namespace

std::optional<ON_2dPoint> PickTextureCoordinates(CRhinoCommandContext& context,
                                                 const CRhinoObject& object) {
  const ON_Geometry* geometry = object.Geometry();
  const auto brep = geometry == nullptr ? nullptr : BrepFormOf(*geometry);
  if (brep != nullptr) return PickOnBrep(context, *brep);
  const ON_Mesh* mesh = ON_Mesh::Cast(geometry);
  if (mesh != nullptr && mesh->HasTextureCoordinates()) return PickOnMesh(context, *mesh);
  RhinoApp().Print("Unable to pick point on selected object.\n");
  return std::nullopt;
}

}  // namespace orv
