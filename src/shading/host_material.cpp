#include "shading/host_material.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "host/system/number_text.h"
#include "host/system/text.h"
#include "shading/call_string.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

constexpr std::string_view kPeriodic = "periodic";
constexpr std::string_view kClamp = "clamp";
// The gamma of images that are no colours.
constexpr double kLinear = 1;

// What an image of a surface shader holds.
enum class MapKind { kColor, kOpacity, kValue, kDecal };

// A parameter of a surface shader that names an image.
struct MapParam {
  std::string_view Name;
  std::string_view Mode;
  MapKind Kind;
};

constexpr std::array kSurfaceMaps{
    MapParam{"ColorMapName", kPeriodic, MapKind::kColor},
    MapParam{"OpacityMapName", kPeriodic, MapKind::kOpacity},
    MapParam{"SpecularMapName", kPeriodic, MapKind::kValue},
    MapParam{"BumpMapName", kPeriodic, MapKind::kValue},
    MapParam{"TopDecalName", kClamp, MapKind::kDecal},
    MapParam{"SecondDecalName", kClamp, MapKind::kDecal},
    MapParam{"ThirdDecalName", kClamp, MapKind::kDecal},
};

bool IsHostShader(std::string_view call) {
  return host::EqualNoCase(call, kHostShader);
}

void AppendNumbers(std::string& call, std::string_view declaration,
                   std::initializer_list<double> numbers) {
  call.append(" \"").append(declaration).append("\" [");
  for (const double number : numbers) call.append(host::FormatG(number)) += ' ';
  call.back() = ']';
}

// A parameter that names an image, by its path; empty for none.
void AppendMap(std::string& call, std::string_view name, std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  call.append(" \"string ").append(name).append("\" [\"");
  call.append(EncodeCallString(path)).append("\"]");
}

void AppendTiling(std::string& call, const std::array<double, 2>& size,
                  const std::array<double, 2>& origin) {
  AppendNumbers(call, "float[2] TextureSizeXY", {size[0], size[1]});
  AppendNumbers(call, "float[2] TextureOriginXY", {origin[0], origin[1]});
}

std::string HostSurface(const MaterialAttributes& material) {
  const ON_Color specular = material.Specular;
  std::string call = "\"VRubber\" \"float Diffuse\" [1] \"float DiffuseRoughness\" [0]";
  AppendNumbers(call, "float SpecularRoughness", {material.SpecularRoughness});
  AppendNumbers(call, "color SpecularColor",
                {specular.FractionRed(), specular.FractionGreen(), specular.FractionBlue()});
  AppendMap(call, "ColorMapName", material.ColorMap);
  if (!material.ColorMap.empty()) AppendTiling(call, material.MapSize, material.MapOrigin);
  AppendMap(call, "OpacityMapName", material.OpacityMap);
  if (!material.OpacityMap.empty() && material.ColorMap.empty()) {
    AppendTiling(call, material.MapSize, material.MapOrigin);
  }
  return call;
}

std::string HostDisplacement(const MaterialAttributes& material) {
  if (material.BumpMap.empty()) return "\"null\"";
  std::string call = "\"VTexturedBump\"";
  AppendNumbers(call, "float BumpMax", {material.BumpHeight});
  AppendMap(call, "TextureName", material.BumpMap);
  AppendTiling(call, material.BumpSize, material.BumpOrigin);
  return call;
}

bool IsLongerThanOneCharacter(std::string_view name) {
  return host::CodePointCount(DecodeCallString(name)) > 1;
}

// Gives the parameter the texture for the image that it names. True when it has a new value.
bool ConvertParam(std::string& call, std::string_view param, std::string_view image,
                  std::string_view mode, TextureConverter& textures, bool convert, double gamma) {
  std::string texture;
  return textures.ConvertTextureParam(image, texture, mode, convert, gamma) &&
         SetStringParam(call, param, texture);
}

}  // namespace

void ConvertHostMaterial(MaterialAttributes& attributes, bool& usesTexture, bool& hasOpacityMap,
                         TextureConverter& textures, bool convertTextures, double textureGamma) {
  if (IsHostShader(attributes.Surface)) {
    attributes.Surface = HostSurface(attributes);
    // The image takes the place of the colour.
    if (!attributes.ColorMap.empty()) attributes.Diffuse = ON_Color(255, 255, 255);
  }
  std::string image;
  for (const MapParam& map : kSurfaceMaps) {
    if (!GetStringParam(attributes.Surface, map.Name, image)) continue;
    // A decal counts even without an image.
    if (map.Kind == MapKind::kDecal || !image.empty()) usesTexture = true;
    if (map.Kind == MapKind::kOpacity && IsLongerThanOneCharacter(image)) hasOpacityMap = true;
    const bool isColor = map.Kind == MapKind::kColor || map.Kind == MapKind::kDecal;
    ConvertParam(attributes.Surface, map.Name, image, map.Mode, textures, convertTextures,
                 isColor ? textureGamma : kLinear);
  }

  if (IsHostShader(attributes.Displacement)) attributes.Displacement = HostDisplacement(attributes);
  if (GetStringParam(attributes.Displacement, "TextureName", image) &&
      ConvertParam(attributes.Displacement, "TextureName", image, kPeriodic, textures,
                   convertTextures, kLinear)) {
    usesTexture = true;
  }
}

}  // namespace orv
