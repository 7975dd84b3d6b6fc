#include "settings/profile_values.h"

#include <algorithm>
#include <vector>

#include "host/system/text.h"
#include "settings/settings_store.h"

namespace orv {
namespace {

// A setting has the same key in the profile as in a document.
ProfileField SettingRow(double RenderSettings::*field) {
  return {RenderSettingFieldOf(field).Key, field};
}

std::vector<ProfileField> MakeFields() {
  constexpr int kFewestThreads = 1;
  constexpr int kMostThreads = 8;
  std::vector<ProfileField> fields{
      {"RIB reparameterize", &UserValues::Reparameterize},
      {"Threads", &UserValues::Threads, kFewestThreads, kMostThreads},
      {"IprThreads", &UserValues::IprThreads, kFewestThreads, kMostThreads},
      SettingRow(&RenderSettings::RhinoGamma),
      SettingRow(&RenderSettings::RibGamma),
      SettingRow(&RenderSettings::TextureGamma),
      {"IlluminanceUnity", &UserValues::IlluminanceUnity},
      {"ConvertTextures", &UserValues::ConvertTextures},
      {"Gyre", &UserValues::Gyre},
      {"UseVersion", &UserValues::UseVersion},
      {"UseOrvControl", &UserValues::UseOrvControl},
      {"IprUpdateView", &UserValues::IprUpdateView},
      {"Version", &UserValues::Version},
      {"ArchiveDir", &UserValues::ArchiveDir},
      {"DarkTreeDir", &UserValues::DarkTreeDir},
      {"EnvironmentDir", &UserValues::EnvironmentDir},
      {"GiCacheDir", &UserValues::GiCacheDir},
      {"ImageDir", &UserValues::ImageDir},
      {"MaterialDir", &UserValues::MaterialDir},
      {"MeshDir", &UserValues::MeshDir},
      {"RibDir", &UserValues::RibDir},
      {"SettingsDir", &UserValues::SettingsDir},
      {"ShaderDir", &UserValues::ShaderDir},
      {"TextureDir", &UserValues::TextureDir},
      {"TextureCacheDir", &UserValues::TextureCacheDir},
  };
  fields.back().MostBytes = kMaxTextureCacheDir;
  return fields;
}

// Reads one key of the profile into what the row names.
struct Reader {
  const host::Profile& profile;
  const ProfileField& row;
  UserValues& user;
  ON_UserStringList& list;

  void operator()(bool UserValues::*field) const {
    user.*field = profile.LoadProfileBool(kProfileSection, row.Key).value_or(user.*field);
  }
  void operator()(int UserValues::*field) const {
    const auto value = profile.LoadProfileInt(kProfileSection, row.Key);
    if (value) user.*field = std::clamp(*value, row.Minimum, row.Maximum);
  }
  void operator()(double UserValues::*field) const {
    user.*field = profile.LoadProfileDouble(kProfileSection, row.Key).value_or(user.*field);
  }
  void operator()(std::string UserValues::*field) const {
    const auto text = profile.LoadProfileString(kProfileSection, row.Key);
    if (text) user.*field = host::FirstBytes(*text, row.MostBytes);
  }
  void operator()(double RenderSettings::*) const {
    const auto value = profile.LoadProfileDouble(kProfileSection, row.Key);
    if (value) list.SetUserString(row.Key, SettingText(*value));
  }
};

// Writes what the row names under its key.
struct Writer {
  host::Profile& profile;
  const ProfileField& row;
  const UserValues& user;
  const RenderSettings& settings;

  void operator()(bool UserValues::*field) const {
    profile.SaveProfileBool(kProfileSection, row.Key, user.*field);
  }
  void operator()(int UserValues::*field) const {
    profile.SaveProfileInt(kProfileSection, row.Key, user.*field);
  }
  void operator()(double UserValues::*field) const {
    profile.SaveProfileDouble(kProfileSection, row.Key, user.*field);
  }
  void operator()(std::string UserValues::*field) const {
    profile.SaveProfileString(kProfileSection, row.Key, user.*field);
  }
  void operator()(double RenderSettings::*field) const {
    profile.SaveProfileDouble(kProfileSection, row.Key, settings.*field);
  }
};

}  // namespace

std::span<const ProfileField> ProfileFields() {
  static const std::vector<ProfileField> fields = MakeFields();
  return fields;
}

UserValues LoadProfileValues(const host::Profile& profile, ON_UserStringList& list) {
  UserValues user;
  for (const ProfileField& row : ProfileFields()) {
    std::visit(Reader{profile, row, user, list}, row.Field);
  }
  return user;
}

void SaveProfileValues(host::Profile& profile, const UserValues& user,
                       const ON_UserStringList& list) {
  const RenderSettings settings = LoadRenderSettings(list, user);
  for (const ProfileField& row : ProfileFields()) {
    std::visit(Writer{profile, row, user, settings}, row.Field);
  }
}

}  // namespace orv
