#pragma once

#include <chrono>
#include <compare>
#include <map>
#include <set>
#include <string>
#include <string_view>

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
  // After this time a conversion is broken off.
  std::chrono::milliseconds TimeLimit = std::chrono::minutes(2);

  // The name of the texture for an image: the one that was made or is up to date, or `source` when
  // there is none, when `convertTextures` is false, or for a file that needs no conversion (.tx,
  // .ai, eps). `mode` says what is beyond the image's border: "periodic" or "clamp". `gamma` is
  // that of the image's colours; one that has no reciprocal counts as 1.
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

 private:
  struct Request {
    std::string Source;
    std::string Mode;
    double Gamma;
    friend auto operator<=>(const Request&, const Request&) = default;
  };

  std::string FindOrMakeTexture(const Request& request);
  bool MakeTexture(const Request& request, const std::string& target) const;
  std::string RealName(std::string_view value);
  void ForgetAnswers();

  // FailedTextures: the sources that are not tried again.
  std::set<std::string, std::less<>> failed_;
  bool isExporting_ = false;
  // What was found out during this export: textures, and the files that parameters name.
  std::map<Request, std::string> textures_;
  std::map<std::string, std::string, std::less<>> realNames_;
};

}  // namespace orv
