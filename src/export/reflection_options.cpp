#include "export/reflection_options.h"

#include "export/coordinate_space.h"
#include "export/rib_color.h"
#include "export/rib_text.h"

namespace orv {
namespace {

void WriteEnvironment(RibWriter& writer, const RenderSettings& settings) {
  if (settings.ReflectionBgMode == 2 && !settings.ReflectionBgMap.empty()) {
    RibPrintf(writer, "Option \"reflection\" \"string envname\" \"%s\"\n",
              RibPath(settings.ReflectionBgMap).c_str());
    RibPrintf(writer, "Option \"reflection\" \"float envstrength\" [%g]\n",
              settings.ReflectionMapIntensity);
    RibPrintf(writer, "Option \"reflection\" \"float envblur\" [%g]\n", settings.ReflectionBlur);
    RibPrintf(writer, "Option \"reflection\" \"string envspace\" \"reflectionspace\"\n");
  } else if (settings.ReflectionBgMode == 1) {
    const RibColor color =
        PlainColor(settings.ReflectionBgColor, settings.ReflectionColorIntensity);
    RibPrintf(writer, "Option \"reflection\" \"color background\" [%g %g %g]\n", color.Red,
              color.Green, color.Blue);
  }
}

}  // namespace

void WriteReflectionOptions(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "Option \"trace\" \"integer maxdepth\" %d\n", settings.ReflectionMaxDepth);
  WriteTurnedSpace(writer, "reflectionspace", settings.ReflectionRotateX,
                   settings.ReflectionRotateY, settings.ReflectionRotateZ);
  WriteEnvironment(writer, settings);
  RibPrintf(writer, "Attribute \"trace\" \"float bias\" [%g]\n", settings.TraceBias);
}

}  // namespace orv
