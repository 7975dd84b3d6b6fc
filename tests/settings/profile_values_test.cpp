#include "settings/profile_values.h"

#include <gtest/gtest.h>

#include <set>

#include "settings/settings_store.h"

namespace orv {
namespace {

using Entries = std::vector<ON_UserString>;

constexpr std::string_view kHeader =
    "[Plug-Ins\\\\7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4\\\\Settings]\n";

host::Profile ProfileWith(std::string_view lines) {
  host::Profile profile("");
  profile.Parse(std::string(kHeader) + std::string(lines));
  return profile;
}

UserValues Loaded(std::string_view lines) {
  ON_UserStringList list;
  return LoadProfileValues(ProfileWith(lines), list);
}

TEST(ProfileValues, EmptyProfileGivesTheDefaults) {
  ON_UserStringList list;
  const UserValues user = LoadProfileValues(host::Profile(""), list);
  EXPECT_TRUE(user.Reparameterize);
  EXPECT_TRUE(user.IprUpdateView);
  EXPECT_EQ(user.Threads, 1);
  EXPECT_EQ(user.IprThreads, 1);
  EXPECT_EQ(user.IlluminanceUnity, 500);
  EXPECT_FALSE(user.Gyre);
  EXPECT_FALSE(user.UseVersion);
  EXPECT_FALSE(user.UseOrvControl);
  EXPECT_EQ(user.Version, 1);
  EXPECT_TRUE(user.ConvertTextures);
  EXPECT_EQ(user.SettingsDir, "");
  EXPECT_EQ(user.TextureCacheDir, "");
  EXPECT_TRUE(list.IsEmpty());
}

TEST(ProfileValues, ThreadsAreHeld) {
  EXPECT_EQ(Loaded("Threads=12\n").Threads, 8);
  EXPECT_EQ(Loaded("Threads=0\n").Threads, 1);
  EXPECT_EQ(Loaded("IprThreads=9\n").IprThreads, 8);
  EXPECT_EQ(Loaded("IprThreads=-4\n").IprThreads, 1);
  EXPECT_EQ(Loaded("Threads=8\n").Threads, 8);
  EXPECT_EQ(Loaded("Threads=99999999999\n").Threads, 8);
  EXPECT_EQ(Loaded("Threads=-99999999999\n").Threads, 1);
}

TEST(ProfileValues, VersionIsNotHeld) {
  EXPECT_EQ(Loaded("Version=-7\n").Version, -7);
  EXPECT_EQ(Loaded("Version=2147483647\n").Version, 2147483647);
}

TEST(ProfileValues, ValueOfAnotherKindLeavesTheDefault) {
  const UserValues user = Loaded("Threads=many\nGyre=perhaps\nIlluminanceUnity=nan\n");
  EXPECT_EQ(user.Threads, 1);
  EXPECT_FALSE(user.Gyre);
  EXPECT_EQ(user.IlluminanceUnity, 500);
}

TEST(ProfileValues, GammasGoIntoTheSettings) {
  ON_UserStringList list;
  LoadProfileValues(ProfileWith("TextureGamma=1\nRhinoGamma=2.2000000001\n"), list);
  EXPECT_EQ(list.m_e, (Entries{{"RhinoGamma", "2.2"}, {"TextureGamma", "1"}}));
}

TEST(ProfileValues, TextureCacheFolderHasALimit) {
  const std::string folder(999, 'f');
  EXPECT_EQ(Loaded("TextureCacheDir=" + folder + "ab\n").TextureCacheDir, folder + "a");
  EXPECT_EQ(Loaded("TextureCacheDir=" + folder + "\u00e9\n").TextureCacheDir, folder);
  EXPECT_EQ(Loaded("TextureDir=" + folder + "ab\n").TextureDir, folder + "ab");
}

TEST(ProfileValues, KeysOfTheProfile) {
  host::Profile profile("");
  SaveProfileValues(profile, {}, {});
  EXPECT_EQ(profile.Text(),
            std::string(kHeader) +
                "RIB reparameterize=1\nThreads=1\nIprThreads=1\nRhinoGamma=1.7999999523162842\n"
                "RibGamma=1.7999999523162842\nTextureGamma=1.7999999523162842\n"
                "IlluminanceUnity=500\nConvertTextures=1\nGyre=0\nUseVersion=0\nUseOrvControl=0\n"
                "IprUpdateView=1\nVersion=1\nArchiveDir=\nDarkTreeDir=\nEnvironmentDir=\n"
                "GiCacheDir=\nImageDir=\nMaterialDir=\nMeshDir=\nRibDir=\nSettingsDir=\n"
                "ShaderDir=\nTextureDir=\nTextureCacheDir=\n");
}

TEST(ProfileValues, GammasOfTheDocumentAreKeptForTheNext) {
  host::Profile profile("");
  ON_UserStringList list;
  list.SetUserString("RhinoGamma", "2.2");
  list.SetUserString("RibGamma", "99");
  SaveProfileValues(profile, {}, list);
  ON_UserStringList next;
  LoadProfileValues(profile, next);
  EXPECT_EQ(next.m_e,
            (Entries{{"RhinoGamma", "2.2"}, {"RibGamma", "10"}, {"TextureGamma", "1.8"}}));
}

// Every value is changed, written, read and written again.
TEST(ProfileValues, EveryValueComesBack) {
  struct Changer {
    UserValues& user;
    int number;
    void operator()(bool UserValues::*field) const { user.*field = !(user.*field); }
    void operator()(int UserValues::*field) const { user.*field = 2 + number % 7; }
    void operator()(double UserValues::*field) const { user.*field = 0.1 + number; }
    void operator()(std::string UserValues::*field) const {
      user.*field = "C:\\ä=b]\\" + std::to_string(number);
    }
    void operator()(double RenderSettings::*) const {}
  };
  UserValues user;
  int number = 0;
  for (const ProfileField& row : ProfileFields()) std::visit(Changer{user, ++number}, row.Field);
  host::Profile first("");
  SaveProfileValues(first, user, {});
  host::Profile parsed("");
  parsed.Parse(first.Text());
  ON_UserStringList list;
  const UserValues again = LoadProfileValues(parsed, list);
  EXPECT_EQ(again.RibDir, user.RibDir);
  EXPECT_EQ(again.IlluminanceUnity, user.IlluminanceUnity);
  EXPECT_FALSE(again.Reparameterize);
  host::Profile second("");
  SaveProfileValues(second, again, {});
  EXPECT_EQ(second.Text(), first.Text());
}

TEST(ProfileValues, KeysOccurOnce) {
  std::set<std::string_view> keys;
  for (const ProfileField& row : ProfileFields()) {
    EXPECT_TRUE(keys.insert(row.Key).second) << row.Key;
  }
  EXPECT_EQ(keys.size(), 25u);
}

}  // namespace
}  // namespace orv
