#include "export/bake_mesh.h"

namespace orv {
namespace {

enum BakeMeshMode {
  kOcclusion = 1,
  kIndirect = 2,
  kDiffuse = 3,
  kDiffuseLight = 4,
  kUnlitColor = 5
};

void WriteMeshOutput(RibWriter& writer, const char* output) {
  RibPrintf(writer, "Attribute \"render\" \"meshoutput\" \"%s\"\n", output);
}

void WriteBakedLighting(RibWriter& writer, RenderSettings& settings) {
  switch (settings.BakeMeshMode) {
    case kOcclusion:
      WriteMeshOutput(writer, "float prim_occ=Ci[0]");
      settings.Surface = "\"occlusionpass\"";
      settings.RibGamma = 1;
      break;
    case kIndirect:
      WriteMeshOutput(writer, "color prim_indirect=Ci");
      RibPrintf(writer, "Attribute \"visibility\" \"indirect\" [1]\n");
      settings.Surface = "\"indirectpass\"";
      settings.RibGamma = 1;
      break;
    case kDiffuse:
      WriteMeshOutput(writer, "color prim_diffuse=color __diffuse");
      break;
    case kDiffuseLight:
      WriteMeshOutput(writer, "color prim_diffuse_light=color __diffuse");
      settings.Colors = false;
      settings.Surface = "\"matte\"";
      break;
    case kUnlitColor:
      WriteMeshOutput(writer, "color Cs=color __constant");
      settings.UseLights = false;
      settings.GiMode = 0;
      break;
    default:
      break;
  }
}

void WriteLeftOut(RibWriter& writer, const RenderSettings& settings) {
  if (settings.BakeNormals && settings.BakeTexCoords) return;
  const char* leftOut = "N,st";
  if (settings.BakeTexCoords) leftOut = "N";
  if (settings.BakeNormals) leftOut = "st";
  RibPrintf(writer, "Attribute \"render\" \"meshexclude\" \"%s\"\n", leftOut);
}

}  // namespace

void WriteBakeMeshOptions(RibWriter& writer, RenderSettings& settings) {
  if (!settings.BakeEnable || !settings.BakeMesh) return;
  RibPrintf(writer, "Option \"bake\" \"bakemesh\" [1]\n");
  if (settings.BakeEdgeLength > 0) {
    RibPrintf(writer, "GeometricApproximation \"edgelength\" [%g]\n", settings.BakeEdgeLength);
  }
  WriteBakedLighting(writer, settings);
  WriteLeftOut(writer, settings);
}

}  // namespace orv
