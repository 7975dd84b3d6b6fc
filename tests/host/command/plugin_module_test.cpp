#include "host/command/plugin_module.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>

#include "host/command/command_registry.h"
#include "support/temp_folder.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::string Module(std::string_view name) {
  return std::string(ORV_BIN_FOLDER "/") + std::string(name) + ".rhp";
}

// Why a module is refused, without the words that name it.
std::string Refusal(const std::string& path) {
  std::string error;
  EXPECT_EQ(PlugInModule::Load(path, error), nullptr);
  const std::string start = "The plug-in module " + path + " can't be used: ";
  EXPECT_THAT(error, StartsWith(start));
  return error.substr(std::min(start.size(), error.size()));
}

TEST(PlugInModule, LoadsRegistersAndUnloads) {
  std::string error = "old";
  const auto module = PlugInModule::Load(Module("test_module_good"), error);
  ASSERT_NE(module, nullptr) << error;
  EXPECT_EQ(error, "");
  CRhinoFileExportPlugIn& plug_in = module->PlugIn();
  EXPECT_EQ(plug_in.PlugInName(), "Sample");
  EXPECT_EQ(plug_in.PlugInFileName(), Module("test_module_good"));
  CommandRegistry registry;
  ASSERT_TRUE(registry.AddPlugIn(plug_in));
  EXPECT_EQ(registry.FindExporter("smp"), &plug_in);
  registry.RemovePlugIn(plug_in);
}

TEST(PlugInModule, CanBeLoadedAgain) {
  std::string error;
  for (int i = 0; i < 2; ++i) {
    EXPECT_NE(PlugInModule::Load(Module("test_module_good"), error), nullptr) << error;
  }
}

TEST(PlugInModule, MissingFileIsRefused) {
  EXPECT_THAT(Refusal("/no/such/module.rhp"), HasSubstr(std::strerror(ENOENT)));
}

TEST(PlugInModule, NameWithoutAFolderIsAFileOfThisFolder) {
  EXPECT_THAT(Refusal("libc.so.6"), HasSubstr(std::strerror(ENOENT)));
}

TEST(PlugInModule, OtherFileIsRefused) {
  const TempFolder folder;
  WriteFileContent(folder.File("text.rhp"), "This is no module.\n");
  EXPECT_THAT(Refusal(folder.File("text.rhp")), AllOf(HasSubstr("text.rhp"), EndsWith(".")));
  EXPECT_NE(Refusal(folder.Path().string()), "");
}

TEST(PlugInModule, ModuleThatLacksAnExportIsRefusedByItsName) {
  EXPECT_EQ(Refusal(Module("test_module_without_url")), "it does not export RhinoPlugInUpdateURL.");
}

TEST(PlugInModule, ModuleOfAnotherKitIsRefusedWithBothNumbers) {
  EXPECT_EQ(Refusal(Module("test_module_old_sdk")),
            "its RhinoPlugInSdkVersion is 200612125, and this host needs 200909025.");
  EXPECT_EQ(Refusal(Module("test_module_other_release")),
            "its RhinoPlugInSdkServiceRelease is 201008126, and this host needs 201008125.");
}

TEST(PlugInModule, ModuleWithoutAPlugInIsRefused) {
  EXPECT_EQ(Refusal(Module("test_module_without_plugin")), "it has no plug-in object.");
}

}  // namespace
