#include "export/lights.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "export/coordinates.h"
#include "export/light_source.h"
#include "export/linear_light.h"
#include "export/point_lights.h"
#include "export/rectangular_light.h"
#include "host/geometry/on_light.h"

namespace orv {
namespace {

using LightWriter = void (*)(RibWriter&, const LightSource&);

// Null for a kind of light that has no statement.
LightWriter WriterOf(const ON_Light& light) {
  if (light.IsSpotLight()) return WriteSpotLight;
  switch (light.Style()) {
    case ON_LightStyle::world_directional:
      return WriteDirectionalLight;
    case ON_LightStyle::world_point:
      return WritePointLight;
    case ON_LightStyle::world_linear:
      return WriteLinearLight;
    case ON_LightStyle::world_rectangular:
      return WriteRectangularLight;
    default:
      return nullptr;
  }
}

// The numbers that the statement of this kind of light is made of are set, and are numbers.
bool HasItsNumbers(const ON_Light& light) {
  const bool hasPlace = AreCoordinates(light.Location()) && std::isfinite(light.ShadowIntensity());
  const bool hasDirection = AreCoordinates(light.Direction());
  if (light.IsSpotLight()) {
    return hasPlace && hasDirection && std::isfinite(light.SpotAngleRadians()) &&
           std::isfinite(light.SpotExponent());
  }
  switch (light.Style()) {
    case ON_LightStyle::world_point:
      return hasPlace;
    case ON_LightStyle::world_directional:
      return hasPlace && hasDirection;
    case ON_LightStyle::world_linear:
      return hasPlace && AreCoordinates(light.Length());
    case ON_LightStyle::world_rectangular:
      return hasPlace && hasDirection && AreCoordinates(light.Length()) &&
             AreCoordinates(light.Width());
    default:
      return true;
  }
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

void WriteLight(RibWriter& writer, const CRhinoObject& object, const ON_Light& light,
                const RenderSettings& settings, const IprSettings* iprSettings,
                Lighting& lighting) {
  LightSource source = SourceOf(light, settings);
  source.IsInteractive = iprSettings != nullptr;
  source.Number = static_cast<int>(object.RuntimeSerialNumber());
  if (source.Shadow > 0) lighting.ShadowUsed = true;
  if (settings.CausticPhotonPass) {
    RibPrintf(writer, "Attribute \"light\" \"nphotons\" [%d]\n", PhotonCount(source));
  }
  if (const LightWriter write = WriterOf(light)) {
    ++lighting.LightCount;
    if (!source.IsInteractive) source.Number = lighting.LightCount;
    write(writer, source);
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
    if (!HasItsNumbers(*light)) continue;
    WriteLight(writer, *object, *light, settings, iprSettings, lighting);
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
