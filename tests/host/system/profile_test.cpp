#include "host/system/profile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <limits>

#include "support/temp_folder.h"

namespace host {
namespace {

constexpr std::string_view kSection = "Plug-Ins\\7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4\\Settings";

Profile Parsed(std::string_view text) {
  Profile profile("");
  profile.Parse(text);
  return profile;
}

TEST(Profile, KeepsValuesOfEveryKind) {
  const TempFolder folder;
  Profile saved(folder.File("a/b/profile.ini"));
  ASSERT_TRUE(saved.Load());
  saved.SaveProfileBool(kSection, "RIB reparameterize", true);
  saved.SaveProfileInt(kSection, "Threads", -8);
  saved.SaveProfileDouble(kSection, "RhinoGamma", 1.8);
  saved.SaveProfileString(kSection, "RibDir", "C:\\Träume\\a=b");
  ASSERT_TRUE(saved.Save()) << saved.Error();

  Profile loaded(folder.File("a/b/profile.ini"));
  ASSERT_TRUE(loaded.Load());
  EXPECT_EQ(loaded.LoadProfileBool(kSection, "RIB reparameterize"), true);
  EXPECT_EQ(loaded.LoadProfileInt(kSection, "Threads"), -8);
  EXPECT_EQ(loaded.LoadProfileDouble(kSection, "RhinoGamma"), 1.8);
  EXPECT_EQ(loaded.LoadProfileString(kSection, "RibDir"), "C:\\Träume\\a=b");
}

TEST(Profile, ItsFormCanBeReadByAPerson) {
  Profile profile("");
  profile.SaveProfileBool(kSection, "Gyre", false);
  profile.SaveProfileDouble(kSection, "IlluminanceUnity", 500);
  profile.SaveProfileDouble(kSection, "Tenth", 0.1);
  profile.SaveProfileString("Other", "Name", " with blanks ");
  profile.SaveProfileInt(kSection, "Version", 12);
  EXPECT_EQ(profile.Text(),
            "[Plug-Ins\\\\7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4\\\\Settings]\n"
            "Gyre=0\n"
            "IlluminanceUnity=500\n"
            "Tenth=0.1\n"
            "Version=12\n"
            "[Other]\n"
            "Name= with blanks \n");
}

TEST(Profile, AnAbsentKeyIsNothing) {
  const Profile profile = Parsed("[A]\nkey=1\n[B]\nother=1\n");
  EXPECT_EQ(profile.LoadProfileInt("A", "other"), std::nullopt);
  EXPECT_EQ(profile.LoadProfileInt("C", "key"), std::nullopt);
  EXPECT_EQ(profile.LoadProfileInt("A", "KEY"), std::nullopt);
  EXPECT_EQ(profile.LoadProfileString("A", ""), std::nullopt);
  EXPECT_EQ(profile.LoadProfileBool("", "key"), std::nullopt);
}

TEST(Profile, AMalformedNumberIsNothing) {
  for (const char* text : {"", " 1", "1 ", "+1", "1x", "x", "0x10", "99999999999x", "1.5", "--1"}) {
    const Profile profile = Parsed(std::string("[A]\nkey=") + text);
    EXPECT_EQ(profile.LoadProfileInt("A", "key"), std::nullopt) << text;
  }
  for (const char* text : {"", " 1", "1,5", "1.5x", "nan", "inf", "-inf", "1e999", "+1"}) {
    const Profile profile = Parsed(std::string("[A]\nkey=") + text);
    EXPECT_EQ(profile.LoadProfileDouble("A", "key"), std::nullopt) << text;
  }
  for (const char* text : {"", "2", "true", "01", "-1"}) {
    const Profile profile = Parsed(std::string("[A]\nkey=") + text);
    EXPECT_EQ(profile.LoadProfileBool("A", "key"), std::nullopt) << text;
  }
}

TEST(Profile, AnIntegerThatIsTooLargeIsTheGreatestOne) {
  const Profile profile = Parsed("[A]\na=2147483648\nb=99999999999\nc=-2147483649\n");
  EXPECT_EQ(profile.LoadProfileInt("A", "a"), std::numeric_limits<int>::max());
  EXPECT_EQ(profile.LoadProfileInt("A", "b"), std::numeric_limits<int>::max());
  EXPECT_EQ(profile.LoadProfileInt("A", "c"), std::numeric_limits<int>::min());
}

TEST(Profile, ExtremeNumbersComeBackTheSame) {
  using Double = std::numeric_limits<double>;
  Profile profile("");
  for (const double value : {Double::max(), Double::lowest(), Double::denorm_min(), -0.0, 1.0 / 3,
                             -1.23432101234321e+308}) {
    profile.SaveProfileDouble("A", "value", value);
    EXPECT_EQ(Parsed(profile.Text()).LoadProfileDouble("A", "value"), value);
  }
  for (const int value : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    profile.SaveProfileInt("A", "value", value);
    EXPECT_EQ(Parsed(profile.Text()).LoadProfileInt("A", "value"), value);
  }
}

TEST(Profile, AnyTextComesBackTheSame) {
  const std::string texts[] = {"",     "=",   "[a]",   "]",   "a\nb\r\nc\r",
                               "\\",   "\\n", "\\\\=", "🚀 ü", std::string("\0x", 2),
                               "\xFF", "\\]", "#"};
  for (const std::string& text : texts) {
    Profile profile("");
    profile.SaveProfileString(text, text, text);
    profile.SaveProfileString("after", "k", "v");
    const Profile again = Parsed(profile.Text());
    EXPECT_EQ(again.LoadProfileString(text, text), text);
    EXPECT_EQ(again.LoadProfileString("after", "k"), "v");
    EXPECT_EQ(again.Text(), profile.Text());
  }
}

TEST(Profile, KeepsLinesThatItDoesNotKnow) {
  Profile profile = Parsed("# mine\n\n[A]\n; note\nkey=1\n[B\n\n[B]\nkey=2");
  profile.SaveProfileInt("A", "new", 3);
  profile.SaveProfileInt("B", "key", 4);
  EXPECT_EQ(profile.Text(), "# mine\n\n[A]\n; note\nkey=1\n[B\nnew=3\n\n[B]\nkey=4\n");
}

TEST(Profile, OfTwoLinesForOneKeyTheLastHolds) {
  Profile profile = Parsed("[A]\nkey=1\n[B]\n[A]\nkey=2\n");
  EXPECT_EQ(profile.LoadProfileInt("A", "key"), 2);
  profile.SaveProfileInt("A", "key", 3);
  EXPECT_EQ(Parsed(profile.Text()).LoadProfileInt("A", "key"), 3);
}

TEST(Profile, ReadsLinesThatEndAsOnOtherSystems) {
  const Profile profile = Parsed("[A]\r\nkey=1\r\n");
  EXPECT_EQ(profile.LoadProfileInt("A", "key"), 1);
  EXPECT_EQ(profile.Text(), "[A]\nkey=1\n");
}

TEST(Profile, ParsingReplacesWhatWasThere) {
  Profile profile = Parsed("[A]\nkey=1\n");
  profile.Parse("");
  EXPECT_EQ(profile.Text(), "");
  EXPECT_EQ(profile.LoadProfileInt("A", "key"), std::nullopt);
}

TEST(Profile, AMissingFileIsAnEmptyProfile) {
  const TempFolder folder;
  Profile profile(folder.File("none/profile.ini"));
  EXPECT_TRUE(profile.Load());
  EXPECT_EQ(profile.Text(), "");
  EXPECT_TRUE(profile.Save());
  EXPECT_FALSE(std::filesystem::exists(folder.File("none")));
}

TEST(Profile, WritesOnlyWhenSomethingChanged) {
  const TempFolder folder;
  const std::string path = folder.File("profile.ini");
  WriteFileContent(path, "[A]\nkey=1");
  Profile profile(path);
  ASSERT_TRUE(profile.Load());
  profile.SaveProfileInt("A", "key", 1);
  EXPECT_TRUE(profile.Save());
  EXPECT_EQ(FileContent(path), "[A]\nkey=1");
  profile.SaveProfileInt("A", "key", 2);
  EXPECT_TRUE(profile.Save());
  EXPECT_EQ(FileContent(path), "[A]\nkey=2\n");
}

TEST(Profile, ItsNewFolderIsTheUsersAlone) {
  const TempFolder folder;
  Profile profile(folder.File("rhinoorv/profile.ini"));
  profile.SaveProfileInt("A", "key", 1);
  ASSERT_TRUE(profile.Save());
  EXPECT_EQ(std::filesystem::status(folder.File("rhinoorv")).permissions(),
            std::filesystem::perms(0700));
}

TEST(Profile, AFileThatCannotBeReadIsNotOverwritten) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.File("profile.ini"));
  Profile profile(folder.File("profile.ini"));
  EXPECT_FALSE(profile.Load());
  EXPECT_EQ(profile.Error(), "Unable to read " + folder.File("profile.ini") + ": Is a directory");
  profile.SaveProfileInt("A", "key", 1);
  EXPECT_FALSE(profile.Save());
  EXPECT_EQ(profile.Error(), "Unable to read " + folder.File("profile.ini") + ": Is a directory");
}

TEST(Profile, TellsWhenItCannotBeSaved) {
  const TempFolder folder;
  WriteFileContent(folder.File("file"), "x");
  Profile profile(folder.File("file/profile.ini"));
  EXPECT_TRUE(profile.Load());
  profile.SaveProfileInt("A", "key", 1);
  EXPECT_FALSE(profile.Save());
  EXPECT_EQ(profile.Error(),
            "Unable to save " + folder.File("file/profile.ini") + ": Not a directory");
  EXPECT_EQ(FileContent(folder.File("file")), "x");
}

TEST(Profile, LivesInTheUsersConfigurationFolder) {
  setenv("ORV_PROFILE_DIR", "/elsewhere", 1);
  EXPECT_EQ(DefaultProfilePath(), "/elsewhere/profile.ini");
  unsetenv("ORV_PROFILE_DIR");
  setenv("XDG_CONFIG_HOME", "/home/me/.settings", 1);
  EXPECT_EQ(DefaultProfilePath(), "/home/me/.settings/rhinoorv/profile.ini");
  unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace host
