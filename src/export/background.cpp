#include "export/background.h"

#include <string>

#include "export/rib_color.h"
#include "export/rib_text.h"

namespace orv {
namespace {

void WriteSpace(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "TransformBegin\n");
  RibPrintf(writer, "  Rotate %g 0 0 1\n", settings.ImageBgRotateZ);
  RibPrintf(writer, "  CoordinateSystem \"bgspace\"\n");
  RibPrintf(writer, "TransformEnd\n");
}

void WriteColor(RibWriter& writer, const RenderSettings& settings) {
  const RibColor color = AdjustedColor(settings.ImageBgColor, settings);
  RibPrintf(writer, "Imager \"background\" \"color background\" [ %g %g %g ]\n", color.Red,
            color.Green, color.Blue);
}

void WriteGradient(RibWriter& writer, const RenderSettings& settings) {
  const RibColor top = AdjustedColor(settings.ImageBgColor, settings);
  const RibColor bottom = AdjustedColor(settings.ImageBgBottom, settings);
  RibPrintf(writer,
            "Imager \"VBgGradient\" \"color TopColor\" [ %g %g %g ] "
            "\"color BottomColor\" [ %g %g %g ]\n",
            top.Red, top.Green, top.Blue, bottom.Red, bottom.Green, bottom.Blue);
}

std::string ConvertedMap(const RenderSettings& settings, const char* mode,
                         TextureConverter& textures) {
  return RibPath(textures.ConvertTexture(settings.ImageBgMap, mode, settings.ConvertTextures,
                                         settings.TextureGamma));
}

void WriteWallpaper(RibWriter& writer, const RenderSettings& settings, TextureConverter& textures) {
  RibPrintf(writer,
            "Imager \"VBackdrop\" \"float Intensity\" [%g] \"string TextureName\" \"%s\" "
            "\"float TextureBlur\" [%g]\n",
            settings.ImageBgIntensity, ConvertedMap(settings, "clamp", textures).c_str(),
            settings.ImageBgBlur);
}

void WriteEnvironment(RibWriter& writer, const RenderSettings& settings,
                      TextureConverter& textures) {
  RibPrintf(writer,
            "Imager \"VBgEnvironment\" \"float Intensity\" [%g] \"string EnvironmentName\" \"%s\" "
            "\"string EnvironmentSpace\" \"bgspace\" \"float EnvironmentBlur\" [%g]\n",
            settings.ImageBgIntensity, ConvertedMap(settings, "periodic", textures).c_str(),
            settings.ImageBgBlur);
}

}  // namespace

void WriteBackground(RibWriter& writer, const RenderSettings& settings,
                     TextureConverter& textures) {
  WriteSpace(writer, settings);
  const bool hasMap = !settings.ImageBgMap.empty();
  switch (settings.ImageBgMode) {
    case 1:
      WriteColor(writer, settings);
      break;
    case 2:
      WriteGradient(writer, settings);
      break;
    case 3:
      if (hasMap) WriteWallpaper(writer, settings, textures);
      break;
    case 4:
      if (hasMap) WriteEnvironment(writer, settings, textures);
      break;
    default:
      break;
  }
}

}  // namespace orv
