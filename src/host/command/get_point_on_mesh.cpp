#include "host/command/get_point_on_mesh.h"

#include "host/command/get_point.h"

CommandResult RhinoGetPointOnMesh(CRhinoCommandContext& context, const ON_Mesh& mesh,
                                  std::string_view prompt, ON_MESH_POINT& point) {
  CRhinoGetPoint get(context);
  get.SetCommandPrompt(prompt);
  if (get.GetPoint() != CRhinoGet::Result::point) return get.CommandResult();
  const auto closest = ON_ClosestPointOnMesh(mesh, get.Point());
  if (!closest) return CommandResult::failure;
  point = *closest;
  return CommandResult::success;
}
