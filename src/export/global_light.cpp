#include "export/global_light.h"

#include "export/light_channels.h"
#include "export/rib_color.h"
#include "export/rib_text.h"

namespace orv {
namespace {

// How rays are gathered, of indirect light and of occlusion alike. Without a cache there is no
// error.
void WriteGathering(RibWriter& writer, const RenderSettings& settings, bool usesCache) {
  RibPrintf(writer, "Attribute \"indirect\" \"integer nsamples\" %d\n", settings.GiSamples);
  RibPrintf(writer, "Attribute \"indirect\" \"float maxhitdist\" %g\n", settings.GiHitDist);
  if (settings.GiAdaptive) {
    RibPrintf(writer, "Attribute \"indirect\" \"integer adaptivesampling\" 1\n");
  }
  RibPrintf(writer, "Attribute \"indirect\" \"float maxpixeldist\" %g\n", settings.GiPixelDist);
  if (usesCache) {
    RibPrintf(writer, "Attribute \"indirect\" \"float maxerror\" %g\n", settings.GiMaxError);
  } else {
    RibPrintf(writer, "Attribute \"indirect\" \"float maxerror\" 0\n");
  }
}

void WriteIndirectShading(RibWriter& writer, int giShadeMode) {
  switch (giShadeMode) {
    case 0:
      RibPrintf(writer, "Attribute \"indirect\" \"string shading\" \"constant\"\n");
      break;
    case 1:
      RibPrintf(writer, "Attribute \"indirect\" \"string shading\" \"matte\"\n");
      break;
    case 2:
      RibPrintf(writer, "Attribute \"indirect\" \"string shading\" \"shader\"\n");
      break;
    default:
      break;
  }
}

void WriteIndirectLight(RibWriter& writer, const RenderSettings& settings) {
  if (settings.BounceChannels && WantsLightChannels(settings)) {
    RibPrintf(writer, "LightSource \"indirectchannels\" 0 \"float __bgchannel\" [0]\n");
  } else {
    RibPrintf(writer, "LightSource \"indirect\" 0\n");
  }
  RibPrintf(writer, "Attribute \"visibility\" \"integer indirect\" 1\n");
  WriteGathering(writer, settings, settings.GiMode == 3);
  WriteIndirectShading(writer, settings.GiShadeMode);
  RibPrintf(writer, "Attribute \"indirect\" \"float strength\" [%g]\n",
            settings.GiIndirectIntensity);
}

// How the environment's map is looked up, and its name when there is one.
void WriteEnvironmentMap(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, " \"float envblur\" [%g] \"string envspace\" \"gispace\"\n", settings.GiBgBlur);
  if (settings.GiBgMap.empty()) return;
  RibPrintf(writer, " \"string envname\" \"%s\"\n", RibPath(settings.GiBgMap).c_str());
}

void WriteOcclusionLight(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "LightSource \"envlight\" 0 \"float __channel\" [0]");
  if (settings.GiBgMode == 0) {
    const RibColor color = AdjustedColor(settings.GiBgColor, settings);
    RibPrintf(writer, " \"float intensity\" [%g]", settings.GiBgColorIntensity);
    RibPrintf(writer, " \"color lightcolor\" [%g %g %g]", color.Red, color.Green, color.Blue);
  } else {
    RibPrintf(writer, " \"float intensity\" [%g]", settings.GiBgMapIntensity);
    WriteEnvironmentMap(writer, settings);
  }
  const RibColor shadow = AdjustedColor(settings.GiOccShadow, settings);
  RibPrintf(writer, " \"color shadowcolor\" [%g %g %g]\n", shadow.Red, shadow.Green, shadow.Blue);
  WriteGathering(writer, settings, settings.GiMode == 5);
}

// A session keeps its light even when it is dark, because it may become bright.
void WriteInteractiveAmbientLight(RibWriter& writer, const RenderSettings& settings) {
  const RibColor color = AdjustedColor(settings.GiBgColor, settings);
  RibPrintf(writer,
            "LightSource \"envlight\" 0 \"string mapname\" [\"\"] \"intensity\" [ %g ] "
            "\"lightcolor\" [ %g %g %g ]\n",
            settings.GiBgColorIntensity, color.Red, color.Green, color.Blue);
}

void WriteAmbientColor(RibWriter& writer, const RenderSettings& settings) {
  const RibColor color = AdjustedColor(settings.GiBgColor, settings);
  const bool isBlack = color.Red <= 0 && color.Green <= 0 && color.Blue <= 0;
  if (isBlack || settings.GiBgColorIntensity <= 0) return;
  RibPrintf(writer,
            "LightSource \"ambientlight\" 0 \"intensity\" [ %g ] \"lightcolor\" [ %g %g %g ]\n",
            settings.GiBgColorIntensity, color.Red, color.Green, color.Blue);
}

void WriteAmbientMap(RibWriter& writer, const RenderSettings& settings) {
  RibPrintf(writer, "LightSource \"envlight\" 0 \"float __channel\" [0]");
  RibPrintf(writer, " \"float intensity\" [%g] \"string mapname\" [\"\"]",
            settings.GiBgMapIntensity);
  WriteEnvironmentMap(writer, settings);
}

void WriteAmbientLight(RibWriter& writer, const RenderSettings& settings,
                       const IprSettings* iprSettings, Lighting& lighting) {
  if (iprSettings != nullptr) {
    WriteInteractiveAmbientLight(writer, settings);
  } else if (settings.GiBgMode == 0) {
    WriteAmbientColor(writer, settings);
    return;
  } else {
    WriteAmbientMap(writer, settings);
  }
  lighting.LightCount = 1;
}

}  // namespace

void WriteGlobalLight(RibWriter& writer, const RenderSettings& settings,
                      const IprSettings* iprSettings, Lighting& lighting) {
  switch (settings.GiMode) {
    case 1:
      WriteAmbientLight(writer, settings, iprSettings, lighting);
      break;
    case 2:
    case 3:
      lighting.LightCount = 1;
      WriteIndirectLight(writer, settings);
      break;
    case 4:
    case 5:
      lighting.LightCount = 1;
      lighting.ShadowUsed = true;
      WriteOcclusionLight(writer, settings);
      break;
    default:
      break;
  }
}

}  // namespace orv
