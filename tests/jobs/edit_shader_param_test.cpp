#include "jobs/edit_shader_param.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "host/geometry/on_plane_surface.h"
#include "shader_fixture.h"
#include "support/brep_shapes.h"

namespace orv {
namespace {

using testing::ElementsAre;

class EditShaderParamTest : public ShaderCommandTest {
 protected:
  // Puts another object into the document.
  const CRhinoObject& Add(std::shared_ptr<ON_Geometry> geometry) {
    ONX_Model model;
    model.m_object_table.emplace_back().m_geometry = std::move(geometry);
    doc_.ImportModel(std::move(model));
    return *doc_.Objects().back();
  }
  // A rectangle of the xy plane with u from 0 to 10 and v from 0 to 4.
  const CRhinoObject& AddRectangle() {
    auto plane = std::make_shared<ON_PlaneSurface>();
    plane->m_domain[0] = plane->m_extents[0] = {0, 10};
    plane->m_domain[1] = plane->m_extents[1] = {0, 4};
    return Add(std::move(plane));
  }
};

TEST_F(EditShaderParamTest, ScriptsTypeSeveralNumbers) {
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"float[2] TextureSizeXY\" [1 0.5]",
                 {"TextureSizeXY", "2,,3 4", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader=X  TextureSizeXY=1,0.5 ): ",
                                    "Texture size x y <1,0.5>: ",
                                    "Orv Surface ( Shader=X  "
                                    "TextureSizeXY=2,3 ): "));
  EXPECT_EQ(call_, "\"X\" \"float[2] TextureSizeXY\" [2 3]");
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"float[3] P\" [1 2 3]", {"P=7", "P", "Enter", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"float[3] P\" [7 2 3]");
}

TEST_F(EditShaderParamTest, SixteenNumbersAtMostAreTaken) {
  const std::string zeros = "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0";
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"float[16] M\" [" + zeros + "]",
                 {"M=1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"float[16] M\" [1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16]");
}

TEST_F(EditShaderParamTest, ACancelledPromptLeavesTheValue) {
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"float[2] P\" [1 2] \"string S\" [\"a\"]",
                 {"P", "!", "S", "!", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"float[2] P\" [1 2] \"string S\" [\"a\"]");
}

TEST_F(EditShaderParamTest, OtherCountsAreTypedByAPersonToo) {
  EXPECT_EQ(Edit(Form::interactive, "\"X\" \"float[4] P\" [1 2 3 4]", {"P", "9 8", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "P <1,2,3,4>: ");
  EXPECT_EQ(call_, "\"X\" \"float[4] P\" [9 8 3 4]");
}

TEST_F(EditShaderParamTest, APersonPicksAPointForThreeNumbers) {
  const std::string call = "\"X\" \"float[3] Origin\" [1 2 3]";
  EXPECT_EQ(Edit(Form::interactive, call, {"Origin", "4,5,-6", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Pick point: ");
  EXPECT_EQ(call_, "\"X\" \"float[3] Origin\" [4 5 -6]");
  for (const char* answer : {"Enter", "!"}) {
    EXPECT_EQ(Edit(Form::interactive, call, {"Origin", answer, "Enter"}), CommandResult::success);
    EXPECT_EQ(call_, call);
  }
}

TEST_F(EditShaderParamTest, APersonPicksAPlaceOnASurfaceForTwoNumbers) {
  const CRhinoObject& rectangle = AddRectangle();
  EXPECT_EQ(Edit(Form::interactive, "\"X\" \"float[2] Center\" [1 2]",
                 {"Center", "2.5,1,9", "Enter"}, "Surface", &rectangle),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Pick point on surface: ");
  EXPECT_EQ(call_, "\"X\" \"float[2] Center\" [0.25 0.75]");
}

TEST_F(EditShaderParamTest, APickedSizeIsToldFromTheOriginBehindIt) {
  const CRhinoObject& rectangle = AddRectangle();
  const std::string size = "\"X\" \"float[2] TextureSizeXY\" [1 1]";
  const auto picked = [&](const std::string& next) {
    EXPECT_EQ(Edit(Form::interactive, size + next, {"TextureSizeXY", "7.5,0", "Enter"}, "Surface",
                   &rectangle),
              CommandResult::success);
    EXPECT_TRUE(call_.ends_with(next));
    return call_.substr(0, call_.size() - next.size());
  };
  const std::string relative = "\"X\" \"float[2] TextureSizeXY\" [0.25 0.9]";
  const std::string whole = "\"X\" \"float[2] TextureSizeXY\" [0.75 1]";
  EXPECT_EQ(picked(" \"float[2] TextureOriginXY\" [0.5 0.1]"), relative);
  EXPECT_EQ(picked(""), whole);
  EXPECT_EQ(picked(" \"float[2] TextureCornerXY\" [0.5 0.1]"), whole);
  EXPECT_EQ(picked(" \"float[3] TextureOriginXY\" [0.5 0.1 0]"), whole);
  EXPECT_EQ(picked(" \"float TextureOriginXY\" [0.5]"), whole);
  EXPECT_EQ(picked(" \"string TextureOriginXY\" [\"a\"]"), whole);
  EXPECT_EQ(picked(" \"float Ka\" [1] \"float[2] TextureOriginXY\" [0.5 0.1]"), whole);
}

TEST_F(EditShaderParamTest, APickedOriginIsWhatIsPicked) {
  const CRhinoObject& rectangle = AddRectangle();
  EXPECT_EQ(Edit(Form::interactive,
                 "\"X\" \"float[2] OriginXY\" [0 0] \"float[2] OtherOriginXY\" [0.5 0.5]",
                 {"OriginXY", "7.5,0", "Enter"}, "Surface", &rectangle),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"float[2] OriginXY\" [0.75 1] \"float[2] OtherOriginXY\" [0.5 0.5]");
}

TEST_F(EditShaderParamTest, ACancelledPickLeavesTheValue) {
  const CRhinoObject& rectangle = AddRectangle();
  const std::string call = "\"X\" \"float[2] Center\" [1 2]";
  for (const char* answer : {"Enter", "!"}) {
    EXPECT_EQ(Edit(Form::interactive, call, {"Center", answer, "Enter"}, "Surface", &rectangle),
              CommandResult::success);
    EXPECT_EQ(call_, call);
  }
}

TEST_F(EditShaderParamTest, OnAMeshTwoNumbersAreTyped) {
  const CRhinoObject& mesh = *doc_.Objects()[0];
  EXPECT_EQ(Edit(Form::interactive, "\"X\" \"float[2] Center\" [1 2]",
                 {"Center", "0.5 0.25", "Enter"}, "Surface", &mesh),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Center <1,2>: ");
  EXPECT_EQ(call_, "\"X\" \"float[2] Center\" [0.5 0.25]");
  // As without an object.
  EXPECT_EQ(Edit(Form::interactive, "\"X\" \"float[2] Center\" [1 2]", {"Center", "3", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"float[2] Center\" [3 2]");
}

TEST_F(EditShaderParamTest, APersonPicksADecalForSixteenNumbers) {
  const std::string zeros = "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0";
  const std::string call = "\"X\" \"float[16] TopDecalMatrix\" [" + zeros + "]";
  EXPECT_EQ(Edit(Form::interactive, call, {"TopDecalMatrix", "1,2,3", "3,2,3", "9,-2,3", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Pick top, left corner: ");
  EXPECT_EQ(
      call_,
      "\"X\" \"float[16] TopDecalMatrix\" [0.5 0 0 0 0 -0.25 0 0 0 0 -0.25 0 -0.5 0.5 0.75 1]");
  EXPECT_EQ(Edit(Form::interactive, call, {"TopDecalMatrix", "1,2,3", "!", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, call);
}

TEST_F(EditShaderParamTest, ScriptsTypeTexts) {
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string ColorMapName\" [\"old/wood.tx\"]",
                 {"ColorMapName", "C:\\maps\\new wood.tx", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(
      prompts_,
      ElementsAre("Orv Surface ( Shader=X  ColorMapName=wood.tx ): ", "Color map <old/wood.tx>: ",
                  "Orv Surface ( Shader=X  ColorMapName=C:\\maps\\new wood.tx ): "));
  EXPECT_EQ(call_, "\"X\" \"string ColorMapName\" [\"C:\\maps\\new wood.tx\"]");
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string Groups\" [\"\"]", {"Groups=a b", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"string Groups\" [\"a b\"]");
}

TEST_F(EditShaderParamTest, EnterKeepsATextAndAnEmptyOneClearsIt) {
  const std::string call = "\"X\" \"string S\" [\"a\\042b\"]";
  EXPECT_EQ(Edit(Form::scripted, call, {"S", "Enter", "Enter"}), CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "S <a\"b>: ");
  EXPECT_EQ(call_, call);
  EXPECT_EQ(Edit(Form::scripted, call, {"S=", "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"string S\" [\"\"]");
}

TEST_F(EditShaderParamTest, ATextCannotEndTheCall) {
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string S\" [\"\"] \"float K\" [1]",
                 {"S=a\"] \"float Z\" [2", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"string S\" [\"a\\042\\135 \\042float Z\\042 [2\"] \"float K\" [1]");
}

TEST_F(EditShaderParamTest, ATextMayBeginWithTheHomeVariable) {
  const ScopedEnvironment home("ORVHOME", "D:\\orv");
  EXPECT_EQ(Edit(Form::scripted, "\"X\" \"string S\" [\"\"]", {"S=$orvhome\\maps\\a.tif", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"string S\" [\"D:/orv/maps/a.tif\"]");
  // That of a document is taken in its place when it is accepted.
  EXPECT_EQ(
      Edit(Form::scripted, "\"X\" \"string S\" [\"$ORVHOME/b.tif\"]", {"S", "Enter", "Enter"}),
      CommandResult::success);
  EXPECT_EQ(call_, "\"X\" \"string S\" [\"D:/orv/b.tif\"]");
}

TEST_F(EditShaderParamTest, APersonChoosesAFileForAText) {
  WriteFileContent(folder_.File("wood.png"), "");
  plugIn_.User().TextureDir = folder_.Path().string();
  EXPECT_EQ(Edit(Form::interactive, "\"X\" \"string ColorMapName\" [\"old/gone.tx\"]",
                 {"ColorMapName", "wood.png", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Choose image file (in " + folder_.Path().string() + "): ");
  EXPECT_EQ(call_, "\"X\" \"string ColorMapName\" [\"" + folder_.File("wood.png") + "\"]");
  EXPECT_EQ(plugIn_.User().TextureDir, folder_.File(""));
}

TEST_F(EditShaderParamTest, TheDialogGetsBackslashesAndGivesSlashes) {
  const std::string file = folder_.File("wood.png");
  std::string shown = file;
  std::replace(shown.begin(), shown.end(), '/', '\\');
  WriteFileContent(file, "");
  const std::string call = "\"X\" \"string S\" [\"" + file + "\"]";
  EXPECT_EQ(Edit(Form::interactive, call, {"S", "Enter", "Enter"}), CommandResult::success);
  EXPECT_TRUE(prompts_.at(1).ends_with("<" + shown + ">: ")) << prompts_.at(1);
  EXPECT_EQ(call_, call);
  EXPECT_EQ(Edit(Form::interactive, call, {"S", "!", "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, call);
}

TEST_F(EditShaderParamTest, DialogsTitleAndFilters) {
  EXPECT_EQ(kImagePicker.Title, "Choose image file");
  EXPECT_EQ(kImagePicker.Filter,
            "All files;*.*;Orv Texture Maps (*.tx);*.tx;Portable Network Graphics (*.png);*.png;"
            "JPEG Interchange Format (*.jpg);*.jpg;Tagged Image File Format (*.tif);*.tif;"
            "Radiance HDR (*.hdr);*.hdr; Photoshop File Format (*.psd);*.psd;"
            "SGI Image Format (*.sgi);*.sgi;IES Light Profiles (*.ies);*.ies;");
}

class DarkTreeParamTest : public EditShaderParamTest {
 protected:
  DarkTreeParamTest() {
    WriteFileContent(folder_.File("rust.dsts"),
                     "Tweak IF_PERCENT\nTweak Name: Age\nTweak Value: 0.75\n");
  }

  static constexpr char kTweaks[] = "\"string FloatTweak1Name\" [\"\"] \"float FloatTweak1\" [0]";
};

TEST_F(DarkTreeParamTest, ATypedFileRefreshesTheTweaks) {
  const std::string file = folder_.File("rust.dsts");
  for (const char* name : {"DarkTreeShader", "darktreeshader"}) {
    const std::string param = std::string("\"string ") + name + "\" [\"";
    EXPECT_EQ(Edit(Form::scripted, "\"D\" " + param + "\"] " + kTweaks,
                   {std::string(name) + '=' + file, "Enter"}),
              CommandResult::success);
    const bool isExact = std::string_view(name) == "DarkTreeShader";
    // The tweaks are looked for by the exact name.
    EXPECT_EQ(call_, "\"D\" " + param + file + "\"] " +
                         (isExact ? "\"string FloatTweak1Name\" [\"Age\"] \"float FloatTweak1\" "
                                    "[0.75]"
                                  : kTweaks));
  }
}

TEST_F(DarkTreeParamTest, AChosenFileDoesNot) {
  const std::string file = folder_.File("rust.dsts");
  EXPECT_EQ(
      Edit(Form::interactive, std::string("\"D\" \"string DarkTreeShader\" [\"\"] ") + kTweaks,
           {"DarkTreeShader", file, "Enter"}),
      CommandResult::success);
  EXPECT_EQ(call_, "\"D\" \"string DarkTreeShader\" [\"" + file + "\"] " + kTweaks);
}

TEST_F(DarkTreeParamTest, ACancelledTextDoesNot) {
  const std::string call =
      "\"D\" \"string DarkTreeShader\" [\"" + folder_.File("rust.dsts") + "\"] " + kTweaks;
  EXPECT_EQ(Edit(Form::scripted, call, {"DarkTreeShader", "!", "Enter"}), CommandResult::success);
  EXPECT_EQ(call_, call);
  EXPECT_EQ(Edit(Form::scripted, call, {"DarkTreeShader", "Enter", "Enter"}),
            CommandResult::success);
  EXPECT_NE(call_, call);
}

}  // namespace
}  // namespace orv
