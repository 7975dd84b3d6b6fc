#include <gmock/gmock.h>

#include "host/document/object.h"
#include "material_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Kinds of shader files.
enum : std::int8_t { kSurfaceFile = 0, kDisplacementFile = 1, kImagerFile = 3, kInstancerFile = 7 };

constexpr char kPlastic[] = R"("VPlastic" "float Diffuse" [0.5] "string ColorMapName" [""])";

class MaterialShadersTest : public MaterialPageTest {
 protected:
  MaterialShadersTest() {
    WriteShader("shaders", "VPlastic", kSurfaceFile);
    WriteShader("shaders", "VDents", kDisplacementFile);
    WriteShader("shaders", "VInstanceTree", kInstancerFile);
  }
  std::string ShaderFileOf(const std::string& name) const {
    return folder_.File("home/shaders/" + name + ".slb");
  }
};

TEST_F(MaterialShadersTest, AShaderOfTheListIsStoredWithItsDefaults) {
  for (const auto& [slot, shown, shader] :
       std::vector<std::array<std::string, 3>>{{"Surface", "Plastic", "VPlastic"},
                                               {"Displacement", "Dents", "VDents"},
                                               {"Instancer", "Instance tree", "VInstanceTree"}}) {
    SetMaterialText(0, "Orv" + slot + "Layout", "-");
    Open(page_);
    EXPECT_EQ(Change(slot + ':', shown), "");
    EXPECT_EQ(Text(0, "Orv" + slot),
              "\"" + shader + "\" \"float Diffuse\" [0.5] \"string ColorMapName\" [\"\"]");
    EXPECT_EQ(Text(0, "Orv" + slot + "Layout"), "");
    EXPECT_EQ(Shown(slot), shown);
    // The page shows its rows.
    EXPECT_EQ(Shown("ActiveSlot"), slot);
    EXPECT_EQ(Shown(slot + ".Diffuse"), "0.5");
    EXPECT_TRUE(doc_.Undo());
    EXPECT_EQ(Text(0, "Orv" + slot), "none");
    EXPECT_EQ(Text(0, "Orv" + slot + "Layout"), "-");
  }
  EXPECT_EQ(messages_, "");
}

TEST_F(MaterialShadersTest, AShaderThatTheListLacksIsShownByItsName) {
  Shade("\"MyShader\"");
  EXPECT_EQ(Shown("Surface"), "MyShader");
  Shade("\"Velvet\"");
  EXPECT_EQ(Shown("Surface"), "Velvet");
  Shade("\"V2SidedPlastic\"");
  EXPECT_EQ(Shown("Surface"), "2 Sided");
  EXPECT_EQ(Shown("Instancer"), "");
}

TEST_F(MaterialShadersTest, AShaderOfTheListWithoutAFileIsPassedOver) {
  WriteShader("usershaders", "VGlass");
  EXPECT_EQ(Change("Surface", "Glass"), "");
  EXPECT_EQ(Text(0, "OrvSurface"), "none");
  EXPECT_EQ(messages_, "");
  // So is one that is no shader file.
  WriteShader("shaders", "VGlass", 8);
  EXPECT_EQ(Change("Surface", "Glass"), "");
  EXPECT_EQ(Text(0, "OrvSurface"), "none");
  EXPECT_EQ(messages_, "");
}

TEST_F(MaterialShadersTest, RhinoNeedsNoFile) {
  SetMaterialText(0, "OrvSurface", kPlastic);
  SetMaterialText(0, "OrvSurfaceLayout", "-");
  SetMaterialText(0, "OrvDisplacement", "\"VDents\"");
  Open(page_);
  EXPECT_EQ(Change("Surface", "rhino"), "");
  EXPECT_EQ(Text(0, "OrvSurface"), "\"Rhino\"");
  EXPECT_EQ(Text(0, "OrvSurfaceLayout"), "");
  EXPECT_EQ(Shown("Surface"), "Rhino");
  EXPECT_LT(FindControl(page_.Controls(), "Surface.Diffuse"), 0);
  EXPECT_EQ(Change("Displacement", "Rhino"), "");
  EXPECT_EQ(Text(0, "OrvDisplacement"), "\"Rhino\"");
  // The rows stay those of the slot that was shown.
  EXPECT_EQ(Shown("ActiveSlot"), "Surface");
}

TEST_F(MaterialShadersTest, NoneTakesTheInstancerAway) {
  SetMaterialText(0, "OrvInstancer", "\"VInstanceTree\"");
  Open(page_);
  EXPECT_EQ(Shown("Instancer"), "Instance tree");
  EXPECT_EQ(Change("Instancer", "None"), "");
  EXPECT_EQ(Text(0, "OrvInstancer"), "");
  EXPECT_EQ(Shown("Instancer"), "");
}

TEST_F(MaterialShadersTest, ShadersOfAnotherKindAreTold) {
  for (const auto& [slot, shown, shader, message] : std::vector<std::array<std::string, 4>>{
           {"Surface", "Clay", "VClay", "Selected shader is not a surface shader.\n"},
           {"Displacement", "Nicks", "VNicks", "Selected shader is not a displacement shader.\n"},
           {"Instancer", "Array on surface", "VArrayOnSurface",
            "Selected shader is not an instancer shader.\n"}}) {
    messages_.clear();
    WriteShader("shaders", shader, kImagerFile);
    EXPECT_EQ(Change(slot, shown), "");
    EXPECT_EQ(messages_, message);
    EXPECT_EQ(Change("Choose" + slot, ShaderFileOf(shader)), "");
    EXPECT_EQ(messages_, message + message);
    EXPECT_EQ(Text(0, "Orv" + slot), "none");
  }
  EXPECT_EQ(UndoCaption(), "");
  // A material knows no null shader as commands do.
  messages_.clear();
  WriteShader("shaders", "null", kDisplacementFile);
  EXPECT_EQ(Change("ChooseSurface", ShaderFileOf("null")), "");
  EXPECT_EQ(messages_, "Selected shader is not a surface shader.\n");
}

TEST_F(MaterialShadersTest, AFileThatIsTooShortIsOfNoKind) {
  WriteFileContent(folder_.File("home/shaders/VClay.slb"), "abc");
  EXPECT_EQ(Change("Surface", "Clay"), "");
  EXPECT_EQ(messages_, "Selected shader is not a surface shader.\n");
}

TEST_F(MaterialShadersTest, AShadersFileIsChosenInADialog) {
  WriteShader("shaders", "Own");
  for (const auto& [slot, title] :
       std::vector<std::array<std::string, 2>>{{"Surface", "Choose shader"},
                                               {"Displacement", "Choose shader"},
                                               {"Instancer", "Choose instancer shader"}}) {
    plugIn_.User().ShaderDir.clear();
    EXPECT_EQ(Change("Choose" + slot, "", {"!"}), "");
    EXPECT_EQ(prompts_.at(0), title + " (in " + Home() + "shaders\\): ");
  }
  EXPECT_EQ(Change("ChooseSurface", "", {ShaderFileOf("Own")}), "");
  EXPECT_THAT(Text(0, "OrvSurface"), HasSubstr("\"Own\" \"float Diffuse\" [0.5]"));
  EXPECT_EQ(Shown("Surface"), "Own");
  EXPECT_EQ(plugIn_.User().ShaderDir, folder_.File("home/shaders/"));
  // It proposes the present shader.
  EXPECT_EQ(Change("ChooseSurface", "", {"Enter"}), "");
  EXPECT_THAT(prompts_.at(0), HasSubstr("<" + Home() + "shaders\\Own.slb>"));
}

TEST_F(MaterialShadersTest, AMetalOfTheListReflectsFourTimes) {
  ShaderFile metal;
  metal.Name = "VMetal";
  metal.Params = {{1, "ReflectionSamples", FloatBytes({1})}};
  WriteFileContent(ShaderFileOf("VMetal"), metal.Bytes());
  EXPECT_EQ(Change("Surface", "Metal"), "");
  EXPECT_EQ(Text(0, "OrvSurface"), R"("VMetal" "float ReflectionSamples" [4])");
  EXPECT_EQ(Change("ChooseSurface", ShaderFileOf("VMetal")), "");
  EXPECT_EQ(Text(0, "OrvSurface"), R"("VMetal" "float ReflectionSamples" [1])");
}

TEST_F(MaterialShadersTest, TheSlotStaysWhenOtherObjectsAreShown) {
  EXPECT_EQ(Change("ActiveSlot", "instancer"), "");
  Show({2});
  EXPECT_EQ(Shown("ActiveSlot"), "Instancer");
  const CMatDlg other(plugIn_);
  EXPECT_EQ(Value(other, "ActiveSlot"), "Instancer");
}

}  // namespace
}  // namespace orv
