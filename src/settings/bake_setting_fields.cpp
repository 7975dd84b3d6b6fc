#include "settings/settings_store.h"

namespace orv {
namespace {

constexpr SettingField<BakeSettings> kFields[] = {
    {"BakeImageWidth", &BakeSettings::BakeImageWidth, {8, 4096}},
    {"BakeImageHeight", &BakeSettings::BakeImageHeight, {8, 4096}},
    {"BakeImageName", &BakeSettings::BakeImageName},
    {"BakeDisplayChannels", &BakeSettings::BakeDisplayChannels},
    {"BakeDisplayChannels2", &BakeSettings::BakeDisplayChannels2},
    {"BakeDisplayChannels3", &BakeSettings::BakeDisplayChannels3},
    {"BakeDisplayChannels4", &BakeSettings::BakeDisplayChannels4},
    {"BakeDisplayChannels5", &BakeSettings::BakeDisplayChannels5},
    {"BakeSuffix2", &BakeSettings::BakeSuffix2},
    {"BakeSuffix3", &BakeSettings::BakeSuffix3},
    {"BakeSuffix4", &BakeSettings::BakeSuffix4},
    {"BakeSuffix5", &BakeSettings::BakeSuffix5},
    {"BakeUseMap1", &BakeSettings::BakeUseMap1},
    {"BakeUseMap2", &BakeSettings::BakeUseMap2},
    {"BakeUseMap3", &BakeSettings::BakeUseMap3},
    {"BakeUseMap4", &BakeSettings::BakeUseMap4},
    {"BakeUseMap5", &BakeSettings::BakeUseMap5},
    {"BakeTexelSize", &BakeSettings::BakeTexelSize, {0, 10000}},
    {"BakeEdgeLength", &BakeSettings::BakeEdgeLength, {0, 10000}},
    {"BakeBorderWrap", &BakeSettings::BakeBorderWrap},
    {"BakeSharpFilter", &BakeSettings::BakeSharpFilter},
    {"BakeBorder", &BakeSettings::BakeBorder, {0, 100}},
    {"BakeShadingSamples", &BakeSettings::BakeShadingSamples, {0.01, 256}},
    {"BakePixelSamples", &BakeSettings::BakePixelSamples, {1, 16}},
    {"BakeGamma", &BakeSettings::BakeGamma, {0.1, 10}},
    {"BakePrecision", &BakeSettings::BakePrecision, {0, 2}},
    {"BakeMeshMode", &BakeSettings::BakeMeshMode, {0, 5}},
    {"BakeNormals", &BakeSettings::BakeNormals},
    {"BakeTexCoords", &BakeSettings::BakeTexCoords},
};

}  // namespace

std::span<const SettingField<BakeSettings>> BakeSettingFields() {
  return kFields;
}

}  // namespace orv
