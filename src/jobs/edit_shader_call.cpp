#include "jobs/edit_shader_call.h"

namespace orv {

CommandResult EditShaderCall(CRhinoCommandContext&, CSceneOutPlugIn&, std::string_view,
                             std::string&, CRhinoObject*) {
  return CommandResult::failure;
}

}  // namespace orv
