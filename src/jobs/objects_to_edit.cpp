#include "jobs/objects_to_edit.h"

#include "host/command/get_object.h"

namespace orv {
namespace {

constexpr unsigned Bits(ON_ObjectType type) {
  return static_cast<unsigned>(type);
}

constexpr unsigned kEditedKinds =
    Bits(ON_ObjectType::point) | Bits(ON_ObjectType::pointset) | Bits(ON_ObjectType::curve) |
    Bits(ON_ObjectType::surface) | Bits(ON_ObjectType::mesh) |
    Bits(ON_ObjectType::instance_reference) | CRhinoGetObject::polysurface_filter;

}  // namespace

CommandResult GetObjectsToEdit(CRhinoCommandContext& context, std::vector<CRhinoObject*>& objects) {
  CRhinoGetObject get(context);
  get.SetCommandPrompt("Select objects");
  get.EnableClearObjectsOnEntry(false);
  get.EnablePreSelect(true, true);
  get.SetGeometryFilter(kEditedKinds);
  if (get.GetObjects(1, 0) != CRhinoGet::Result::object) return get.CommandResult();
  if (get.Object(0) == nullptr) return CommandResult::failure;
  objects = get.Objects();
  return CommandResult::success;
}

}  // namespace orv
