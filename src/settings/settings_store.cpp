#include "settings/settings_store.h"

#include <algorithm>

namespace orv {

RenderSettings LoadRenderSettings(const ON_UserStringList& list, const UserValues& user) {
  RenderSettings settings;
  LoadSettingFields(RenderSettingFields(), list, settings);
  settings.CausticPhotonPass = settings.CausticsEnable && settings.CausticCacheMode != 1;
  settings.Threads = user.Threads;
  settings.Gyre = user.Gyre;
  settings.ConvertTextures = user.ConvertTextures;
  settings.IlluminanceUnity = user.IlluminanceUnity;
  return settings;
}

void StoreRenderSettings(const RenderSettings& settings, ON_UserStringList& list,
                         UserValues& user) {
  StoreSettingFields(RenderSettingFields(), settings, list);
  user.Threads = settings.Threads;
  user.Gyre = settings.Gyre;
  user.ConvertTextures = settings.ConvertTextures;
}

IprSettings LoadIprSettings(const ON_UserStringList& list, const UserValues& user) {
  IprSettings settings;
  LoadSettingFields(IprSettingFields(), list, settings);
  settings.IprThreads = user.IprThreads;
  return settings;
}

void StoreIprSettings(const IprSettings& settings, ON_UserStringList& list, UserValues& user) {
  StoreSettingFields(IprSettingFields(), settings, list);
  user.IprThreads = settings.IprThreads;
}

BakeSettings LoadBakeSettings(const ON_UserStringList& list) {
  BakeSettings settings;
  LoadSettingFields(BakeSettingFields(), list, settings);
  return settings;
}

void StoreBakeSettings(const BakeSettings& settings, ON_UserStringList& list) {
  StoreSettingFields(BakeSettingFields(), settings, list);
}

const SettingField<RenderSettings>& RenderSettingFieldOf(
    SettingField<RenderSettings>::Member field) {
  const auto fields = RenderSettingFields();
  return *std::find_if(fields.begin(), fields.end(),
                       [&](const auto& row) { return row.Field == field; });
}

namespace {

double StoredGamma(double RenderSettings::*gamma, const ON_UserStringList& list) {
  const auto& field = RenderSettingFieldOf(gamma);
  const auto text = list.GetUserString(field.Key);
  if (!text) return 1;
  RenderSettings settings;
  field.Read(*text, settings);
  return settings.*gamma;
}

}  // namespace

float StoredRhinoGamma(const ON_UserStringList& list) {
  return static_cast<float>(StoredGamma(&RenderSettings::RhinoGamma, list));
}

double StoredTextureGamma(const ON_UserStringList& list) {
  return StoredGamma(&RenderSettings::TextureGamma, list);
}

}  // namespace orv
