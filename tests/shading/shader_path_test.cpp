#include "shading/shader_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "shading/shader_file.h"
#include "support/scoped_environment.h"
#include "support/shader_writer.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

// The folder as the path of a shader spells it.
std::string WithBackslashes(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

// A renderer's folder with the shader "Own" of the user.
class ResolveShaderPathTest : public testing::Test {
 protected:
  ResolveShaderPathTest() {
    std::filesystem::create_directories(folder_.Path() / "usershaders");
    WriteFileContent(folder_.Path() / "usershaders" / "Own.slb", "");
  }

  [[nodiscard]] std::string Home() const { return folder_.File(""); }

  TempFolder folder_;
};

TEST_F(ResolveShaderPathTest, TakesTheUsersShader) {
  const ScopedEnvironment home("ORVHOME", Home());
  EXPECT_EQ(ResolveShaderPath("Own"), WithBackslashes(Home()) + "usershaders\\Own.slb");
}

TEST_F(ResolveShaderPathTest, TakesTheRenderersShaderElseWhetherItIsThereOrNot) {
  const ScopedEnvironment home("ORVHOME", Home());
  EXPECT_EQ(ResolveShaderPath("Other"), WithBackslashes(Home()) + "shaders\\Other.slb");
}

TEST_F(ResolveShaderPathTest, AddsASeparatorWhereTheFolderHasNone) {
  std::string folder = Home();
  ASSERT_TRUE(folder.ends_with('/'));
  folder.pop_back();
  const ScopedEnvironment home("ORVHOME", folder);
  EXPECT_EQ(ResolveShaderPath("Own"), WithBackslashes(folder) + "\\usershaders\\Own.slb");
}

TEST_F(ResolveShaderPathTest, LeadsToAShaderThatCanBeRead) {
  ShaderFile shader;
  shader.Name = "Own";
  WriteFileContent(folder_.Path() / "usershaders" / "Own.slb", shader.Bytes());
  const ScopedEnvironment home("ORVHOME", Home());
  std::string callText;
  std::string kind;
  EXPECT_TRUE(ReadShaderFile(ResolveShaderPath("Own"), callText, kind));
  EXPECT_EQ(callText, "\"Own\"");
  EXPECT_EQ(kind, "Surface");
}

TEST_F(ResolveShaderPathTest, LeavesTheSlashesOfTheName) {
  const ScopedEnvironment home("ORVHOME", "C:\\orv\\");
  EXPECT_EQ(ResolveShaderPath("wood/oak"), "C:\\orv\\shaders\\wood/oak.slb");
}

TEST_F(ResolveShaderPathTest, TakesTheNameAloneWithoutAFolderOfTheRenderer) {
  const ScopedEnvironment home("ORVHOME", std::nullopt);
  const std::string name = folder_.File("usershaders/Own");
  EXPECT_EQ(ResolveShaderPath(name), name + ".slb");
}

TEST_F(ResolveShaderPathTest, AddsTheExtensionTwiceWhenThereIsNoSuchFile) {
  const ScopedEnvironment home("ORVHOME", std::nullopt);
  const std::string name = folder_.File("Other");
  EXPECT_EQ(ResolveShaderPath(name), name + ".slb.slb");
}

TEST_F(ResolveShaderPathTest, TakesAnEmptyVariableAsNone) {
  const ScopedEnvironment home("ORVHOME", "");
  EXPECT_EQ(ResolveShaderPath("no such shader"), "no such shader.slb.slb");
}

TEST_F(ResolveShaderPathTest, AListedShaderIsTheRenderersOwn) {
  {
    const ScopedEnvironment home("ORVHOME", Home());
    EXPECT_EQ(ListedShaderPath("Own"), WithBackslashes(Home()) + "shaders\\Own.slb");
  }
  for (const std::optional<std::string>& none : {std::optional<std::string>(), {""}}) {
    const ScopedEnvironment home("ORVHOME", none);
    EXPECT_EQ(ListedShaderPath("Own"), "Own.slb");
  }
}

}  // namespace
}  // namespace orv
