#include <algorithm>
#include <array>
#include <string_view>

#include "export/caustic_light.h"
#include "export/material_draft.h"
#include "host/system/text.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

// What the export knows of a shader of the renderer.
struct ShaderTraits {
  std::string_view Name;
  // Its transparency varies, so shadow rays have to run it.
  bool HitModeShader = false;
  // It takes no part in the prepass of indirect light.
  bool WithoutPrepass = false;
  // It reflects indirect light, and mirrors in the material's colour.
  bool Metal = false;
  // Caustic light doesn't light it.
  bool WithoutCaustics = false;
  // It is textured by itself, without an image.
  bool Textured = false;
  // It always needs the texture coordinates of a mesh.
  bool NeedsMesh = false;
  // It scatters light below the surface, which is kept in a point set.
  bool NeedsPointSet = false;
};

constexpr std::array<ShaderTraits, 14> kShaders{{
    {.Name = "VBrick2D", .Textured = true},
    {.Name = "VBrushedMetal", .WithoutPrepass = true, .Metal = true, .WithoutCaustics = true},
    {.Name = "VGlass", .HitModeShader = true, .WithoutPrepass = true, .WithoutCaustics = true},
    {.Name = "VGrid2D", .Textured = true},
    {.Name = "VMetal", .WithoutPrepass = true, .Metal = true, .WithoutCaustics = true},
    {.Name = "VPlanks", .Textured = true},
    {.Name = "VScreen", .HitModeShader = true, .Textured = true},
    {.Name = "VShinyTile2D", .Textured = true},
    {.Name = "VSkin", .NeedsPointSet = true},
    {.Name = "VTexturedConstant", .WithoutPrepass = true},
    {.Name = "VThinGlass", .HitModeShader = true, .WithoutPrepass = true, .WithoutCaustics = true},
    {.Name = "VTranslucent", .NeedsPointSet = true},
    {.Name = "VTranslucentMarble", .NeedsPointSet = true},
    {.Name = "VWeave", .HitModeShader = true, .NeedsMesh = true},
}};

// Of a shader by its name, without regard to case; of any other one, nothing.
ShaderTraits TraitsOf(std::string_view name) {
  const auto* found = std::find_if(kShaders.begin(), kShaders.end(), [name](const auto& shader) {
    return host::EqualNoCase(shader.Name, name);
  });
  return found == kShaders.end() ? ShaderTraits{} : *found;
}

// A draft has one ray where the shader would send more.
void ReduceSamples(std::string& surface) {
  for (const std::string_view name : {"ReflectionSamples", "TransmissionSamples"}) {
    double samples = 0;
    if (GetFloatParam(surface, name, samples) && samples > 1) SetFloatParam(surface, name, 1);
  }
}

bool NeedsTextureCoordinates(const MaterialDraft& draft, const ShaderTraits& shader) {
  const std::string& surface = draft.Attributes.Surface;
  if (shader.NeedsMesh) return true;
  const bool isTextured = draft.UsesTexture && ProjectionOf(surface).value_or("st") == "st";
  return isTextured || IsDarkTreeIn2D(surface, "DarkTreeSurface");
}

}  // namespace

void AddSurface(MaterialDraft& draft) {
  std::string& surface = draft.Attributes.Surface;
  bool& wantsMesh = draft.Result.WantsRenderMesh;
  if (surface.empty()) {
    wantsMesh = wantsMesh || draft.UsesTexture;
    return;
  }
  if (draft.Settings.Draft) ReduceSamples(surface);
  const ShaderTraits shader = TraitsOf(ShaderNameOf(surface));
  draft.HitModeShader = draft.HitModeShader || shader.HitModeShader;
  draft.Prepass = !shader.WithoutPrepass;
  draft.Reflective = shader.Metal;
  draft.UsesTexture = draft.UsesTexture || shader.Textured;
  wantsMesh = wantsMesh || NeedsTextureCoordinates(draft, shader);
  if (shader.NeedsPointSet) draft.Add(MaterialStatementKind::PointSetHandle, {});
  draft.Add(MaterialStatementKind::Surface, surface);
  if (draft.Settings.CausticPhotonPass) AddCaustics(draft, shader.Metal);
  if (shader.WithoutCaustics) draft.Add(host::Format("Illuminate %d 0\n", kCausticLight));
}

}  // namespace orv
