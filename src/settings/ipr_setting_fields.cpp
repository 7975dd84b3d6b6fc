#include "settings/settings_store.h"

namespace orv {
namespace {

constexpr SettingField<IprSettings> kFields[] = {
    {"IprImageWidth", &IprSettings::IprImageWidth, {0, 2048}},
    {"IprImageHeight", &IprSettings::IprImageHeight, {0, 2048}},
    {"IprMaxShadowRays", &IprSettings::IprMaxShadowRays, {1, 1024}},
    {"IprMaxReflectionRays", &IprSettings::IprMaxReflectionRays, {1, 1024}},
    {"IprViewName", &IprSettings::IprViewName},
    {"IprAutoReflect", &IprSettings::IprAutoReflect},
    {"IprSmoothEdges", &IprSettings::IprSmoothEdges},
    {"IprShadeMode", &IprSettings::IprShadeMode, {0, 2}},
    {"IprLowPriority", &IprSettings::IprLowPriority},
    {"IprForceMesh", &IprSettings::IprForceMesh},
};

}  // namespace

std::span<const SettingField<IprSettings>> IprSettingFields() {
  return kFields;
}

}  // namespace orv
