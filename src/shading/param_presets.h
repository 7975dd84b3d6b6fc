#pragma once

#include "shading/shader_param.h"

namespace orv {

// Fills the values to offer: for floats by their count, name and IsSampleCount, for others none.
void SetParamPresets(ShaderParam& param);

}  // namespace orv
