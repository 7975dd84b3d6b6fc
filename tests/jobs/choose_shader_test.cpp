#include "jobs/choose_shader.h"

#include <gmock/gmock.h>

#include "shader_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;

constexpr char kPlastic[] = R"("VPlastic" "float Diffuse" [0.5] "string ColorMapName" [""])";

class ChooseShaderTest : public ShaderCommandTest {
 protected:
  ChooseShaderTest() { WriteShader("shaders", "VPlastic"); }
};

TEST_F(ChooseShaderTest, ANameIsAskedForByTheKind) {
  EXPECT_EQ(Edit(Form::scripted, "\"Old\" \"float A\" [1]", {"Shader", "VPlastic", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(prompts_,
              ElementsAre("Orv Surface ( Shader=Old  A=1 ): ", "Surface shader <Old>: ",
                          "Orv Surface ( Shader=VPlastic  Diffuse=0.5  ColorMapName ): "));
  EXPECT_EQ(call_, kPlastic);
  EXPECT_EQ(messages_, "");
}

TEST_F(ChooseShaderTest, ADisplacementIsAskedForByItsKind) {
  WriteShader("shaders", "VBump", 1);
  EXPECT_EQ(Edit(Form::scripted, "", {"Shader", "VBump", "Enter"}, "Displacement"),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Displacement shader: ");
  EXPECT_EQ(call_, R"("VBump" "float Diffuse" [0.5] "string ColorMapName" [""])");
}

TEST_F(ChooseShaderTest, ANameMayFollowTheOption) {
  EXPECT_EQ(Edit(Form::scripted, "", {"Shader=VPlastic", "Diffuse=0.75", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, R"("VPlastic" "float Diffuse" [0.75] "string ColorMapName" [""])");
}

TEST_F(ChooseShaderTest, TheUsersShaderComesFirst) {
  ShaderFile own;
  own.Name = "VPlastic";
  WriteFileContent(folder_.File("home/usershaders/VPlastic.slb"), own.Bytes());
  EXPECT_EQ(Edit(Form::scripted, "", {"Shader=VPlastic", "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, "\"VPlastic\"");
}

TEST_F(ChooseShaderTest, EnterReadsThePresentShaderAnew) {
  EXPECT_EQ(
      Edit(Form::scripted, "\"VPlastic\" \"float Diffuse\" [9]", {"Shader", "Enter", "Enter"}),
      CommandResult::success);
  EXPECT_EQ(call_, kPlastic);
}

TEST_F(ChooseShaderTest, AMissingFileIsToldAndLeavesNoShader) {
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=VWood", "Enter"}), CommandResult::success);
  EXPECT_EQ(messages_, "Shader file not found: " + Home() + "shaders\\VWood.slb.\n");
  EXPECT_EQ(prompts_.back(), "Orv Surface ( Shader ): ");
  EXPECT_EQ(call_, "");
}

TEST_F(ChooseShaderTest, WithoutTheVariableTheFileIsLookedForByItsNameAlone) {
  const ScopedEnvironment noHome("ORVHOME", std::nullopt);
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=No Such Shader", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(messages_, "Shader file not found: No Such Shader.slb.slb.\n");
}

TEST_F(ChooseShaderTest, AFileThatMakesNoSenseLeavesTheShader) {
  WriteFileContent(folder_.File("home/shaders/Broken.slb"), std::string(300, '\x7f'));
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=Broken", "Enter"}), CommandResult::success);
  EXPECT_EQ(messages_, "");
  EXPECT_EQ(call_, kPlastic);
}

TEST_F(ChooseShaderTest, AShaderOfAnotherKindIsToldAndLeavesTheShader) {
  for (std::int8_t kind = 1; kind <= 7; ++kind) {
    messages_.clear();
    WriteShader("shaders", "Other", kind);
    EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=Other", "Enter"}), CommandResult::success);
    EXPECT_EQ(messages_, "Selected shader is not correct type.");
    EXPECT_EQ(call_, kPlastic);
  }
  messages_.clear();
  EXPECT_EQ(Edit(Form::scripted, "\"D\"", {"Shader=VPlastic", "Enter"}, "Displacement"),
            CommandResult::success);
  EXPECT_EQ(messages_, "Selected shader is not correct type.");
  EXPECT_EQ(call_, "\"D\"");
}

TEST_F(ChooseShaderTest, AFileOfThreeBytesIsOfNoKind) {
  WriteFileContent(folder_.File("home/shaders/Short.slb"), "abc");
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=Short", "Enter"}), CommandResult::success);
  EXPECT_EQ(messages_, "Selected shader is not correct type.");
  EXPECT_EQ(call_, kPlastic);
}

TEST_F(ChooseShaderTest, NullIsOfEachKindAndNoShader) {
  WriteShader("shaders", "null", 4);
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=null", "Enter"}), CommandResult::success);
  EXPECT_EQ(messages_, "");
  EXPECT_EQ(call_, "");
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader=null", "Enter"}, "Displacement"),
            CommandResult::success);
  EXPECT_EQ(call_, "");
  // Such a name may go on in front.
  WriteShader("shaders", "Mynull", 4);
  EXPECT_EQ(Edit(Form::scripted, "", {"Shader=Mynull", "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, R"("Mynull" "float Diffuse" [0.5] "string ColorMapName" [""])");
}

TEST_F(ChooseShaderTest, ACancelledNameEndsTheEditing) {
  EXPECT_EQ(Edit(Form::scripted, kPlastic, {"Shader", "!"}), CommandResult::cancel);
  EXPECT_EQ(call_, kPlastic);
}

TEST_F(ChooseShaderTest, APersonChoosesAFile) {
  const std::string file = folder_.File("home/shaders/VPlastic.slb");
  EXPECT_EQ(Edit(Form::interactive, "", {"Shader", file, "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, kPlastic);
  EXPECT_EQ(plugIn_.User().ShaderDir, folder_.File("home/shaders/"));
}

TEST_F(ChooseShaderTest, TheDialogBeginsAtThePresentShader) {
  EXPECT_EQ(Edit(Form::interactive, "\"VPlastic\"", {"Shader", "Enter", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, kPlastic);
  EXPECT_EQ(prompts_.at(1),
            "Choose shader (in " + Home() + "shaders\\) <" + Home() + "shaders\\VPlastic.slb>: ");
  EXPECT_EQ(Edit(Form::interactive, "\"Gone\"", {"Shader", "VPlastic.slb", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, kPlastic);
}

TEST_F(ChooseShaderTest, ACancelledDialogLeavesTheShader) {
  EXPECT_EQ(Edit(Form::interactive, kPlastic, {"Shader", "!", "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, kPlastic);
  EXPECT_EQ(messages_, "");
}

TEST_F(ChooseShaderTest, DialogsTitleAndFilters) {
  EXPECT_EQ(kShaderPicker.Title, "Choose shader");
  EXPECT_THAT(Rows(kShaderPicker), ElementsAre("ORV Shader Files|*.slb", "All Files|*.*"));
}

}  // namespace
}  // namespace orv
