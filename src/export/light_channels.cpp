#include "export/light_channels.h"

#include <string_view>

#include "export/caustic_light.h"
#include "host/geometry/on_light.h"
#include "shading/light_attributes.h"

namespace orv {
namespace {

constexpr std::size_t kEnvironmentSlot = 0;

bool HasGlobalChannel(const RenderSettings& settings) {
  const bool occlusion = settings.GiMode == 4 || settings.GiMode == 5;
  const bool indirect = settings.GiMode == 2 || settings.GiMode == 3;
  return occlusion || (indirect && settings.BounceChannels);
}

void CountLight(const ON_Light& light, LightChannelCounts& counts) {
  const int channel = ReadLightAttributes(&light).Channel;
  if (channel >= 1 && channel <= 9) ++counts[static_cast<std::size_t>(channel)];
}

}  // namespace

bool WantsLightChannels(const RenderSettings& settings) {
  return settings.UseExtraChannels &&
         settings.ExtraChannels.find("Lights") != std::string_view::npos;
}

LightChannelCounts CountLightChannels(const RenderSettings& settings, const ObjectList& objects) {
  LightChannelCounts counts{};
  if (!WantsLightChannels(settings)) return counts;
  for (const CRhinoObject* object : objects) {
    const ON_Light* light = ON_Light::Cast(object->Geometry());
    if (light != nullptr && light->IsEnabled() && object->IsVisible()) CountLight(*light, counts);
  }
  if (HasGlobalChannel(settings)) counts[kEnvironmentSlot] = 1;
  if (settings.CausticsEnable) counts[kCausticChannel] = 1;
  return counts;
}

}  // namespace orv
