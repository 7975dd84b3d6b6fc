#pragma once

#include <span>

#include "shading/shader_param.h"

namespace orv {

// Gives freshly parsed parameters, which are rows of an editor, their labels, groups, flags and
// presets.
//
// A string whose name contains "Tweak" is the caption of the parameter behind it; without a text,
// neither is shown. Parameters in a row that begin with the same two characters are a group; the
// first is its head, and the others are closed away under it. Labels become words: "SpecularColor"
// is "Specular color", below a head "   Color".
void ArrangeParamRows(std::span<ShaderParam> params);

}  // namespace orv
