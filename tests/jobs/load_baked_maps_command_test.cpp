#include "jobs/load_baked_maps_command.h"

#include <gmock/gmock.h>

#include "command_fixture.h"
#include "host/geometry/on_plane_surface.h"
#include "support/brep_shapes.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A texture as "file type mode on".
std::string Text(const ON_Texture& texture) {
  return texture.m_image_file + " " + std::to_string(static_cast<int>(texture.m_type)) + " " +
         std::to_string(texture.m_mode) + (texture.m_bOn ? " on" : " off");
}

ON_Texture Texture(const std::string& file, ON_Texture::Type type) {
  ON_Texture texture;
  texture.m_image_file = file;
  texture.m_type = type;
  texture.m_mode = 2;
  return texture;
}

// Documents of squares and boxes with materials of their own or of their layer.
class LoadBakedMapsCommand : public CommandTest {
 protected:
  LoadBakedMapsCommand() {
    plugIn_.UserStrings().SetUserString("BakeImageName", "maps\\hall.png");
    model_.m_layer_table.resize(2);
  }

  static std::shared_ptr<ON_Mesh> Square() {
    auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    mesh->m_F = {{{0, 1, 2, 3}}};
    return mesh;
  }
  ONX_ModelObject& AddObject(std::shared_ptr<ON_Geometry> geometry = Square()) {
    ONX_ModelObject& object = model_.m_object_table.emplace_back();
    object.m_geometry = std::move(geometry);
    object.m_attributes.m_uuid.bytes[0] = static_cast<std::uint8_t>(model_.m_object_table.size());
    return object;
  }
  // An object with a material of its own, which has an image and a bump map.
  ONX_ModelObject& AddObjectWithMaterial(std::shared_ptr<ON_Geometry> geometry = Square()) {
    ON_Material& material = model_.m_material_table.emplace_back();
    material.m_name = "own";
    material.m_textures = {Texture("old.png", ON_Texture::Type::bitmap),
                           Texture("bump.png", ON_Texture::Type::bump),
                           Texture("older.png", ON_Texture::Type::bitmap)};
    ONX_ModelObject& object = AddObject(std::move(geometry));
    object.m_attributes.m_material_source = ON_AttributeSource::object;
    object.m_attributes.m_material_index = static_cast<int>(model_.m_material_table.size()) - 1;
    return object;
  }
  CommandResult Load(std::vector<std::string> answers = {"Enter"}, Form form = Form::scripted) {
    if (!model_.m_object_table.empty()) doc_.SetModel(std::move(model_), "");
    model_ = {};
    return Run<CCommandOrvLoadBakedMaps>(form, std::move(answers));
  }
  std::vector<std::string> Textures(int material) const {
    std::vector<std::string> texts;
    for (const ON_Texture& texture : doc_.m_material_table.At(material)->m_textures) {
      texts.push_back(Text(texture));
    }
    return texts;
  }
  // The map of an object as its material has it.
  std::string Map(std::size_t object) const {
    return "maps\\hall_" + doc_.Objects()[object]->Attributes().m_uuid.ToString() + ".png 1 1 on";
  }

  ONX_Model model_;
};

TEST_F(LoadBakedMapsCommand, ReplacesTheImagesOfTheMaterial) {
  AddObjectWithMaterial();
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Load Baked Maps ( Selected=No ): "));
  EXPECT_THAT(Textures(0), ElementsAre("bump.png 2 2 on", Map(0)));
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "own");
  EXPECT_EQ(messages_, "");
  // The map is replaced by itself.
  EXPECT_EQ(Load({"Enter"}, Form::interactive), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Load Baked Maps ( Selected=No ): "));
  EXPECT_THAT(Textures(0), ElementsAre("bump.png 2 2 on", Map(0)));
}

TEST_F(LoadBakedMapsCommand, TakesBrepsAndMeshesThatAreNotHidden) {
  AddObjectWithMaterial(MakeBoxBrep({{0, 0, 0}, {1, 1, 1}}));
  AddObjectWithMaterial().m_attributes.m_mode = ON_ObjectMode::hidden;
  AddObjectWithMaterial(std::make_shared<ON_PlaneSurface>());
  AddObjectWithMaterial().m_attributes.m_mode = ON_ObjectMode::locked;
  AddObjectWithMaterial().m_attributes.m_mode = ON_ObjectMode::idef_member;
  AddObjectWithMaterial().m_attributes.m_layer_index = 1;
  model_.m_layer_table[1].m_visible = false;
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_THAT(Textures(0), ElementsAre("bump.png 2 2 on", Map(0)));
  EXPECT_THAT(Textures(3), ElementsAre("bump.png 2 2 on", Map(3)));
  // Its layer is off, but it isn't hidden itself.
  EXPECT_THAT(Textures(5), ElementsAre("bump.png 2 2 on", Map(5)));
  for (const int untouched : {1, 2, 4}) {
    EXPECT_THAT(Textures(untouched),
                ElementsAre("old.png 1 2 on", "bump.png 2 2 on", "older.png 1 2 on"));
  }
}

TEST_F(LoadBakedMapsCommand, SelectedTakesTheSelectionAlone) {
  AddObjectWithMaterial();
  AddObjectWithMaterial();
  doc_.SetModel(std::move(model_), "");
  model_ = {};
  ASSERT_TRUE(doc_.Objects()[1]->Select());
  EXPECT_EQ(Load({"Selected", "Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Load Baked Maps ( Selected=No ): ",
                                    "Load Baked Maps ( Selected=Yes ): "));
  EXPECT_EQ(Textures(0).size(), 3U);
  EXPECT_THAT(Textures(1), ElementsAre("bump.png 2 2 on", Map(1)));
}

TEST_F(LoadBakedMapsCommand, OfSharedMaterialsHasTheLastObjectsMap) {
  AddObjectWithMaterial();
  ONX_ModelObject& second = AddObject();
  second.m_attributes.m_material_source = ON_AttributeSource::object;
  second.m_attributes.m_material_index = 0;
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_THAT(Textures(0), ElementsAre("bump.png 2 2 on", Map(1)));
}

TEST_F(LoadBakedMapsCommand, TheMaterialOfALayerGetsTheMap) {
  AddObject();
  model_.m_material_table.resize(1);
  model_.m_layer_table[0].m_render_material_index = 0;
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_THAT(Textures(0), ElementsAre(Map(0)));
  EXPECT_EQ(doc_.m_material_table.Count(), 1);
}

TEST_F(LoadBakedMapsCommand, ALayersNewMaterialGetsTheMapWhenItRunsAgain) {
  AddObject();
  EXPECT_EQ(Load(), CommandResult::success);
  ASSERT_EQ(doc_.m_material_table.Count(), 1);
  EXPECT_EQ(doc_.m_layer_table.At(0)->RenderMaterialIndex(), 0);
  EXPECT_EQ(doc_.m_material_table.At(0)->Diffuse(), ON_Color(255, 255, 255));
  EXPECT_THAT(Textures(0), IsEmpty());
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_THAT(Textures(0), ElementsAre(Map(0)));
  EXPECT_EQ(doc_.m_material_table.Count(), 1);
}

TEST_F(LoadBakedMapsCommand, ALayersNewMaterialGetsTheMapOfItsNextObject) {
  AddObject();
  AddObject();
  AddObject().m_attributes.m_layer_index = 1;
  EXPECT_EQ(Load(), CommandResult::success);
  ASSERT_EQ(doc_.m_material_table.Count(), 2);
  EXPECT_THAT(Textures(0), ElementsAre(Map(1)));
  EXPECT_THAT(Textures(1), IsEmpty());
}

TEST_F(LoadBakedMapsCommand, AnObjectWithoutAMaterialOfItsOwnIsPassedOver) {
  AddObject().m_attributes.m_material_source = ON_AttributeSource::object;
  AddObject().m_attributes.m_material_source = ON_AttributeSource::parent;
  AddObject().m_attributes.m_layer_index = 7;
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_EQ(doc_.m_material_table.Count(), 0);
}

TEST_F(LoadBakedMapsCommand, UndoTakesAllOfItBack) {
  AddObjectWithMaterial();
  AddObject().m_attributes.m_layer_index = 1;
  doc_.SetModel(std::move(model_), "");
  model_ = {};
  const unsigned record = doc_.BeginUndoRecord("OrvLoadBakedMaps");
  EXPECT_EQ(Load(), CommandResult::success);
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(Textures(0).size(), 3U);
  EXPECT_EQ(doc_.m_layer_table.At(1)->RenderMaterialIndex(), -1);
  EXPECT_TRUE(doc_.Redo());
  EXPECT_THAT(Textures(0), ElementsAre("bump.png 2 2 on", Map(0)));
}

TEST_F(LoadBakedMapsCommand, MayBeCancelled) {
  AddObjectWithMaterial();
  EXPECT_EQ(Load({"!"}), CommandResult::cancel);
  EXPECT_EQ(Load({"Selected=Yes", "!"}), CommandResult::cancel);
  EXPECT_EQ(Load({"All"}), CommandResult::failure);
  EXPECT_EQ(Textures(0).size(), 3U);
  EXPECT_EQ(messages_, "");
}

}  // namespace
}  // namespace orv
