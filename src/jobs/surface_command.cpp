#include "jobs/surface_command.h"

#include "host/document/object.h"
#include "jobs/objects_to_edit.h"
#include "jobs/shader_slot.h"

namespace orv {

CCommandOrvSurface::CCommandOrvSurface(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "e2a4eaa1-b7e4-407f-b501-d1722a755df8"_uuid, "OrvSurface",
          "Edits the surface shader of objects' materials.",
          "Asks for the objects unless some are selected. The options show the first one's\n"
          "shader; Enter gives it to all. Shader chooses another one: by its name, or by its\n"
          "file (.slb) in a dialog; null takes the host's material. Each parameter is an\n"
          "option.\n"
          "In the scripted form (-OrvSurface) texts are typed, where $ORVHOME at the start is\n"
          "that environment variable, and several numbers with commas: 1,0.5. Otherwise a\n"
          "text is chosen as a file, and these are picked:\n"
          "  3 numbers: a point, typed as x,y,z.\n"
          "  2 numbers, when the first object has surfaces: a place on it. x,y,z takes the\n"
          "    point that is closest to it; u,v goes by the surface's parameters, as face:u,v\n"
          "    with a number from 0 when there are several faces. It becomes map coordinates;\n"
          "    a size is told from the origin that follows it.\n"
          "  16 numbers, a decal's matrix: the upper left and the upper right corner, and a\n"
          "    point of the lower edge, each as x,y,z.\n") {}

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
