#include "interactive/background_statements.h"

#include <cmath>

#include "export/rib_color.h"
#include "export/rib_text.h"
#include "host/system/text.h"

namespace orv {
namespace {

using host::Format;

RibColor Adjusted(ON_Color color, double gamma, double factor = 1) {
  return PlainColor(GammaAdjustColor(color, gamma), factor);
}

std::string MapPath(const std::string& name) {
  constexpr std::size_t kMostCharacters = 1000;
  return RibPath(host::FirstCodePoints(name, kMostCharacters));
}

// Names a space that is turned about the z axis, row after row.
std::string TurnedSpaceStatement(const char* name, double degrees) {
  // 3.14159 / 180; the renderer's scenes are turned with this value.
  constexpr double kRadians = 0.017453277777777776;
  const double c = std::cos(degrees * kRadians);
  const double s = std::sin(degrees * kRadians);
  return Format(
      "IrTweakCoordinateSystem \"%s\" [%g %g %g %g  %g %g %g %g  %g %g %g %g  %g %g %g %g]\n", name,
      c, s, 0.0, 0.0, -s, c, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0);
}

std::string GradientStatement(const ImagerUpdate& update, double gamma) {
  const RibColor top = Adjusted(update.Color, gamma);
  const RibColor bottom = Adjusted(update.Bottom, gamma);
  return Format(
      "IrNewImager \"VBgGradient\" \"color TopColor\" [%g %g %g] \"color BottomColor\" [%g %g %g]",
      top.Red, top.Green, top.Blue, bottom.Red, bottom.Green, bottom.Blue);
}

std::string EnvironmentStatement(const ImagerUpdate& update) {
  return Format(
      "IrNewImager \"VBgEnvironment\" \"float Intensity\" [%g] \"string EnvironmentName\" \"%s\" "
      "\"string EnvironmentSpace\" \"bgspace\" \"float EnvironmentBlur\" [%g]",
      update.MapIntensity, MapPath(update.MapName).c_str(), update.MapBlur);
}

}  // namespace

std::string AmbientStatement(const AmbientUpdate& update, double gamma) {
  // Ambient, occlusion, and occlusion with a cache: the modes that have the light.
  if (update.Mode != 1 && update.Mode != 4 && update.Mode != 5) return {};
  if (!update.MapName.empty()) {
    return Format(
        "IrTweakLight 0 \"float intensity\" [%g] \"string envname\" [\"%s\"] "
        "\"float envblur\" [%g] \"color lightcolor\" [1 1 1]",
        update.MapIntensity, MapPath(update.MapName).c_str(), update.MapBlur);
  }
  const RibColor color = Adjusted(update.Color, gamma);
  return Format(
      "IrTweakLight 0 \"float intensity\" [%g] \"color lightcolor\" [%g %g %g] "
      "\"string envname\" [\"\"]",
      update.Intensity, color.Red, color.Green, color.Blue);
}

std::string ReflectionStatements(const ReflectionUpdate& update, double gamma) {
  const RibColor color = Adjusted(update.Color, gamma, update.ColorIntensity);
  switch (update.Mode) {
    case 0:
      return "IrTweakOption \"reflection\" \"float envstrength\" [0] \"color background\" [0 0 0] "
             "\"string envname\" [\"\"]";
    case 1:
      return Format(
          "IrTweakOption \"reflection\" \"color background\" [%g %g %g] \"string envname\" [\"\"]",
          color.Red, color.Green, color.Blue);
    case 2:
      return Format(
                 "IrTweakOption \"reflection\" \"float envstrength\" [%g] "
                 "\"color background\" [1 1 1] \"string envname\" [\"%s\"] \"float envblur\" "
                 "[%g]\n",
                 update.MapIntensity, MapPath(update.MapName).c_str(), update.MapBlur) +
             TurnedSpaceStatement("reflectionspace", update.Rotation);
    default:
      return {};
  }
}

std::string ImagerStatements(const ImagerUpdate& update, double gamma) {
  const RibColor color = Adjusted(update.Color, gamma);
  switch (update.Mode) {
    case 0:
      return "IrNewImager \"null\"";
    case 1:
      return Format("IrNewImager \"background\" \"color background\" [%g %g %g]", color.Red,
                    color.Green, color.Blue);
    case 2:
      return GradientStatement(update, gamma);
    case 3:
      return Format(
          "IrNewImager \"VBackdrop\" \"float Intensity\" [%g] \"float TextureBlur\" [%g] "
          "\"string TextureName\" [\"%s\"]",
          update.MapIntensity, update.MapBlur, MapPath(update.MapName).c_str());
    case 4:
      return EnvironmentStatement(update) + TurnedSpaceStatement("bgspace", update.Rotation);
    default:
      return {};
  }
}

}  // namespace orv
