#include "host/system/environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace host {
namespace {

// Sets a variable, or removes it, and puts the old value back at the end.
class VariableScope {
 public:
  VariableScope(const char* name, const char* value) : name_(name), old_(EnvironmentValue(name)) {
    Set(value);
  }
  ~VariableScope() { Set(old_ ? old_->c_str() : nullptr); }
  VariableScope(const VariableScope&) = delete;
  VariableScope& operator=(const VariableScope&) = delete;

 private:
  void Set(const char* value) {
    if (value != nullptr) {
      setenv(name_, value, 1);
    } else {
      unsetenv(name_);
    }
  }
  const char* name_;
  std::optional<std::string> old_;
};

TEST(Environment, TellsAnUnsetVariableFromAnEmptyOne) {
  const VariableScope unset("ORV_TEST_UNSET", nullptr);
  const VariableScope empty("ORV_TEST_EMPTY", "");
  const VariableScope text("ORV_TEST_TEXT", "ä b");
  EXPECT_EQ(EnvironmentValue("ORV_TEST_UNSET"), std::nullopt);
  EXPECT_EQ(EnvironmentValue("ORV_TEST_EMPTY"), "");
  EXPECT_EQ(EnvironmentValue("ORV_TEST_TEXT"), "ä b");
}

TEST(Environment, TempIsGivenTheSystemsFolder) {
  const VariableScope temp("TEMP", nullptr);
  EnsureTempVariable();
  EXPECT_TRUE(std::filesystem::is_directory(EnvironmentValue("TEMP").value_or("")));
}

TEST(Environment, AnEmptyTempIsGivenTheSystemsFolder) {
  const VariableScope temp("TEMP", "");
  EnsureTempVariable();
  EXPECT_TRUE(std::filesystem::is_directory(EnvironmentValue("TEMP").value_or("")));
}

TEST(Environment, ATempThatIsThereStays) {
  const VariableScope temp("TEMP", "C:\\tmp");
  EnsureTempVariable();
  EXPECT_EQ(EnvironmentValue("TEMP"), "C:\\tmp");
}

TEST(Environment, TheConfigurationFolderIsTheUsersOwn) {
  const VariableScope home("HOME", "/home/me/");
  {
    const VariableScope configuration("XDG_CONFIG_HOME", "/my config/");
    EXPECT_EQ(UserConfigurationFolder(), "/my config");
  }
  for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative"}) {
    const VariableScope configuration("XDG_CONFIG_HOME", unusable);
    EXPECT_EQ(UserConfigurationFolder(), "/home/me/.config");
  }
}

TEST(Environment, WithoutAHomeThereIsNoConfigurationFolder) {
  const VariableScope home("HOME", nullptr);
  const VariableScope configuration("XDG_CONFIG_HOME", nullptr);
  EXPECT_EQ(UserConfigurationFolder(), "");
}

}  // namespace
}  // namespace host
