#include "shading/preview_scene.h"

#include "host/system/file.h"
#include "host/system/text.h"
#include "shading/host_material.h"
#include "shading/material_file.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

constexpr std::string_view kBeforeMaterial =
    "Format 112 112 1\n"
    "Projection \"perspective\" \"fov\" [25]\n"
    "Translate 0 0 5\n"
    "Rotate -20  1 0 0\n"
    "Rotate 90 1 0 0\n"
    "Scale 1 1 -1\n"
    "WorldBegin\n"
    "  LightSource \"spotlight\" 2 \"intensity\" 130 \"from\" [5 -4 11] \"coneangle\" 0.66\n"
    "  LightSource \"distantlight\" 3 \"intensity\" 0.2 \"from\" [-3 -4 1] \"__nonspecular\" 1\n"
    "  Surface \"matte\"\n"
    "  Attribute \"visibility\" \"trace\" [1]\n"
    "  AttributeBegin\n"
    "    Surface \"checker\" \"Kd\" 1\n"
    "    Translate 0 0 -1\n"
    "    Polygon \"P\" [-100 -100 0  -100 100 0  100 100 0  100 -100 0] \"st\" [20 0 0 0 0 20 20 "
    "20 "
    "]\n"
    "  AttributeEnd\n";

constexpr std::string_view kAfterMaterial =
    "Attribute \"pointset\" \"string handle\" \"test.pts\"\n"
    "ShadingRate 1\n"
    "Sphere 1 -1 1 360\n"
    "WorldEnd\n";

std::string DisplacementText(const MaterialAttributes& attributes) {
  if (attributes.DisplacementMode == kNoDisplacement) return "Displacement \"null\"\n";
  double bound = 0;
  if (attributes.DisplacementMode == kBumpDisplacement ||
      !GetFloatParam(attributes.Displacement, "BumpMax", bound)) {
    return {};
  }
  return host::Format("  Attribute \"displacementbound\" \"float sphere\" [%g]\n", bound);
}

// The host's values that become a surface.
bool SameHostSurface(const MaterialAttributes& a, const MaterialAttributes& b) {
  return a.SpecularRoughness == b.SpecularRoughness && a.Specular == b.Specular &&
         host::EqualNoCase(a.ColorMap, b.ColorMap) &&
         host::EqualNoCase(a.OpacityMap, b.OpacityMap) && a.MapOrigin == b.MapOrigin &&
         a.MapSize == b.MapSize;
}

bool SameHostDisplacement(const MaterialAttributes& a, const MaterialAttributes& b) {
  return a.BumpHeight == b.BumpHeight && host::EqualNoCase(a.BumpMap, b.BumpMap) &&
         a.BumpOrigin == b.BumpOrigin && a.BumpSize == b.BumpSize;
}

}  // namespace

bool WritePreviewScene(std::string_view path, const MaterialAttributes& attributes,
                       const PreviewGammas& gammas, bool convertTextures,
                       TextureConverter& textures) {
  host::FileWriter file(path);
  if (!file.IsOpen()) return false;
  file.Write(kBeforeMaterial);
  MaterialAttributes shown = attributes;
  bool usesTexture = false;
  bool hasOpacityMap = false;
  ConvertHostMaterial(shown, usesTexture, hasOpacityMap, textures, convertTextures,
                      gammas.TextureGamma);
  shown.Instancer.clear();
  // The scene's own name stands for the material's.
  shown.Name.clear();
  WriteMaterialFile(file, path, gammas.RhinoGamma, shown);
  file.Write(DisplacementText(shown));
  file.Write(kAfterMaterial);
  // A scene that could be created but not written whole is the renderer's to complain about.
  static_cast<void>(file.Close());
  return true;
}

bool SameForPreview(const MaterialAttributes& a, const MaterialAttributes& b, bool withNames) {
  return a.Surface == b.Surface && a.Displacement == b.Displacement &&
         a.Transparency == b.Transparency && a.DisplacementMode == b.DisplacementMode &&
         (!host::Contains(a.Surface, "Rhino") || SameHostSurface(a, b)) &&
         (!host::Contains(a.Displacement, "Rhino") || SameHostDisplacement(a, b)) &&
         (!withNames || a.Name == b.Name);
}

}  // namespace orv
