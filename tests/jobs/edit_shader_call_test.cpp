#include "jobs/edit_shader_call.h"

#include <gmock/gmock.h>

#include "shader_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;

class EditShaderCallTest : public ShaderCommandTest {
 protected:
  // The first prompt's options for a shader X with one parameter.
  std::string ShownOf(const std::string& param) {
    Accepted("\"X\" " + param);
    const std::string& line = prompts_.at(0);
    constexpr std::string_view kStart = "Orv Surface ( Shader=X  ", kEnd = " ): ";
    EXPECT_TRUE(line.starts_with(kStart) && line.ends_with(kEnd)) << line;
    return line.substr(kStart.size(), line.size() - kStart.size() - kEnd.size());
  }
};

TEST_F(EditShaderCallTest, WithoutAShaderThereIsOneOption) {
  EXPECT_EQ(Accepted(""), "");
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader ): "));
}

TEST_F(EditShaderCallTest, ThePromptIsTheSameForADisplacement) {
  EXPECT_EQ(Edit(Form::scripted, "\"D\"", {"Enter"}, "Displacement"), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader=D ): "));
  EXPECT_EQ(call_, "\"D\"");
}

TEST_F(EditShaderCallTest, EachParameterIsAnOption) {
  EXPECT_EQ(ShownOf("\"float Kd\" [0.25]"), "Kd=0.25");
  EXPECT_EQ(ShownOf("\"float[1] Kd\" [0.25]"), "Kd=0.25");
  EXPECT_EQ(ShownOf("\"float[2] Size\" [0.5 -1e-3]"), "Size=0.5,-0.001");
  EXPECT_EQ(ShownOf("\"float[3] Origin\" [1 2 3]"), "Origin=1,2,3");
  EXPECT_EQ(ShownOf("\"color C\" [0 0.2 1]"), "C=0,51,255");
  EXPECT_EQ(ShownOf("\"string Map\" [\"\"]"), "Map");
  EXPECT_EQ(ShownOf("\"string Map\" [\"a/b/wood.tx\"]"), "Map=wood.tx");
  EXPECT_EQ(ShownOf("\"string Map\" [\"a/b/\"]"), "Map=a/b/");
  EXPECT_EQ(ShownOf("\"string Map\" [\"a\\b.tx\"]"), "Map=a\\b.tx");
  EXPECT_EQ(ShownOf("\"string Projection\" [\"BOX\"]"), "Projection=box");
  EXPECT_EQ(ShownOf("\"string projection\" [\"other\"]"), "projection=st");
  EXPECT_EQ(ShownOf("\"string Projection\" [\"\"]"), "Projection");
  EXPECT_EQ(ShownOf("\"string TextureSpace\" [\"ndc\"]"), "TextureSpace=NDC");
  EXPECT_EQ(ShownOf("\"string TextureSpace\" [\"none\"]"), "TextureSpace=shader");
  EXPECT_EQ(ShownOf("\"string TextureSpace\" [\"\"]"), "TextureSpace");
}

TEST_F(EditShaderCallTest, TheyStandInOrderAndHiddenOnesAreShownToo) {
  Accepted(
      "\"X\" \"float ReflectionSamples\" [1] \"float ReflectionBlur\" [0.5] "
      "\"string FloatTweak1Name\" [\"\"] \"float FloatTweak1\" [3]");
  EXPECT_THAT(prompts_,
              ElementsAre("Orv Surface ( Shader=X  ReflectionSamples=1  ReflectionBlur=0.5  "
                          "FloatTweak1Name  FloatTweak1=3 ): "));
}

TEST_F(EditShaderCallTest, TwoHundredParametersAreShown) {
  std::string call = "\"X\"", kept;
  for (int i = 0; i < 201; ++i) {
    if (i == 200) kept = call;
    call += " \"float P" + std::to_string(i) + "\" [0.5]";
  }
  EXPECT_EQ(Accepted(call), kept);
}

TEST_F(EditShaderCallTest, ANumberIsAskedForByItsLabelAndHeldToItsBounds) {
  EXPECT_EQ(Edit(Form::interactive, "\"X\" \"float SpecularRoughness\" [0.1]",
                 {"SpecularRoughness", "0.25", "SpecularRoughness=1e31", "spec=-1e30", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader=X  SpecularRoughness=0.1 ): ",
                                    "Specular roughness <0.1>: ",
                                    "Orv Surface ( Shader=X  SpecularRoughness=0.25 ): ",
                                    "Orv Surface ( Shader=X  SpecularRoughness=0.25 ): ",
                                    "Orv Surface ( Shader=X  SpecularRoughness=-1e+30 ): "));
  EXPECT_THAT(refusals_, ElementsAre("SpecularRoughness takes a number from -1e+30 to 1e+30, not "
                                     "'1e31'."));
  EXPECT_EQ(call_, "\"X\" \"float SpecularRoughness\" [-1e+30]");
}

TEST_F(EditShaderCallTest, AColorIsAskedForByItsLabel) {
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"color SpecularColor\" [1 1 1]",
                 {"SpecularColor", "255,0,51", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Specular color <255,255,255>: ");
  EXPECT_EQ(call_, "\"X\" \"color SpecularColor\" [1 0 0.2]");
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"color C\" [1 1 1]", {"C=#336699", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"color C\" [0.2 0.4 0.6]");
}

TEST_F(EditShaderCallTest, ColorsHaveTheDocumentsGamma) {
  plugIn_.UserStrings().SetUserString("RhinoGamma", "2");
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"color C\" [0.04 0 1]", {"Enter"}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader=X  C=51,0,255 ): "));
  EXPECT_EQ(call_, "\"X\" \"color C\" [0.04 0 1]");
  plugIn_.UserStrings().SetUserString("RhinoGamma", "0.01");
  // Held to 0.1, so that 0.9 becomes the colour 89 of 255.
  EXPECT_EQ(Accepted("\"X\" \"color C\" [0.9 0 1]"), "\"X\" \"color C\" [0.900088 0 1]");
}

TEST_F(EditShaderCallTest, WordsOfAListAreChosen) {
  constexpr const char* kProjections[] = {"st", "planar", "box", "spherical", "cylindrical"};
  for (const char* word : kProjections) {
    EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string Projection\" [\"Box\"]",
                   {std::string("Projection=") + word, "Enter"}),
              CommandResult::success);
    EXPECT_EQ(call_, "\"X\" \"string Projection\" [\"" + std::string(word) + "\"]");
  }
  constexpr const char* kSpaces[] = {"shader", "world", "object", "current",
                                     "camera", "NDC",   "screen", "raster"};
  for (const char* word : kSpaces) {
    EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string TextureSpace\" [\"world\"]",
                   {"TextureSpace", word, "Enter"}),
              CommandResult::success);
    EXPECT_EQ(call_, "\"X\" \"string TextureSpace\" [\"" + std::string(word) + "\"]");
  }
  EXPECT_EQ(prompts_.at(1),
            "TextureSpace <world> ( shader  world  object  current  camera  NDC  screen  "
            "raster ): ");
  // What isn't chosen stays as it was.
  EXPECT_EQ(Accepted("\"X\" \"string Projection\" [\"BOX\"]"),
            "\"X\" \"string Projection\" [\"BOX\"]");
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string Projection\" [\"box\"]", {"Projection=cubic"}),
            CommandResult::failure);
  EXPECT_THAT(refusals_, ElementsAre("Projection takes st, planar, box, spherical or cylindrical, "
                                     "not 'cubic'."));
}

TEST_F(EditShaderCallTest, APairThatCannotBeReadIsLost) {
  EXPECT_EQ(Accepted("\"X\" \"float A\" [1 2] \"output float B\" [1] \"float C\" [3] \"float D\""),
            "\"X\" \"float C\" [3]");
}

TEST_F(EditShaderCallTest, TheHostsMaterialHasNoParameters) {
  EXPECT_EQ(Accepted("\"Rhino\""), "\"Rhino\"");
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader=Rhino ): "));
}

TEST_F(EditShaderCallTest, NullInAnyCaseIsNoShader) {
  EXPECT_EQ(Accepted("\"null\""), "");
  EXPECT_EQ(Accepted("\"NULL\" \"float A\" [1]"), "");
  EXPECT_EQ(Accepted("\"nulls\""), "\"nulls\"");
}

TEST_F(EditShaderCallTest, AnythingButEnterLeavesTheCall) {
  const std::string call = "\"X\" \"float A\" [1 2] \"float K\" [3]";
  EXPECT_EQ(Edit(Form::interactive, call, {"K=7", "!"}), CommandResult::cancel);
  EXPECT_EQ(call_, call);
  EXPECT_EQ(Edit(Form::scripted, call, {"K=7", "Unknown"}), CommandResult::failure);
  EXPECT_EQ(call_, call);
  EXPECT_EQ(Edit(Form::scripted, call, {"K=7"}), CommandResult::cancel);
  EXPECT_EQ(call_, call);
}

}  // namespace
}  // namespace orv
