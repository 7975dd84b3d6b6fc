#include <array>
#include <optional>

#include "export/material_draft.h"
#include "export/rib_text.h"
#include "host/system/text.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

using Fractions = std::array<double, 3>;

std::optional<Fractions> ColorParam(std::string_view call, std::string_view name) {
  Fractions color{};
  if (!GetColorParam(call, name, color[0], color[1], color[2])) return std::nullopt;
  return color;
}

std::optional<double> FloatParam(std::string_view call, std::string_view name) {
  double value = 0;
  if (!GetFloatParam(call, name, value)) return std::nullopt;
  return value;
}

Fractions Scaled(const Fractions& color, double factor) {
  return {color[0] * factor, color[1] * factor, color[2] * factor};
}

std::optional<Fractions> MirrorColor(const MaterialDraft& draft, bool isMetal) {
  const std::string& surface = draft.Attributes.Surface;
  if (const auto color = ColorParam(surface, "SpecularColor")) return color;
  if (const auto color = ColorParam(surface, "specularcolor")) return color;
  if (!isMetal) return std::nullopt;
  const ON_Color diffuse = GammaAdjustColor(draft.Attributes.Diffuse, draft.Settings.RhinoGamma);
  return Fractions{diffuse.FractionRed(), diffuse.FractionGreen(), diffuse.FractionBlue()};
}

// What is mirrored: the colour times the strength, or either of them alone.
Fractions Mirrored(const MaterialDraft& draft, bool isMetal) {
  const std::string& surface = draft.Attributes.Surface;
  const std::optional<Fractions> color = MirrorColor(draft, isMetal);
  std::optional<double> strength = FloatParam(surface, "Specular");
  if (!strength) strength = FloatParam(surface, "Ks");
  if (!color && !strength) return {};
  return Scaled(color.value_or(Fractions{1, 1, 1}), strength.value_or(1));
}

void AddColor(MaterialDraft& draft, const char* name, const Fractions& color) {
  draft.Add(host::Format("Attribute \"caustic\" \"%s\" [%g %g %g]\n", name, color[0], color[1],
                         color[2]));
}

// The last one that the call has wins.
double IndexOfRefraction(std::string_view surface) {
  double index = 0;
  for (const std::string_view name : {"IndexOfRefraction", "IOR", "ior"}) {
    GetFloatParam(surface, name, index);
  }
  return index;
}

}  // namespace

void AddCaustics(MaterialDraft& draft, bool isMetal) {
  const std::string& surface = draft.Attributes.Surface;
  const Fractions mirrored = Mirrored(draft, isMetal);
  if (mirrored[0] > 0 || mirrored[1] > 0 || mirrored[2] > 0) {
    AddColor(draft, "specularcolor", mirrored);
  }
  if (const auto transmitted = ColorParam(surface, "TransmissionColor")) {
    const double strength = FloatParam(surface, "Transmission").value_or(1);
    AddColor(draft, "refractioncolor", Scaled(*transmitted, strength));
  }
  const double index = IndexOfRefraction(surface);
  if (index > 0) {
    draft.Add(host::Format("Attribute \"caustic\" \"indexofrefraction\" [%g]\n", index));
  }
}

}  // namespace orv
