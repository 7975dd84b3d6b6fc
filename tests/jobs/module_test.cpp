#include <dlfcn.h>
#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "host/command/plugin.h"
#include "host/command/plugin_module.h"
#include "support/temp_folder.h"

namespace {

using testing::ElementsAre;

constexpr const char* kModule = ORV_BIN_FOLDER "/RhinoOrv5_x64.rhp";

// The module as a host loads it. It is loaded once: its plug-in object announces itself only then.
class Module : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    std::string error;
    module_ = PlugInModule::Load(kModule, error);
    ASSERT_NE(module_, nullptr) << error;
  }
  static void TearDownTestSuite() { module_.reset(); }

  // What the export of that name gives.
  template <class Value>
  static Value Call(const char* name) {
    void* handle = dlopen(kModule, RTLD_NOW | RTLD_LOCAL);
    void* address = handle == nullptr ? nullptr : dlsym(handle, name);
    EXPECT_NE(address, nullptr) << name;
    const Value value = address == nullptr ? Value{} : reinterpret_cast<Value (*)()>(address)();
    if (handle != nullptr) dlclose(handle);
    return value;
  }

  static std::unique_ptr<PlugInModule> module_;
};

std::unique_ptr<PlugInModule> Module::module_;

TEST_F(Module, HasItsExportsUnderTheirPlainNames) {
  EXPECT_EQ(Call<int>("RhinoPlugInSdkVersion"), 200909025);
  EXPECT_EQ(Call<int>("RhinoPlugInSdkServiceRelease"), 201008125);
  EXPECT_STREQ(Call<const wchar_t*>("RhinoPlugInDeveloperOrganization"), L"RhinoOrv");
  for (const char* name :
       {"RhinoPlugInDeveloperAddress", "RhinoPlugInDeveloperCountry", "RhinoPlugInDeveloperPhone",
        "RhinoPlugInDeveloperFax", "RhinoPlugInDeveloperEmail", "RhinoPlugInDeveloperWebsite",
        "RhinoPlugInUpdateURL"}) {
    EXPECT_NE(Call<const wchar_t*>(name), nullptr) << name;
  }
}

TEST_F(Module, HasItsCommands) {
  EXPECT_EQ(module_->PlugIn().PlugInName(), "RhinoOrv");
  EXPECT_EQ(module_->PlugIn().PlugInFileName(), kModule);
  std::vector<std::string> names;
  std::set<ON_UUID> ids;
  for (const CRhinoCommand* command : module_->PlugIn().Commands()) {
    names.emplace_back(command->EnglishCommandName());
    ids.insert(command->CommandUUID());
    EXPECT_TRUE(command->Description().ends_with('.')) << command->EnglishCommandName();
    EXPECT_TRUE(command->Usage().ends_with(".\n")) << command->EnglishCommandName();
  }
  EXPECT_THAT(
      names, ElementsAre("OrvOptions", "OrvSurface", "OrvExport", "OrvRender", "OrvMaterial",
                         "OrvTrace", "OrvOutline", "OrvGI", "OrvLoadSettings", "OrvSaveSettings",
                         "OrvResetSettings", "OrvEnvironmentMap", "OrvIprStart", "OrvRenderCubeMap",
                         "OrvIprEnd", "OrvIprUpdateSelected", "OrvIprUpdateView", "OrvSubmitJob",
                         "OrvVersionIncrement", "OrvBake", "OrvLoadBakedMaps", "OrvExportVrml",
                         "OrvObject", "OrvWriteArchive", "OrvCopyRhinoMap"));
  EXPECT_EQ(ids.size(), names.size());
}

TEST_F(Module, HasThePagesOfTheDocument) {
  CRhinoFileExportPlugIn::Pages pages;
  module_->PlugIn().AddPagesToDocumentPropertiesDialog(pages);
  std::vector<std::string> titles;
  for (const auto& page : pages) titles.emplace_back(page->Title());
  EXPECT_THAT(titles, ElementsAre("Orv Main", "Orv Display", "Orv Trace", "Orv GI", "Orv Outline",
                                  "Orv Animation", "Orv Advanced Lighting", "Orv Interactive",
                                  "Orv Bake", "Orv Plugin"));
}

TEST_F(Module, HasThePagesOfObjects) {
  CRhinoFileExportPlugIn::Pages pages;
  module_->PlugIn().AddPagesToObjectPropertiesDialog(pages);
  std::vector<std::string> titles;
  for (const auto& page : pages) titles.emplace_back(page->Title());
  EXPECT_THAT(titles, ElementsAre("Orv Light", "OrvMaterial", "OrvObject"));
}

TEST_F(Module, TheManualHasARowForEachCommand) {
  std::istringstream manual(FileContent(ORV_TEST_FOLDER "/../../docs/scripting.md"));
  std::set<std::string> listed;
  for (std::string line; std::getline(manual, line);) {
    if (!line.starts_with("| Command of the plug-in |")) continue;
    while (std::getline(manual, line) && line.starts_with("|")) {
      const std::size_t start = line.find('`');
      if (start == std::string::npos) continue;
      listed.insert(line.substr(start + 1, line.find('`', start + 1) - start - 1));
    }
  }
  std::set<std::string> commands;
  for (const CRhinoCommand* command : module_->PlugIn().Commands()) {
    commands.emplace(command->EnglishCommandName());
  }
  EXPECT_EQ(listed, commands);
}

}  // namespace
