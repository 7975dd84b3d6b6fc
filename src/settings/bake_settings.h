#pragma once

#include <string>

namespace orv {

// The map file that a fresh record names: baked.png in the folder that TEMP names, or without a
// folder when the environment has no TEMP. The program orvhost sees to it that there is one.
std::string DefaultBakeImageName();

// The settings of baking. Loaded and stored beside RenderSettings, with its own keys in the
// document's list.
struct BakeSettings {
  bool BakeSharpFilter = false;
  bool BakeBorderWrap = true;
  bool BakeNormals = true;
  bool BakeTexCoords = true;
  // The greatest size of a map, in pixels.
  int BakeImageWidth = 256;
  int BakeImageHeight = 256;
  int BakePixelSamples = 4;
  // 0 8-bit, 1 16-bit, 2 float.
  int BakePrecision = 0;
  int BakeMeshMode = 0;
  // In model units.
  double BakeTexelSize = 0.1;
  // In pixels.
  double BakeBorder = 1;
  double BakeShadingSamples = 1;
  double BakeGamma = 1.8;
  // In model units; 0 sets no limit.
  double BakeEdgeLength = 0;
  std::string BakeImageName = DefaultBakeImageName();
  // The channels of map 1 and of maps 2 to 5.
  std::string BakeDisplayChannels = "rgb";
  std::string BakeDisplayChannels2;
  std::string BakeDisplayChannels3;
  std::string BakeDisplayChannels4;
  std::string BakeDisplayChannels5;
  // What is added to the file name of maps 2 to 5.
  std::string BakeSuffix2 = "_2";
  std::string BakeSuffix3 = "_3";
  std::string BakeSuffix4 = "_4";
  std::string BakeSuffix5 = "_5";
  bool BakeUseMap1 = true;
  bool BakeUseMap2 = false;
  bool BakeUseMap3 = false;
  bool BakeUseMap4 = false;
  bool BakeUseMap5 = false;
};

}  // namespace orv
