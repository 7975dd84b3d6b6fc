#include "settings/bake_pass.h"

#include <limits>

#include "settings/setting_text.h"

namespace orv {
namespace {

int WholePart(double value) {
  return static_cast<int>(SettingBounds{0, std::numeric_limits<int>::max()}.Hold(value));
}

void CopyImage(const BakeSettings& bake, RenderSettings& settings) {
  settings.PixelSamples = bake.BakePixelSamples;
  settings.ShadingSamples = WholePart(bake.BakeShadingSamples);
  settings.RibGamma = bake.BakeGamma;
  settings.ImagePrecision = bake.BakePrecision;
  settings.ImageName = bake.BakeImageName;
  settings.ImageWidth = bake.BakeImageWidth;
  settings.ImageHeight = bake.BakeImageHeight;
  settings.SharpFilter = bake.BakeSharpFilter;
}

void CopyMaps(const BakeSettings& bake, RenderSettings& settings) {
  settings.DisplayMode = bake.BakeDisplayChannels;
  settings.BakeDisplayChannels2 = bake.BakeDisplayChannels2;
  settings.BakeDisplayChannels3 = bake.BakeDisplayChannels3;
  settings.BakeDisplayChannels4 = bake.BakeDisplayChannels4;
  settings.BakeDisplayChannels5 = bake.BakeDisplayChannels5;
  settings.BakeSuffix2 = bake.BakeSuffix2;
  settings.BakeSuffix3 = bake.BakeSuffix3;
  settings.BakeSuffix4 = bake.BakeSuffix4;
  settings.BakeSuffix5 = bake.BakeSuffix5;
  settings.BakeUseMap1 = bake.BakeUseMap1;
  settings.BakeUseMap2 = bake.BakeUseMap2;
  settings.BakeUseMap3 = bake.BakeUseMap3;
  settings.BakeUseMap4 = bake.BakeUseMap4;
  settings.BakeUseMap5 = bake.BakeUseMap5;
  settings.BakeBorder = bake.BakeBorder;
  settings.BakeBorderWrap = bake.BakeBorderWrap;
  settings.BakeTexelSize = bake.BakeTexelSize;
}

void CopyMesh(const BakeSettings& bake, RenderSettings& settings) {
  settings.BakeEdgeLength = bake.BakeEdgeLength;
  settings.BakeMeshMode = bake.BakeMeshMode;
  settings.BakeNormals = bake.BakeNormals;
  settings.BakeTexCoords = bake.BakeTexCoords;
}

}  // namespace

void CopyBakeSettings(const BakeSettings& bake, RenderSettings& settings) {
  CopyImage(bake, settings);
  CopyMaps(bake, settings);
  CopyMesh(bake, settings);
}

}  // namespace orv
