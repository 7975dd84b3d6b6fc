#include "interactive/background_updates.h"

namespace orv {

AmbientUpdate AmbientUpdateOf(const RenderSettings& settings) {
  constexpr int kColor = 0;
  AmbientUpdate update;
  update.Mode = settings.GiMode;
  if (settings.GiBgMode == kColor) {
    update.Intensity = settings.GiBgColorIntensity;
    update.Color = settings.GiBgColor;
  } else {
    update.MapIntensity = settings.GiBgMapIntensity;
    update.MapBlur = settings.GiBgBlur;
    update.MapName = settings.GiBgMap;
  }
  return update;
}

ReflectionUpdate ReflectionUpdateOf(const RenderSettings& settings) {
  return {settings.ReflectionBgMode,  settings.ReflectionColorIntensity,
          settings.ReflectionBgColor, settings.ReflectionMapIntensity,
          settings.ReflectionBlur,    settings.ReflectionRotateZ,
          settings.ReflectionBgMap};
}

ImagerUpdate ImagerUpdateOf(const RenderSettings& settings) {
  return {settings.ImageBgMode,      settings.ImageBgColor, settings.ImageBgBottom,
          settings.ImageBgIntensity, settings.ImageBgBlur,  settings.ImageBgRotateZ,
          settings.ImageBgMap};
}

}  // namespace orv
