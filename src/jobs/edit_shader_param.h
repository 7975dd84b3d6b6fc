#pragma once

#include <cstddef>

#include "host/command/command.h"
#include "jobs/file_picker.h"
#include "jobs/shader_draft.h"

class CRhinoObject;

namespace orv {

class CSceneOutPlugIn;

// The dialog for the image of a string parameter.
inline constexpr FilePicker kImagePicker{"Choose image file", kImageFilter};

// Asks for the value of a parameter whose option has none of its own: texts, and several numbers.
// In an interactive command, texts are files, three numbers are a point, two the place on a surface
// object and sixteen a decal's matrix. What isn't answered keeps its value.
void EditShaderParam(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                     const CRhinoObject* object, ShaderDraft& draft, std::size_t index);

}  // namespace orv
