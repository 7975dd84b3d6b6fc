#include "export/gi_options.h"

#include "export/coordinate_space.h"
#include "export/light_channels.h"
#include "export/rib_color.h"
#include "export/rib_text.h"

namespace orv {
namespace {

void WriteSurroundings(RibWriter& writer, const RenderSettings& settings) {
  if (settings.GiBgMode == 0) {
    const RibColor color = PlainColor(settings.GiBgColor, settings.GiBgColorIntensity);
    RibPrintf(writer, "Option \"indirect\" \"color background\" [%g %g %g]\n", color.Red,
              color.Green, color.Blue);
  } else if (settings.GiBgMode == 1 && !settings.GiBgMap.empty()) {
    RibPrintf(writer, "Option \"indirect\" \"float envstrength\" [%g]\n",
              settings.GiBgMapIntensity);
    RibPrintf(writer, "Option \"indirect\" \"float envblur\" [%g]\n", settings.GiBgBlur);
    RibPrintf(writer, "Option \"indirect\" \"string envspace\" [\"gispace\"]\n");
    RibPrintf(writer, "Option \"indirect\" \"string envname\" \"%s\"\n",
              RibPath(settings.GiBgMap).c_str());
  }
}

// One file serves for reading and writing. `category` is that of the options.
void WriteCacheFiles(RibWriter& writer, const char* category, const RenderSettings& settings) {
  const std::string name = RibPath(settings.GiCacheName);
  if (settings.GiReadCache) {
    RibPrintf(writer, "Option \"%s\" \"string seedfile\" \"%s\"\n", category, name.c_str());
  }
  if (settings.GiWriteCache) {
    RibPrintf(writer, "Option \"%s\" \"string savefile\" \"%s\"\n", category, name.c_str());
  }
}

void WriteIndirectCache(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "Option \"indirect\" \"integer prepass\" [1]\n");
  if (settings.BounceChannels && WantsLightChannels(settings)) {
    RibPrintf(writer, "Option \"indirect\" \"string prepasschannels\" \"__lights\"\n");
  }
  WriteCacheFiles(writer, "indirect", settings);
}

void WriteOcclusionCache(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "Option \"occlusion\" \"integer prepass\" [1]\n");
  WriteCacheFiles(writer, "occlusion", settings);
}

}  // namespace

void WriteGiOptions(RibWriter& writer, const RenderSettings& settings) {
  WriteTurnedSpace(writer, "gispace", settings.GiBgRotateX, settings.GiBgRotateY,
                   settings.GiBgRotateZ);
  if (settings.GiMode == 2 || settings.GiMode == 3) {
    RibPrintf(writer, "Option \"indirect\" \"integer maxbounce\" [%d]\n", settings.GiMaxBounce);
    WriteSurroundings(writer, settings);
  }
  if (settings.GiMode == 3) WriteIndirectCache(writer, settings);
  if (settings.GiMode == 5) WriteOcclusionCache(writer, settings);
}

}  // namespace orv
