#pragma once

#include <string>
#include <string_view>

#include "host/command/command.h"

class CRhinoObject;

namespace orv {

class CSceneOutPlugIn;

// Lets the user choose a shader and change its parameters one by one, until Enter. `kind` is the
// word that the shader must have, "Surface" or "Displacement"; `call` is the shader's call text, in
// and out; points are picked on `object`, which may be null. Success when it was accepted. Any
// other result, as EditOptions gives it, leaves `call` as it came.
CommandResult EditShaderCall(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                             std::string_view kind, std::string& call, const CRhinoObject* object);

}  // namespace orv
