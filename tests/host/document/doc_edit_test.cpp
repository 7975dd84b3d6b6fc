#include "edited_document.h"

namespace {

using testing::ElementsAre;

class DocEditTest : public EditedDocument {};

TEST_F(DocEditTest, MaterialsAndLightsKnowTheirPlaceInTheTable) {
  EXPECT_EQ(doc_.m_material_table.At(0)->MaterialIndex(), 0);
  EXPECT_EQ(doc_.m_material_table.At(1)->MaterialIndex(), 1);
  EXPECT_EQ(doc_.m_light_table.Count(), 2);
  EXPECT_EQ(Light(0).LightIndex(), 0);
  EXPECT_EQ(Light(1).LightIndex(), 1);
  doc_.ImportModel(Model());
  EXPECT_EQ(doc_.m_material_table.At(3)->MaterialIndex(), 3);
  EXPECT_EQ(doc_.m_light_table.Count(), 4);
  EXPECT_EQ(Light(3).LightIndex(), 3);
}

TEST_F(DocEditTest, ALightThatTwoDocumentsShareKeepsItsPlaceInEach) {
  ONX_Model model = Model();
  std::swap(model.m_light_table[0], model.m_light_table[1]);
  CRhinoDoc other;
  doc_.SetModel(model, "");
  std::swap(model.m_light_table[0], model.m_light_table[1]);
  other.SetModel(model, "");
  EXPECT_EQ(Light(0).LightIndex(), 0);
  EXPECT_EQ(Light(1).LightIndex(), 1);
}

TEST_F(DocEditTest, AddedMaterialStandsAtTheEndUnderItsIndex) {
  ON_Material material;
  material.m_name = "glass";
  material.m_material_index = 77;
  EXPECT_EQ(doc_.m_material_table.AddMaterial(material), 2);
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak", "glass"));
  EXPECT_EQ(doc_.m_material_table.At(2)->MaterialIndex(), 2);
}

TEST_F(DocEditTest, AddedMaterialGetsAnIdOfItsOwn) {
  ON_Material material;
  doc_.m_material_table.AddMaterial(material);
  EXPECT_FALSE(doc_.m_material_table.At(2)->m_id.IsNil());
  material.m_id = TestId(10);
  doc_.m_material_table.AddMaterial(material);
  EXPECT_NE(doc_.m_material_table.At(3)->m_id, TestId(10));
  material.m_id = TestId(99);
  doc_.m_material_table.AddMaterial(material);
  EXPECT_EQ(doc_.m_material_table.At(4)->m_id, TestId(99));
}

TEST_F(DocEditTest, ModifiedMaterialKeepsIndexAndId) {
  ON_Material material;
  material.m_name = "slate";
  material.SetUserString("OrvSurface", "slate");
  EXPECT_TRUE(doc_.m_material_table.ModifyMaterial(material, 1));
  const ON_Material& modified = *doc_.m_material_table.At(1);
  EXPECT_EQ(modified.m_name, "slate");
  EXPECT_EQ(modified.GetUserString("orvsurface"), "slate");
  EXPECT_EQ(modified.MaterialIndex(), 1);
  EXPECT_EQ(modified.m_id, TestId(11));
}

TEST_F(DocEditTest, WhatIsNotInATableIsNotModified) {
  EXPECT_FALSE(doc_.m_material_table.ModifyMaterial({}, 2));
  EXPECT_FALSE(doc_.m_material_table.ModifyMaterial({}, -1));
  EXPECT_FALSE(doc_.m_layer_table.ModifyLayer({}, 3));
  EXPECT_FALSE(doc_.m_layer_table.ModifyLayer({}, -1));
  EXPECT_FALSE(doc_.m_light_table.ModifyLight({}, 2));
  EXPECT_FALSE(doc_.m_light_table.ModifyLight({}, -1));
  EXPECT_EQ(doc_.m_light_table.At(2), nullptr);
  EXPECT_FALSE(doc_.UndoCaption());
}

TEST_F(DocEditTest, ATableWithoutADocumentTakesNoEdits) {
  CRhinoMaterialTable materials(std::vector<ON_Material>(1));
  EXPECT_EQ(materials.AddMaterial({}), -1);
  EXPECT_FALSE(materials.ModifyMaterial({}, 0));
  EXPECT_EQ(materials.Count(), 1);
  CRhinoLayerTable layers({Layer("A", TestId(1))});
  EXPECT_FALSE(layers.ModifyLayer({}, 0));
}

TEST_F(DocEditTest, ModifiedLightKeepsIndexAndId) {
  const ON_UUID id = Light(1).m_light_id;
  const ON_UUID objectId = doc_.m_light_table.At(1)->Attributes().m_uuid;
  ON_Light light;
  light.m_light_id = TestId(88);
  light.Enable(false);
  EXPECT_TRUE(doc_.m_light_table.ModifyLight(light, 1));
  EXPECT_FALSE(Light(1).IsEnabled());
  EXPECT_TRUE(Light(0).IsEnabled());
  EXPECT_EQ(Light(1).LightIndex(), 1);
  EXPECT_EQ(Light(1).m_light_id, id);
  EXPECT_EQ(doc_.m_light_table.At(1)->Attributes().m_uuid, objectId);
}

TEST_F(DocEditTest, ALightWithoutGeometryGetsSome) {
  ONX_Model model;
  model.m_light_table.resize(1);
  doc_.SetModel(std::move(model), "");
  ASSERT_EQ(doc_.m_light_table.At(0)->Geometry(), nullptr);
  EXPECT_TRUE(doc_.m_light_table.ModifyLight({}, 0));
  EXPECT_NE(doc_.m_light_table.At(0)->Geometry(), nullptr);
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_light_table.At(0)->Geometry(), nullptr);
}

TEST_F(DocEditTest, SwitchingALayerOffHidesAndDeselectsWhatIsOnItAndBelow) {
  for (const auto& object : doc_.Objects()) EXPECT_TRUE(object->Select());
  EXPECT_EQ(doc_.BoundingBox().m_max.x, 11);
  SetVisible(kHouse, false);
  EXPECT_FALSE(doc_.m_layer_table.IsLayerVisible(kWall));
  EXPECT_FALSE(Object(0).IsVisible());
  EXPECT_FALSE(Object(1).IsVisible());
  EXPECT_TRUE(Object(2).IsVisible());
  EXPECT_EQ(doc_.SelectedCount(), 1);
  EXPECT_TRUE(Object(2).IsSelected());
  EXPECT_EQ(doc_.BoundingBox().m_min.x, 10);
  SetVisible(kHouse, true);
  EXPECT_TRUE(Object(1).IsVisible());
  EXPECT_EQ(doc_.SelectedCount(), 1);
  EXPECT_EQ(doc_.BoundingBox().m_min.x, 0);
}

TEST_F(DocEditTest, LockingALayerDeselectsWhatIsOnIt) {
  EXPECT_TRUE(Object(2).Select());
  EXPECT_TRUE(doc_.m_light_table.At(0)->Select());
  ON_Layer garden = LayerAt(kGarden);
  garden.m_locked = true;
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(garden, kGarden));
  EXPECT_TRUE(Object(2).IsLocked());
  EXPECT_FALSE(Object(2).IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 1);
}

TEST_F(DocEditTest, ALayerThatMovesFollowsTheOneAbove) {
  SetVisible(kGarden, false);
  ON_Layer wall = LayerAt(kWall);
  wall.m_parent_id = TestId(3);
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(wall, kWall));
  EXPECT_EQ(doc_.m_layer_table.FullPath(kWall), "Garden::Wall");
  EXPECT_FALSE(Object(1).IsVisible());
  wall.m_parent_id = {};
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(wall, kWall));
  EXPECT_EQ(doc_.m_layer_table.FullPath(kWall), "Wall");
  EXPECT_TRUE(Object(1).IsVisible());
}

TEST_F(DocEditTest, ALayerMayNameItselfAsTheOneAbove) {
  ON_Layer house = LayerAt(kHouse);
  house.m_parent_id = house.m_id;
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(house, kHouse));
  EXPECT_EQ(doc_.m_layer_table.FullPath(kHouse), "House");
}

TEST_F(DocEditTest, ModifiedLayerKeepsItsId) {
  ON_Layer renamed = LayerAt(kHouse);
  renamed.m_id = TestId(77);
  renamed.m_name = "Villa";
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(renamed, kHouse));
  EXPECT_EQ(LayerAt(kHouse).m_id, TestId(1));
  EXPECT_EQ(doc_.m_layer_table.FullPath(kWall), "Villa::Wall");
  EXPECT_EQ(doc_.m_layer_table.FindLayer("villa::wall"), kWall);
}

TEST_F(DocEditTest, ModifiedAttributesKeepTheId) {
  ON_3dmObjectAttributes attributes;
  attributes.m_name = "Door";
  attributes.m_uuid = TestId(77);
  attributes.SetUserString("OrvArchive", "door.rib");
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  EXPECT_EQ(Object(0).Attributes().m_name, "Door");
  EXPECT_EQ(Object(0).Attributes().GetUserString("OrvArchive"), "door.rib");
  EXPECT_EQ(Object(0).Attributes().m_uuid, TestId(20));
  EXPECT_EQ(doc_.LookupObject(TestId(20)), &Object(0));
}

TEST_F(DocEditTest, AttributesOfAnotherDocumentsObjectAreNotModified) {
  CRhinoDoc other;
  EXPECT_FALSE(other.ModifyObjectAttributes(Object(0), {}));
  EXPECT_FALSE(other.UndoCaption());
}

TEST_F(DocEditTest, HidingOrLockingByAttributesDeselects) {
  for (const auto& object : doc_.Objects()) EXPECT_TRUE(object->Select());
  ON_3dmObjectAttributes attributes = Object(2).Attributes();
  attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_EQ(doc_.BoundingBox().m_max.x, 11);
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(2), attributes));
  EXPECT_FALSE(Object(2).IsSelected());
  EXPECT_EQ(doc_.BoundingBox().m_max.x, 6);
  attributes = Object(1).Attributes();
  attributes.m_mode = ON_ObjectMode::locked;
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(1), attributes));
  EXPECT_FALSE(Object(1).IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 1);
}

TEST_F(DocEditTest, MovingToALayerThatIsOffHidesAndDeselects) {
  SetVisible(kGarden, false);
  EXPECT_TRUE(Object(0).Select());
  EXPECT_EQ(doc_.BoundingBox().m_min.x, 0);
  ON_3dmObjectAttributes attributes = Object(0).Attributes();
  attributes.m_layer_index = kGarden;
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  EXPECT_FALSE(Object(0).IsVisible());
  EXPECT_EQ(doc_.SelectedCount(), 0);
  EXPECT_EQ(doc_.BoundingBox().m_min.x, 5);
}

TEST_F(DocEditTest, AnEditMayTakeWhatItReplaces) {
  EXPECT_TRUE(doc_.m_material_table.ModifyMaterial(*doc_.m_material_table.At(0), 0));
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(*doc_.m_layer_table.At(0), 0));
  EXPECT_TRUE(doc_.m_light_table.ModifyLight(Light(0), 0));
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), Object(0).Attributes()));
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(doc_.m_material_table.AddMaterial(*doc_.m_material_table.At(0)), i + 2);
  }
  EXPECT_EQ(doc_.m_material_table.At(41)->m_name, "brick");
}

}  // namespace
