#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shading/shader_param.h"

// A shader call as rows of an editor, and back. `gamma` is the one that the model's colours were
// chosen for (the setting RhinoGamma).
namespace orv {

// The parameters of a shader call, at most kMaxShaderParams, with labels, groups and presets;
// `name` becomes the shader's name. Strings, colours and floats of up to 16 numbers are taken,
// others dropped, as is a parameter with a storage word or without the right number of values. A
// NaN and a number out of a double's range don't count as values.
std::vector<ShaderParam> ParseParamList(std::string_view text, std::string& name, double gamma);

// The shader call of a name and parameters. Colours come out as their 8 bits a channel tell.
std::string PrintParamList(std::string_view name, std::span<const ShaderParam> params,
                           double gamma);

// What a row shows of a value that has no field of its own: several numbers joined by commas, or
// the file's name in a string with slashes. Empty for all else.
std::string ParamDisplayText(const ShaderParam& param);

}  // namespace orv
