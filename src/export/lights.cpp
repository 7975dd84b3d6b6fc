#include "export/lights.h"

#include <algorithm>
#include <array>
#include <limits>

#include "export/coordinates.h"
#include "export/light_source.h"
#include "export/linear_light.h"
#include "export/point_lights.h"
#include "export/rectangular_light.h"
#include "host/geometry/on_light.h"

namespace orv {
namespace {

// A kind of light that has a statement: what writes it, and which numbers of the light it is made
// of besides those that all have.
struct LightKind {
  ON_LightStyle Style;
  void (*Write)(RibWriter&, const LightSource&);
  bool Direction = false;
  bool Length = false;
  bool Width = false;
  bool Cone = false;
};

constexpr std::array<LightKind, 5> kKinds{{
    {.Style = ON_LightStyle::world_spot, .Write = WriteSpotLight, .Direction = true, .Cone = true},
    {.Style = ON_LightStyle::world_point, .Write = WritePointLight},
    {.Style = ON_LightStyle::world_directional, .Write = WriteDirectionalLight, .Direction = true},
    {.Style = ON_LightStyle::world_linear, .Write = WriteLinearLight, .Length = true},
    {.Style = ON_LightStyle::world_rectangular,
     .Write = WriteRectangularLight,
     .Direction = true,
     .Length = true,
     .Width = true},
}};

// Null for a light that has no statement. All spots are one kind.
const LightKind* KindOf(const ON_Light& light) {
  const ON_LightStyle style = light.IsSpotLight() ? ON_LightStyle::world_spot : light.Style();
  const auto* found = std::find_if(kKinds.begin(), kKinds.end(),
                                   [style](const LightKind& kind) { return kind.Style == style; });
  return found == kKinds.end() ? nullptr : found;
}

// The numbers that the statement is made of are set, and are numbers.
bool HasItsNumbers(const ON_Light& light, const LightKind& kind) {
  return AreCoordinates(light.Location()) && IsSetNumber(light.ShadowIntensity()) &&
         (!kind.Direction || AreCoordinates(light.Direction())) &&
         (!kind.Length || AreCoordinates(light.Length())) &&
         (!kind.Width || AreCoordinates(light.Width())) &&
         (!kind.Cone ||
          (IsSetNumber(light.SpotAngleRadians()) && IsSetNumber(light.SpotExponent())));
}

// Interactive sessions hear of lights that are off, because these may be switched on.
bool IsWritten(const CRhinoObject& object, const ON_Light& light, const IprSettings* iprSettings) {
  const bool isOn = light.IsEnabled() || iprSettings != nullptr;
  return isOn && object.IsVisible();
}

LightSource SourceOf(const ON_Light& light, const RenderSettings& settings) {
  LightSource source{.Light = light, .Attributes = ReadLightAttributes(&light)};
  source.Shadow = light.ShadowIntensity();
  source.ShadowSamples = source.Attributes.ShadowSamples;
  if (settings.Draft && source.ShadowSamples >= 2) {
    source.ShadowSamples = 1;
  } else if (source.ShadowSamples <= 0) {
    source.Shadow = 0;
  }
  source.Color = AdjustedColor(source.Attributes.Color, settings);
  source.ShadowColor =
      Mixed(AdjustedColor(source.Attributes.ShadowColor, settings), source.Shadow, source.Color);
  return source;
}

// Photons are kept in millions.
int PhotonCount(const LightSource& source) {
  const bool isDirectional = source.Light.Style() == ON_LightStyle::world_directional;
  if (isDirectional || !source.Attributes.EmitPhotons) return 0;
  const double photons = source.Attributes.Photons * 1e6;
  return static_cast<int>(std::clamp<double>(photons, 0, std::numeric_limits<int>::max()));
}

// `kind` is null for a light without a statement.
void WriteLight(RibWriter& writer, const CRhinoObject& object, const ON_Light& light,
                const LightKind* kind, const RenderSettings& settings,
                const IprSettings* iprSettings, Lighting& lighting) {
  LightSource source = SourceOf(light, settings);
  source.IsInteractive = iprSettings != nullptr;
  source.Number = static_cast<int>(object.RuntimeSerialNumber());
  if (source.Shadow > 0) lighting.ShadowUsed = true;
  if (settings.CausticPhotonPass) {
    RibPrintf(writer, "Attribute \"light\" \"nphotons\" [%d]\n", PhotonCount(source));
  }
  if (kind != nullptr) {
    ++lighting.LightCount;
    if (!source.IsInteractive) source.Number = lighting.LightCount;
    kind->Write(writer, source);
  }
  RibPrintf(writer, "Illuminate %d %d\n", source.Number, light.IsEnabled() ? 1 : 0);
}

}  // namespace

bool WriteDocumentLights(RibWriter& writer, const ObjectList& objects,
                         const RenderSettings& settings, const IprSettings* iprSettings,
                         Lighting& lighting) {
  if (!settings.UseLights) return true;
  for (const CRhinoObject* object : objects) {
    const ON_Light* light = ON_Light::Cast(object->Geometry());
    if (light == nullptr || !IsWritten(*object, *light, iprSettings)) continue;
    if (writer.HasError()) return false;
    const LightKind* kind = KindOf(*light);
    if (kind != nullptr && !HasItsNumbers(*light, *kind)) continue;
    WriteLight(writer, *object, *light, kind, settings, iprSettings, lighting);
  }
  return true;
}

void WriteVisibility(RibWriter& writer, const RenderSettings& settings, const Lighting& lighting) {
  if (lighting.ShadowUsed) RibPrintf(writer, "Attribute \"visibility\" \"integer shadow\" [1]\n");
  if (settings.ReflectionMaxDepth > 0) {
    RibPrintf(writer, "Attribute \"visibility\" \"integer trace\" [1]\n");
  }
}

void WriteDefaultLight(RibWriter& writer, const CRhinoView& view, const RenderSettings& settings,
                       const Lighting& lighting) {
  if (!settings.UseLights || lighting.LightCount > 0) return;
  const ON_Viewport& viewport = view.Viewport().VP();
  const ON_3dPoint from = viewport.CameraLocation();
  const ON_3dPoint to = from + viewport.CameraDirection();
  RibPrintf(writer, "LightSource \"distantlight\" 1 \"intensity\" [ 1 ] \"lightcolor\" [ 1 1 1 ] ");
  RibPrintf(writer, "\"from\" [ %g %g %g ] \"to\" [ %g %g %g ]\n", from.x, from.y, from.z, to.x,
            to.y, to.z);
}

}  // namespace orv
