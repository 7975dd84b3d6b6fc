#include "jobs/surface_command.h"

#include "host/document/object.h"
#include "jobs/objects_to_edit.h"
#include "jobs/shader_slot.h"

namespace orv {

CCommandOrvSurface::CCommandOrvSurface(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "e2a4eaa1-b7e4-407f-b501-d1722a755df8"_uuid, "OrvSurface",
          "Edits the surface shader of objects' materials.",
          "Asks for the objects unless some are selected; the options show the first one's shader\n"
          "and Enter gives it to all. Shader chooses another one: by its name, or by its file "
          "(.slb)\n"
          "in a dialog; null takes the host's material. Each parameter is an option. In the "
          "scripted\n"
          "form (-OrvSurface) texts are typed, $ORVHOME at their start being that environment\n"
          "variable, and several numbers with commas: 1,0.5. Otherwise a text is chosen as a file\n"
          "and these are picked:\n"
          "  3 numbers: a point x,y,z.\n"
          "  2 numbers, of a surface object: x,y,z takes the point of the first object that is\n"
          "    closest to it. u,v takes one by the surface's parameters; where there are several\n"
          "    faces it is face:u,v, the first face being 0. The result are map coordinates; a "
          "size\n"
          "    is told from the origin that follows it.\n"
          "  16 numbers, a decal's matrix: the left and the right upper corner, and a point of "
          "the\n"
          "    lower edge, each as x,y,z.\n") {}

CommandResult CCommandOrvSurface::RunCommand(CRhinoCommandContext& context) {
  std::vector<CRhinoObject*> objects;
  const CommandResult asked = GetObjectsToEdit(context, objects);
  if (asked != CommandResult::success) return asked;
  const CRhinoObject& first = *objects.front();
  MaterialAttributes attributes = ReadMaterialAttributes(first);
  const CommandResult edited = EditShaderSlot(context, PlugIn(), kSurfaceSlot, first, attributes);
  if (edited != CommandResult::success) return edited;
  for (const CRhinoObject* object : objects) {
    // An object without a material is passed over.
    static_cast<void>(WriteMaterialAttributes(context.m_doc, *object, attributes));
  }
  return CommandResult::success;
}

}  // namespace orv
