#pragma once

#include <string_view>

#include "host/command/command.h"
#include "jobs/file_picker.h"
#include "jobs/shader_draft.h"

namespace orv {

class CSceneOutPlugIn;

// The dialog for a shader's file.
inline constexpr FilePicker kShaderPicker{"Choose shader", "ORV Shader Files;*.slb;All Files;*.*;"};

// Asks for a shader, by its file in an interactive command, else by its name, and reads it into the
// draft with its parameters at their defaults. `kind` is what the shader has to be, "Surface" or
// "Displacement"; only null.slb may be another. The draft stays when a dialog was cancelled or the
// shader is of another kind, with a message; it is empty when there is no such file, with a
// message. Anything but success comes from a prompt.
[[nodiscard]] CommandResult ChooseShader(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                                         std::string_view kind, ShaderDraft& draft);

}  // namespace orv
