#pragma once

#include "shading/material_attributes.h"
#include "shading/texture_converter.h"

namespace orv {

// Makes shader calls of a host material where the record says kHostShader, and converts the images
// that its shaders use. Either flag is raised when it holds, and stays otherwise: that a shader
// uses a texture, and that there is an opacity map. `textureGamma` is the gamma of colour images.
void ConvertHostMaterial(MaterialAttributes& attributes, bool& usesTexture, bool& hasOpacityMap,
                         TextureConverter& textures, bool convertTextures, double textureGamma);

}  // namespace orv
