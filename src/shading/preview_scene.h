#pragma once

#include <string_view>

#include "shading/material_attributes.h"
#include "shading/texture_converter.h"

namespace orv {

// How the host's values of a material go into its preview.
struct PreviewGammas {
  double RhinoGamma = 1;
  double TextureGamma = 1;
};

// Writes the scene of a material's preview, a ball over a checkered floor. Images are converted
// when `convertTextures` is set. False when the file can't be created.
[[nodiscard]] bool WritePreviewScene(std::string_view path, const MaterialAttributes& attributes,
                                     const PreviewGammas& gammas, bool convertTextures,
                                     TextureConverter& textures);

// Whether two materials look the same in a preview, their colours apart. A number that is none is
// never the same. With `withNames` their names count, too.
[[nodiscard]] bool SameForPreview(const MaterialAttributes& a, const MaterialAttributes& b,
                                  bool withNames);

}  // namespace orv
