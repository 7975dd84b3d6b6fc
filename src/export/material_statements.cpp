#include "export/material_statements.h"

#include <algorithm>
#include <cmath>

#include "export/material_draft.h"
#include "export/rib_text.h"
#include "host/geometry/on_tables.h"
#include "host/system/text.h"
#include "shading/host_material.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

// How far the shader moves the surface, at most.
double DisplacementBound(std::string_view displacement) {
  double most = 0;
  if (!GetFloatParam(displacement, "BumpMax", most)) return 1;
  double least = 0;
  GetFloatParam(displacement, "BumpMin", least);
  return std::max(std::fabs(most), std::fabs(least));
}

void AddBound(MaterialDraft& draft, double bound) {
  draft.Add(host::Format("Attribute \"displacementbound\" \"float sphere\" [%g]\n", bound));
}

bool DisplacementNeedsMesh(const MaterialDraft& draft) {
  const std::string& displacement = draft.Attributes.Displacement;
  const bool isTextured = draft.UsesTexture && ProjectionOf(displacement) == "st";
  return isTextured || IsDarkTreeIn2D(displacement, "DarkTreeDisplacement");
}

void AddDisplacement(MaterialDraft& draft) {
  const MaterialAttributes& attributes = draft.Attributes;
  if (attributes.Displacement.empty()) return;
  if (DisplacementNeedsMesh(draft)) draft.Result.WantsRenderMesh = true;
  const bool isTrue = attributes.DisplacementMode >= kRegularDisplacement;
  if (draft.Settings.Displacable && isTrue) {
    draft.Add("Attribute \"render\" \"integer truedisplacement\" [1]\n");
    AddBound(draft, DisplacementBound(attributes.Displacement));
    if (attributes.DisplacementMode == kMeshDisplacement) {
      draft.Add("Attribute \"render\" \"integer meshdisplacement\" [1]\n");
    }
  }
  draft.Add(MaterialStatementKind::Displacement, attributes.Displacement);
}

void AddInstancer(MaterialDraft& draft) {
  const MaterialAttributes& attributes = draft.Attributes;
  if (attributes.Instancer.empty()) return;
  AddBound(draft, attributes.InstancerBound);
  if (attributes.HideInstancerBase) {
    draft.Add("Attribute \"visibility\" \"integer instancerbase\" [0]\n");
  }
  draft.Add(MaterialStatementKind::Instancer, attributes.Instancer);
}

// The surface shader of the scene, where there is one, stands for those of all materials.
void AddSurfaceOrItsStandIn(MaterialDraft& draft) {
  constexpr std::string_view kTextureCoordinatesShader = "VShowTexCoord";
  if (draft.Settings.Surface.empty()) {
    AddSurface(draft);
  } else if (draft.Settings.Surface.find(kTextureCoordinatesShader) != std::string::npos) {
    draft.Result.WantsRenderMesh = true;
  }
}

void AddColorAndOpacity(MaterialDraft& draft, double opacity) {
  if (draft.Settings.Colors) {
    const ON_Color color = GammaAdjustColor(draft.Attributes.Diffuse, draft.Settings.RhinoGamma);
    draft.Add(host::Format("Color [ %g %g %g ]\n", color.FractionRed(), color.FractionGreen(),
                           color.FractionBlue()));
  }
  draft.Add(host::Format("Opacity [ %g %g %g ]\n", opacity, opacity, opacity));
}

void AddShadingDetails(MaterialDraft& draft) {
  if (draft.HitModeShader) {
    draft.Add("Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n");
  }
  const int samples = draft.Attributes.ShadingSamples;
  if (samples > draft.Settings.ShadingSamples) {
    draft.Add(host::Format("ShadingRate %g\n", 1.0 / samples));
  }
  if (!draft.Prepass) {
    draft.Add("Attribute \"indirect\" \"integer prepass\" 0\n");
    draft.Add("Illuminate 0 0\n");
  }
  if (draft.Reflective) draft.Add("Attribute \"indirect\" \"integer reflective\" 1\n");
}

}  // namespace

std::optional<std::string> ProjectionOf(std::string_view call) {
  std::string projection;
  if (!GetStringParam(call, "Projection", projection)) return std::nullopt;
  return projection;
}

bool IsDarkTreeIn2D(std::string_view call, std::string_view name) {
  double use2D = 0;
  return host::EqualNoCase(ShaderNameOf(call), name) &&
         GetFloatParam(call, "Use2DCoordinates", use2D) && use2D != 0;
}

MaterialStatements MakeMaterialStatements(const ON_Material& material,
                                          const RenderSettings& settings,
                                          TextureConverter& textures) {
  MaterialDraft draft{.Settings = settings, .Attributes = ReadMaterialAttributes(material)};
  draft.Result.WantsRenderMesh = settings.BakeEnable && !settings.BakeMesh;
  draft.HitModeShader = draft.Attributes.ComplexShadow;
  ConvertHostMaterial(draft.Attributes, draft.UsesTexture, draft.HitModeShader, textures,
                      settings.ConvertTextures, settings.TextureGamma);
  AddSurfaceOrItsStandIn(draft);
  if (draft.Attributes.DisplacementMode != kNoDisplacement) {
    AddDisplacement(draft);
    AddInstancer(draft);
  }
  AddColorAndOpacity(draft, 1 - material.Transparency());
  AddShadingDetails(draft);
  return std::move(draft.Result);
}

}  // namespace orv
