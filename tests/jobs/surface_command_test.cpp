#include "jobs/surface_command.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "host/geometry/on_plane_surface.h"
#include "shader_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::Optional;

class SurfaceCommandTest : public ShaderCommandTest {
 protected:
  SurfaceCommandTest() {
    MakeMaterials();
    WriteShader("shaders", "VPlastic");
  }
};

TEST_F(SurfaceCommandTest, AsksForObjectsAndThenForTheShader) {
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"a", "c", "Enter", "Shader", "VPlastic",
                                                     "Diffuse", "0.75", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(
      prompts_,
      ElementsAre("Select objects: ", "Select objects (1 selected, Enter ends): ",
                  "Select objects (2 selected, Enter ends): ", "Orv Surface ( Shader=Rhino ): ",
                  "Surface shader <Rhino>: ",
                  "Orv Surface ( Shader=VPlastic  Diffuse=0.5  ColorMapName ): ", "Diffuse <0.5>: ",
                  "Orv Surface ( Shader=VPlastic  Diffuse=0.75  ColorMapName ): "));
  constexpr char kCall[] = R"("VPlastic" "float Diffuse" [0.75] "string ColorMapName" [""])";
  EXPECT_THAT(MaterialText(0, "OrvSurface"), Optional(std::string(kCall)));
  EXPECT_THAT(MaterialText(2, "OrvSurface"), Optional(std::string(kCall)));
}

TEST_F(SurfaceCommandTest, TheFirstOnesShaderIsShownAndGivenToAll) {
  SetMaterialText(0, "OrvSurface", "\"First\" \"float K\" [1]");
  Select({0, 2, 3});
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Surface ( Shader=First  K=1 ): "));
  for (const std::size_t i : {2U, 3U}) {
    EXPECT_THAT(MaterialText(i, "OrvSurface"), Optional(std::string("\"First\" \"float K\" [1]")));
  }
}

TEST_F(SurfaceCommandTest, EnterAtOncePrintsTheListBack) {
  SetMaterialText(0, "OrvSurface", "\"First\" \"float A\" [1 2] \"float K\" [1]");
  SetMaterialText(0, "OrvSurfaceLayout", "+-");
  Select({0});
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::interactive, {"Enter"}), CommandResult::success);
  EXPECT_THAT(MaterialText(0, "OrvSurface"), Optional(std::string("\"First\" \"float K\" [1]")));
  EXPECT_EQ(MaterialText(0, "OrvSurfaceLayout").value_or(""), "");
  EXPECT_EQ(MaterialText(0, "OrvDisplacement"), std::nullopt);
}

TEST_F(SurfaceCommandTest, NullTakesTheShaderAway) {
  WriteShader("shaders", "null", 7);
  SetMaterialText(0, "OrvSurface", "\"First\"");
  Select({0});
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"Shader=null", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(MaterialText(0, "OrvSurface").value_or(""), "");
  EXPECT_EQ(messages_, "");
}

TEST_F(SurfaceCommandTest, TheEditorsResultIsTheCommands) {
  Select({0});
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"Shader=VPlastic", "!"}),
            CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"Nonsense"}), CommandResult::failure);
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"Shader", "!"}), CommandResult::cancel);
  EXPECT_EQ(MaterialText(0, "OrvSurface"), std::nullopt);
}

TEST_F(SurfaceCommandTest, WithoutObjectsNothingHappens) {
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"Enter"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::scripted, {"nobody"}), CommandResult::failure);
}

TEST_F(SurfaceCommandTest, APlaceIsPickedOnTheFirstObject) {
  ONX_Model model;
  model.m_layer_table.resize(1);
  for (const double width : {10.0, 20.0}) {
    auto plane = std::make_shared<ON_PlaneSurface>();
    plane->m_extents[0] = plane->m_domain[0] = {0, width};
    plane->m_extents[1] = plane->m_domain[1] = {0, 5};
    model.m_object_table.emplace_back().m_geometry = std::move(plane);
  }
  doc_.ImportModel(std::move(model));
  Select({4, 5});
  const std::string call = "\"X\" \"float[2] TextureSizeXY\" [1 1] \"float[2] TextureOriginXY\" ";
  SetMaterialText(0, "OrvSurface", "");
  ON_Material material;
  material.SetUserString("OrvSurface", call + "[0 0]");
  ON_3dmObjectAttributes attributes = Object(4).Attributes();
  attributes.m_material_source = ON_AttributeSource::object;
  attributes.m_material_index = doc_.m_material_table.AddMaterial(material);
  ASSERT_TRUE(doc_.ModifyObjectAttributes(Object(4), attributes));
  EXPECT_EQ(Run<CCommandOrvSurface>(Form::interactive, {"TextureOriginXY", "5,4", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_.at(1), "Pick point on surface: ");
  EXPECT_THAT(MaterialText(4, "OrvSurface"), Optional(call + "[0.5 0.2]"));
  EXPECT_THAT(MaterialText(5, "OrvSurface"), Optional(call + "[0.5 0.2]"));
}

TEST_F(SurfaceCommandTest, HelpTellsWhatIsTypedInsteadOfPicked) {
  const CCommandOrvSurface command(plugIn_);
  for (const char* form : {"x,y,z", "u,v", "face:u,v", "corner", "$ORVHOME", "null"}) {
    EXPECT_THAT(std::string(command.Usage()), testing::HasSubstr(form));
  }
}

}  // namespace
}  // namespace orv
