#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>

#include "host/document/id_map.h"

namespace orv {

// Turns image files into the renderer's textures, files with the extension .tx, by the program
// mapforge. A texture that is not older than its image is used again.
//
// What became of an image is told in the command window. An image that failed is not tried again
// until the failures are forgotten.
class TextureConverter {
 public:
  // The folder of the textures; empty means beside each image.
  std::string TextureCacheDir;

  // The name of the texture for an image: the one that was made or is up to date, or `source` when
  // there is none, when `convertTextures` is false, or for a file that needs no conversion (.tx,
  // .ai, eps). `mode` says what is beyond the image's border: "periodic" or "clamp". `gamma` is
  // that of the image's colours.
  std::string ConvertTexture(std::string_view source, std::string_view mode, bool convertTextures,
                             double gamma);
  // The same for the value of a shader parameter, where quotes and the like may be escaped. False,
  // and `converted` stays, when the parameter needs no new value.
  bool ConvertTextureParam(std::string_view name, std::string& converted, std::string_view mode,
                           bool convertTextures, double gamma);

  // Between these two, each image is looked at once: what ConvertTexture gave it is given again.
  void BeginExport();
  void EndExport();
  // Images that failed are tried again from now on.
  void ForgetFailures();
};

}  // namespace orv
