#include "jobs/material_command.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "shader_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr char kFirstPrompt[] =
    "Orv Material ( Name=Oak  Color=0,0,255  Transparency=0.3  ShadingSamples=1  Surface=Rhino  "
    "Displacement=Rhino  DisplacementMode=Bump ): ";

class MaterialCommandTest : public ShaderCommandTest {
 protected:
  MaterialCommandTest() {
    MakeMaterials();
    WriteShader("shaders", "VPlastic");
    WriteShader("shaders", "VBump", 1);
    WriteShader("shaders", "null", 3);
    Select({0});
  }

  // Success, or what the test is to tell.
  CommandResult Edit(std::vector<std::string> answers, Form form = Form::scripted) {
    return Run<CCommandOrvMaterial>(form, std::move(answers));
  }
  const ON_Material& Material(std::size_t index) { return Object(index).ObjectMaterial(); }
};

TEST_F(MaterialCommandTest, ShowsAllOptionsInOrder) {
  EXPECT_EQ(Edit({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre(kFirstPrompt));
}

TEST_F(MaterialCommandTest, WhatThereIsNotIsNotShown) {
  SetMaterialText(0, "OrvSurface", "");
  Select({2});
  EXPECT_EQ(Edit({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Material ( Name  Color=255,255,255  Transparency=0  "
                                    "ShadingSamples=1  Surface=Rhino  Displacement=Rhino  "
                                    "DisplacementMode=Bump ): "));
}

TEST_F(MaterialCommandTest, WithoutAChangeNothingIsStored) {
  SetMaterialText(0, "OrvShadingSamples", "100");
  EXPECT_EQ(Edit({"Enter"}), CommandResult::success);
  EXPECT_THAT(MaterialText(0, "OrvShadingSamples"), Optional(std::string("100")));
  EXPECT_EQ(Material(0).m_user_strings.m_e.size(), 1U);
  EXPECT_EQ(Material(0).m_name, "Oak");
}

TEST_F(MaterialCommandTest, NameIsAskedFor) {
  EXPECT_EQ(Edit({"Name", "Ash", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Name <Oak>: ");
  EXPECT_EQ(Material(0).m_name, "Ash");
  EXPECT_EQ(Edit({"Name=Old Elm", "Enter"}), CommandResult::success);
  EXPECT_EQ(Material(0).m_name, "Old Elm");
  EXPECT_EQ(Edit({"Name", "Enter", "Enter"}), CommandResult::success);
  EXPECT_EQ(Material(0).m_name, "Old Elm");
}

TEST_F(MaterialCommandTest, ANameThatIsNotGivenEndsTheCommand) {
  EXPECT_EQ(Edit({"ShadingSamples=4", "Name", "!"}), CommandResult::cancel);
  EXPECT_EQ(MaterialText(0, "OrvShadingSamples"), std::nullopt);
}

TEST_F(MaterialCommandTest, ColorIsThatOfTheHost) {
  EXPECT_EQ(Edit({"Color", "255,128,0", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Material color <0,0,255>: ");
  EXPECT_EQ(Material(0).m_diffuse, (ON_Color{255, 128, 0}));
  EXPECT_TRUE(Material(0).m_user_strings.IsEmpty());
}

TEST_F(MaterialCommandTest, TransparencyIsFromNothingToOne) {
  EXPECT_EQ(Edit({"Transparency", "0.75", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Transparency (0-1) <0.3>: ");
  EXPECT_EQ(Material(0).Transparency(), 0.75);
  for (const char* value : {"1", "0"}) {
    EXPECT_EQ(Edit({std::string("Transparency=") + value, "Enter"}), CommandResult::success);
  }
  EXPECT_EQ(Edit({"Transparency=1.01"}), CommandResult::failure);
  EXPECT_EQ(Edit({"Transparency=-0.01"}), CommandResult::failure);
  EXPECT_EQ(Material(0).Transparency(), 0);
}

TEST_F(MaterialCommandTest, ShadingSamplesAreFrom1To32) {
  EXPECT_EQ(Edit({"ShadingSamples", "32", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Shading samples (1-32) <1>: ");
  EXPECT_THAT(MaterialText(0, "OrvShadingSamples"), Optional(std::string("32")));
  EXPECT_EQ(Edit({"ShadingSamples=33"}), CommandResult::failure);
  EXPECT_EQ(Edit({"ShadingSamples=0"}), CommandResult::failure);
  EXPECT_EQ(Edit({"ShadingSamples=2.5"}), CommandResult::failure);
  EXPECT_EQ(Edit({"ShadingSamples=1", "Enter"}), CommandResult::success);
  EXPECT_THAT(MaterialText(0, "OrvShadingSamples"), Optional(std::string("1")));
}

TEST_F(MaterialCommandTest, DisplacementModeIsAWord) {
  for (const char* word : {"Off", "Bump", "Regular", "Mesh"}) {
    EXPECT_EQ(Edit({std::string("DisplacementMode=") + word, "Enter"}), CommandResult::success);
    EXPECT_THAT(MaterialText(0, "OrvDisplacementMode"), Optional(std::string(word)));
  }
  EXPECT_EQ(Edit({"DisplacementMode", "off", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "DisplacementMode <Mesh> ( Off  Bump  Regular  Mesh ): ");
  EXPECT_EQ(Edit({"DisplacementMode=Displace"}), CommandResult::failure);
}

TEST_F(MaterialCommandTest, SurfaceAndDisplacementAreEdited) {
  SetMaterialText(0, "OrvSurfaceLayout", "-");
  SetMaterialText(0, "OrvDisplacementLayout", "+");
  EXPECT_EQ(Edit({"Surface", "Shader=VPlastic", "Diffuse=1", "Enter", "Displacement",
                  "Shader=VBump", "Enter", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Orv Surface ( Shader=Rhino ): ");
  EXPECT_EQ(prompts_.back(),
            "Orv Material ( Name=Oak  Color=0,0,255  Transparency=0.3  ShadingSamples=1  "
            "Surface=VPlastic  Displacement=VBump  DisplacementMode=Bump ): ");
  EXPECT_THAT(
      MaterialText(0, "OrvSurface"),
      Optional(std::string(R"("VPlastic" "float Diffuse" [1] "string ColorMapName" [""])")));
  EXPECT_THAT(MaterialText(0, "OrvDisplacement"),
              Optional(std::string(R"("VBump" "float Diffuse" [0.5] "string ColorMapName" [""])")));
  EXPECT_EQ(MaterialText(0, "OrvSurfaceLayout").value_or(""), "");
  EXPECT_EQ(MaterialText(0, "OrvDisplacementLayout").value_or(""), "");
}

TEST_F(MaterialCommandTest, ShadersHaveToBeOfTheirKind) {
  EXPECT_EQ(Edit({"Surface", "Shader=VBump", "Enter", "Displacement", "Shader=VPlastic", "Enter",
                  "Enter"}),
            CommandResult::success);
  EXPECT_EQ(messages_, "Selected shader is not correct type.Selected shader is not correct type.");
  EXPECT_THAT(MaterialText(0, "OrvSurface"), Optional(std::string("\"Rhino\"")));
  EXPECT_THAT(MaterialText(0, "OrvDisplacement"), Optional(std::string("\"Rhino\"")));
}

TEST_F(MaterialCommandTest, NullIsTheHostsMaterial) {
  SetMaterialText(0, "OrvSurface", "\"VPlastic\"");
  SetMaterialText(0, "OrvDisplacement", "\"VBump\"");
  EXPECT_EQ(
      Edit({"Surface", "Shader=null", "Enter", "Displacement", "Shader=null", "Enter", "Enter"}),
      CommandResult::success);
  EXPECT_THAT(MaterialText(0, "OrvSurface"), Optional(std::string("\"Rhino\"")));
  EXPECT_THAT(MaterialText(0, "OrvDisplacement"), Optional(std::string("\"Rhino\"")));
  EXPECT_EQ(prompts_.back(), kFirstPrompt);
}

TEST_F(MaterialCommandTest, AShaderThatIsNotAcceptedStays) {
  SetMaterialText(0, "OrvSurface", "\"X\" \"float A\" [1 2]");
  SetMaterialText(0, "OrvSurfaceLayout", "-");
  EXPECT_EQ(Edit({"Surface", "Shader=VPlastic", "!", "Enter"}), CommandResult::success);
  EXPECT_THAT(MaterialText(0, "OrvSurface"), Optional(std::string("\"X\" \"float A\" [1 2]")));
  EXPECT_THAT(MaterialText(0, "OrvSurfaceLayout"), Optional(std::string("-")));
}

TEST_F(MaterialCommandTest, AShaderThatWasPickedGoesToAllObjects) {
  SetMaterialText(0, "OrvSurface", "\"X\" \"float A\" [1 2]");
  SetMaterialText(0, "OrvDisplacement", "\"Y\"");
  Select({2});
  EXPECT_EQ(Edit({"ShadingSamples=7", "Enter"}), CommandResult::success) << "its layer has none";
  SetMaterialText(2, "OrvSurface", "\"Z\"");
  SetMaterialText(2, "OrvSurfaceLayout", "-");
  Select({0, 2});
  EXPECT_EQ(Edit({"Enter"}), CommandResult::success);
  EXPECT_THAT(MaterialText(2, "OrvSurface"), Optional(std::string("\"Z\"")))
      << "nothing was picked";
  EXPECT_EQ(Edit({"Surface", "!", "Displacement", "!", "Enter"}), CommandResult::success);
  EXPECT_THAT(MaterialText(2, "OrvSurface"), Optional(std::string("\"X\" \"float A\" [1 2]")));
  EXPECT_THAT(MaterialText(2, "OrvDisplacement"), Optional(std::string("\"Y\"")));
  EXPECT_THAT(MaterialText(2, "OrvSurfaceLayout"), Optional(std::string("-")));
}

TEST_F(MaterialCommandTest, IsStoredInTheMaterialOfEachObject) {
  Select({0, 2});
  EXPECT_EQ(Edit({"ShadingSamples=7", "Enter"}), CommandResult::success);
  for (const std::size_t i : {0U, 1U, 2U, 3U}) {
    EXPECT_THAT(MaterialText(i, "OrvShadingSamples"), Optional(std::string("7"))) << i;
  }
  // What wasn't changed is each one's own.
  EXPECT_EQ(Material(0).m_name, "Oak");
  EXPECT_EQ(Material(2).m_name, "");
}

TEST_F(MaterialCommandTest, CancelAndFailureStoreNothing) {
  EXPECT_EQ(Edit({"ShadingSamples=7", "!"}), CommandResult::cancel);
  EXPECT_EQ(Edit({"ShadingSamples=7", "Nonsense"}), CommandResult::failure);
  EXPECT_EQ(MaterialText(0, "OrvShadingSamples"), std::nullopt);
  Select({});
  EXPECT_EQ(Edit({"!"}), CommandResult::cancel);
  EXPECT_EQ(Edit({"b", "Enter", "Color=#102030", "Enter"}, Form::interactive),
            CommandResult::success);
  EXPECT_EQ(Material(0).m_diffuse, (ON_Color{16, 32, 48}));
}

}  // namespace
}  // namespace orv
