#include "interactive/light_statements.h"

#include "export/coordinates.h"
#include "export/rib_color.h"
#include "export/rib_text.h"
#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "host/system/path.h"
#include "host/system/text.h"
#include "shading/light_attributes.h"

namespace orv {
namespace {

using host::Format;

// A light, and what its statements say of it.
struct LiveLight {
  const ON_Light& Light;
  LightAttributes Attributes;
  int Number;
  double Gamma;
};

bool IsDirectional(const ON_Light& light) {
  return light.Style() == ON_LightStyle::world_directional ||
         light.Style() == ON_LightStyle::camera_directional;
}

bool IsPoint(const ON_Light& light) {
  return light.Style() == ON_LightStyle::world_point ||
         light.Style() == ON_LightStyle::camera_point;
}

bool IsRectangular(const ON_Light& light) {
  return light.Style() == ON_LightStyle::world_rectangular;
}

bool IsLinear(const ON_Light& light) {
  return light.Style() == ON_LightStyle::world_linear;
}

// Documents may hold numbers that are none; such a light isn't in the scene either.
bool HasItsNumbers(const ON_Light& light) {
  return AreCoordinates(light.Location()) && AreCoordinates(light.Direction()) &&
         AreCoordinates(light.Length()) && AreCoordinates(light.Width());
}

// The blue of a mixed shadow is made with the light's green; the renderer's users know it so.
RibColor ShadowColor(const LiveLight& live, const RibColor& light) {
  const RibColor shadow = PlainColor(GammaAdjustColor(live.Attributes.ShadowColor, live.Gamma));
  return Mixed(shadow, live.Attributes.ShadowIntensity, {light.Red, light.Green, light.Green});
}

std::string ShadowText(const LiveLight& live, const RibColor& light) {
  const RibColor shadow = ShadowColor(live, light);
  return Format(" \"color shadowcolor\" [%g %g %g] \"string shadowname\" \"%s\" ", shadow.Red,
                shadow.Green, shadow.Blue, live.Attributes.ShadowIntensity > 0 ? "raytrace" : "");
}

// What the renderer's own values stand for is left out: a value that the light doesn't have.
std::string ParameterText(const LiveLight& live, bool forNewLight) {
  const auto has = [&live](const char* key) { return live.Light.GetUserString(key).has_value(); };
  const LightAttributes& values = live.Attributes;
  const RibColor color = PlainColor(GammaAdjustColor(values.Color, live.Gamma));
  std::string text = Format("\"color lightcolor\" [%g %g %g]", color.Red, color.Green, color.Blue);
  if (has("OrvLightIntensity")) text += Format(" \"float intensity\" [%g]", values.Intensity);
  if (!IsDirectional(live.Light) && (forNewLight || has("OrvLightFalloff"))) {
    text += Format(" \"float falloff\" [%d]", values.Falloff);
  }
  if (has("OrvShadowBlur")) text += Format(" \"float shadowblur\" [%g]", values.ShadowBlur);
  if (has("OrvShadowSamples")) {
    const bool hasShape = IsRectangular(live.Light) || IsLinear(live.Light);
    text +=
        Format(" \"float %s\" [%d]", hasShape ? "samples" : "shadowsamples", values.ShadowSamples);
  }
  text += ShadowText(live, color);
  if (has("OrvLightEmitDiffuse")) {
    text += Format(" \"float __nonspecular\" [%d] \"float __nondiffuse\" [%d]",
                   values.EmitSpecular ? 0 : 1, values.EmitDiffuse ? 0 : 1);
  }
  return text;
}

std::string Triple(ON_3dVector v) {
  return Format("%g %g %g", v.x, v.y, v.z);
}

std::string From(const ON_Light& light) {
  return Triple(ON_FromOrigin(light.Location()));
}

// A point in the light's direction.
std::string To(const ON_Light& light) {
  return Triple(ON_FromOrigin(light.Location() + light.Direction()));
}

std::string ConeText(const ON_Light& light, const char* prefix) {
  constexpr double kConeDelta = 0.25;
  const double angle = light.SpotAngleRadians();
  return Format(" \"%sconeangle\" [ %g ] \"%sconedeltaangle\" [ %g ] \"%sbeamdistribution\" [ %g ]",
                prefix, angle, prefix, angle * kConeDelta, prefix, light.SpotExponent());
}

// A vector without a length stays as it is.
ON_3dVector Unitized(ON_3dVector v) {
  const double length = v.Length();
  return length > 0 ? v * (1 / length) : v;
}

// The texture is the file of a measured lamp.
bool IsPhotometric(const LightAttributes& attributes) {
  return attributes.UseTexture && !attributes.Texture.empty() &&
         host::EqualNoCase(host::SplitPath(attributes.Texture).Extension, ".ies");
}

// A measured lamp stands in the rectangle's middle and has no size.
std::string RectangleTransform(const LiveLight& live) {
  const ON_Light& light = live.Light;
  ON_3dVector x = light.Length();
  ON_3dVector y = light.Width();
  ON_3dVector z = light.Direction();
  ON_3dPoint place = light.Location();
  const bool isPhotometric = IsPhotometric(live.Attributes);
  if (isPhotometric) {
    place = place + (x + y) * 0.5;
    x = Unitized(x);
    y = Unitized(y);
    z = -Unitized(z);
  }
  return Format(" IrLightTransform %d [ %s 0.0 %s 0.0 %s 0.0 %s 1 ]%s", live.Number,
                Triple(x).c_str(), Triple(y).c_str(), Triple(z).c_str(),
                Triple(ON_FromOrigin(place)).c_str(), isPhotometric ? "\n" : "");
}

// Without the light's number, as the renderer takes it.
std::string LineTransform(const ON_Light& light) {
  return Format(" IrLightTransform [ %s 0.0 1 1 1 0.0 1 1 1 0.0 %s 1]",
                Triple(light.Length()).c_str(), From(light).c_str());
}

std::string TransformText(const LiveLight& live) {
  const ON_Light& light = live.Light;
  if (IsDirectional(light)) {
    return "\"point from\" [" + From(light) + "] \"point to\" [" + To(light) + "] ";
  }
  if (IsPoint(light)) return "\"point from\" [" + From(light) + "] ";
  if (light.IsSpotLight()) {
    return " \"from\" [ " + From(light) + " ] \"to\" [ " + To(light) + " ]" + ConeText(light, "");
  }
  if (IsRectangular(light)) return RectangleTransform(live);
  return IsLinear(light) ? LineTransform(light) : std::string();
}

// The shader of a light that can come into a running session; null for the others.
const char* NewLightShader(const ON_Light& light) {
  if (IsDirectional(light)) return "distantlight";
  if (IsPoint(light)) return "pointlight";
  return light.IsSpotLight() ? "spotlight" : nullptr;
}

std::string NewLightPlace(const ON_Light& light) {
  if (IsDirectional(light)) {
    return " \"point from\" [" + From(light) + "] \"point to\" [" + To(light) + "] ";
  }
  if (IsPoint(light)) return " \"point from\" [" + From(light) + "] ";
  return " \"point from\" [ " + From(light) + " ] \"point to\" [ " + To(light) + " ]" +
         ConeText(light, "float ");
}

LiveLight LiveLightOf(const CRhinoObject& object, const ON_Light& light, double gamma) {
  return {light, ReadLightAttributes(&light), static_cast<int>(object.RuntimeSerialNumber()),
          gamma};
}

}  // namespace

std::string LightTweakStatements(const CRhinoObject& object, const ON_Light& light,
                                 bool withTransform, double gamma) {
  if (!HasItsNumbers(light)) return {};
  const LiveLight live = LiveLightOf(object, light, gamma);
  std::string text = Format("IrTweakLight %d ", live.Number) + ParameterText(live, false);
  if (withTransform) text += TransformText(live);
  return text + LightSwitchStatement(object, live.Attributes.Enabled);
}

std::string NewLightStatement(const CRhinoObject& object, const ON_Light& light, double gamma) {
  const char* const shader = NewLightShader(light);
  if (shader == nullptr || !HasItsNumbers(light)) return {};
  const LiveLight live = LiveLightOf(object, light, gamma);
  return Format("IrNewLight \"%s\" %d [1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1] ", shader, live.Number) +
         ParameterText(live, true) + NewLightPlace(light);
}

std::string LightSwitchStatement(const CRhinoObject& object, bool on) {
  return Format("IrIlluminateAll %d %d", static_cast<int>(object.RuntimeSerialNumber()),
                on ? 1 : 0);
}

}  // namespace orv
