#include <gtest/gtest.h>

#include "host/document/doc.h"
#include "host/document/instance_object.h"
#include "model_parts.h"
#include "support/blocks.h"

namespace {

ON_Material Material(std::string_view name, unsigned id) {
  ON_Material material;
  material.m_name = name;
  material.m_id = TestId(id);
  return material;
}

class ImportTest : public testing::Test {
 protected:
  CRhinoObject& Last() { return *doc_.Objects().back(); }
  std::string LayerPath(const CRhinoObject& object) {
    return doc_.m_layer_table.FullPath(object.Attributes().m_layer_index);
  }

  CRhinoDoc doc_;
};

TEST_F(ImportTest, LayersAreMatchedByTheirFullPath) {
  ONX_Model open;
  open.m_layer_table = {Layer("House", TestId(1)), Layer("Wall", TestId(2), TestId(1)),
                        Layer("Garden", TestId(3))};
  doc_.SetModel(std::move(open), "");

  ONX_Model added;
  added.m_layer_table = {Layer("WALL", TestId(11), TestId(13)), Layer("Wall", TestId(12)),
                         Layer("house", TestId(13)), Layer("Wall", TestId(14), TestId(15)),
                         Layer("Garden", TestId(15))};
  for (int i = 0; i < 5; ++i) {
    added.m_object_table.push_back(TriangleObject(TestId(100 + static_cast<unsigned>(i))));
    added.m_object_table.back().m_attributes.m_layer_index = i;
  }
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(doc_.m_layer_table.Count(), 5);
  const char* const paths[] = {"House::Wall", "Wall", "House", "Garden::Wall", "Garden"};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(LayerPath(*doc_.Objects()[i]), paths[i]);
}

TEST_F(ImportTest, AMatchedLayerKeepsItsOwnState) {
  ONX_Model open;
  open.m_layer_table = {Layer("A", TestId(1))};
  open.m_layer_table[0].m_visible = false;
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_layer_table = {Layer("A", TestId(2))};
  added.m_object_table = {TriangleObject(TestId(5))};
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(doc_.m_layer_table.At(0)->m_id, TestId(1));
  EXPECT_FALSE(Last().IsVisible());
}

TEST_F(ImportTest, ALayerIdThatIsTakenIsReplacedAndItsChildrenFollow) {
  ONX_Model open;
  open.m_layer_table = {Layer("A", TestId(1))};
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_layer_table = {Layer("B", TestId(1)), Layer("C", TestId(2), TestId(1))};
  added.m_layer_table[0].m_visible = false;
  added.m_object_table = {TriangleObject(TestId(5))};
  added.m_object_table[0].m_attributes.m_layer_index = 1;
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(LayerPath(Last()), "B::C");
  EXPECT_NE(doc_.m_layer_table.At(1)->m_id, TestId(1));
  EXPECT_FALSE(Last().IsVisible());
}

TEST_F(ImportTest, LayersInACircleAreImported) {
  ONX_Model added;
  added.m_layer_table = {Layer("A", TestId(1), TestId(2)), Layer("B", TestId(2), TestId(1))};
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(doc_.m_layer_table.Count(), 2);
}

TEST_F(ImportTest, ManyLayersAreMatchedQuickly) {
  std::vector<ON_Layer> layers;
  for (unsigned i = 0; i < 50000; ++i) {
    layers.push_back(Layer("Layer " + std::to_string(i), TestId(i + 1)));
  }
  ONX_Model open;
  open.m_layer_table = layers;
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_layer_table = std::move(layers);
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(doc_.m_layer_table.Count(), 50000);
}

TEST_F(ImportTest, MaterialsAndLinetypesAreAppendedAndNamedAnew) {
  ONX_Model open;
  open.m_material_table = {Material("open", 1)};
  open.m_linetype_table.resize(3);
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_material_table = {Material("first", 1), Material("second", 3)};
  added.m_linetype_table.resize(1);
  added.m_layer_table = {Layer("L", TestId(9))};
  added.m_layer_table[0].m_render_material_index = 1;
  added.m_layer_table[0].m_linetype_index = 0;
  added.m_object_table = {TriangleObject(TestId(5)), TriangleObject(TestId(6))};
  added.m_object_table[0].m_attributes.m_material_index = 0;
  added.m_object_table[0].m_attributes.m_linetype_index = 0;
  added.m_object_table[1].m_attributes.m_material_index = 2;
  added.m_light_table = {PointLight(TestId(7))};
  added.m_light_table[0].m_attributes.m_material_index = 1;
  doc_.ImportModel(std::move(added));

  ASSERT_EQ(doc_.m_material_table.Count(), 3);
  EXPECT_EQ(doc_.m_material_table.At(1)->m_name, "first");
  EXPECT_NE(doc_.m_material_table.At(1)->m_id, TestId(1));
  EXPECT_EQ(doc_.m_material_table.At(2)->m_id, TestId(3));
  EXPECT_EQ(doc_.Objects()[0]->Attributes().m_material_index, 1);
  EXPECT_EQ(doc_.Objects()[0]->Attributes().m_linetype_index, 3);
  EXPECT_EQ(doc_.Objects()[1]->Attributes().m_material_index, -1);
  EXPECT_EQ(doc_.Lights()[0]->Attributes().m_material_index, 2);
  EXPECT_EQ(doc_.m_layer_table.At(0)->m_render_material_index, 2);
  EXPECT_EQ(doc_.m_layer_table.At(0)->m_linetype_index, 3);
}

TEST_F(ImportTest, GroupsStayApartFromTheOpenOnes) {
  ONX_Model open;
  open.m_group_table = {{TestId(1), "open", 0}, {TestId(2), "open too", 2}};
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_group_table = {{TestId(1), "added", 0}, {TestId(3), "added too", 5}};
  added.m_object_table = {TriangleObject(TestId(5))};
  added.m_object_table[0].m_attributes.m_group = {5, 99, 0};
  doc_.ImportModel(std::move(added));
  ASSERT_EQ(doc_.m_group_table.Count(), 4);
  ASSERT_EQ(Last().Attributes().GroupCount(), 2);
  const std::vector<int>& groups = Last().Attributes().GroupList();
  EXPECT_EQ(doc_.m_group_table.FindGroup(groups[0])->m_name, "added too");
  EXPECT_EQ(doc_.m_group_table.FindGroup(groups[1])->m_name, "added");
  EXPECT_EQ(doc_.m_group_table.FindGroup(2)->m_name, "open too");
}

TEST_F(ImportTest, ObjectsKeepTheirIdsUnlessTaken) {
  ONX_Model open;
  open.m_object_table = {TriangleObject(TestId(1))};
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(2))};
  added.m_object_table[1].m_span = {50, 60};
  doc_.ImportModel(std::move(added));
  ASSERT_EQ(doc_.Objects().size(), 3u);
  EXPECT_EQ(doc_.LookupObject(TestId(1)), doc_.Objects()[0].get());
  EXPECT_NE(doc_.Objects()[1]->Attributes().m_uuid, TestId(1));
  EXPECT_EQ(doc_.LookupObject(TestId(2)), doc_.Objects()[2].get());
  EXPECT_EQ(Last().FileSpan().length, 0u);
}

TEST_F(ImportTest, BlocksFollowTheirMembers) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(2))};
  model.m_idef_table.resize(1);
  model.m_idef_table[0].m_id = TestId(50);
  model.m_idef_table[0].m_object_ids = {TestId(2)};
  ONX_Model again = model;
  doc_.SetModel(std::move(model), "");
  doc_.ImportModel(std::move(again));
  ASSERT_EQ(doc_.m_instance_definition_table.Count(), 2);
  const ON_InstanceDefinition& added = *doc_.m_instance_definition_table.At(1);
  EXPECT_NE(added.m_id, TestId(50));
  EXPECT_EQ(doc_.LookupObject(added.m_object_ids.at(0)), doc_.Objects()[3].get());
  EXPECT_TRUE(doc_.Objects()[2]->IsVisible());
  EXPECT_FALSE(doc_.Objects()[3]->IsVisible());
}

TEST_F(ImportTest, AnOpenObjectDoesNotBecomeAMemberOfAnAddedBlock) {
  ONX_Model open;
  open.m_object_table = {TriangleObject(TestId(1))};
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_object_table = {TriangleObject(TestId(1))};
  added.m_idef_table.resize(1);
  added.m_idef_table[0].m_object_ids = {TestId(1)};
  doc_.ImportModel(std::move(added));
  EXPECT_TRUE(doc_.Objects()[0]->IsVisible());
  EXPECT_FALSE(doc_.Objects()[1]->IsVisible());
}

TEST_F(ImportTest, PlacementsKeepTheirOwnBlock) {
  ONX_Model model;
  const ON_UUID inner = AddBlock(model, "Leg", {TriangleObject({})});
  const ON_UUID outer = AddBlock(model, "Table", {PlacementOf(inner)});
  model.m_object_table.push_back(PlacementOf(outer));
  ONX_Model again = model;
  doc_.SetModel(std::move(model), "");
  doc_.ImportModel(std::move(again));
  ASSERT_EQ(doc_.Objects().size(), 6u);
  std::vector<CRhinoInstanceObjectPiece> pieces;
  std::string problem;
  for (const std::size_t i : {2, 5}) {
    const auto* placement = CRhinoInstanceObject::Cast(doc_.Objects()[i].get());
    ASSERT_NE(placement, nullptr);
    EXPECT_TRUE(placement->Explode(pieces, problem));
  }
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[0].m_object, doc_.Objects()[0].get());
  EXPECT_EQ(pieces[1].m_object, doc_.Objects()[3].get());
}

TEST_F(ImportTest, APlacementWithoutItsBlockDoesNotShowABlockOfTheOpenDocument) {
  ONX_Model open;
  const ON_UUID block = AddBlock(open, "Table", {TriangleObject({})});
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_object_table = {PlacementOf(block)};
  doc_.ImportModel(std::move(added));
  const auto* placement = CRhinoInstanceObject::Cast(&Last());
  ASSERT_NE(placement, nullptr);
  EXPECT_EQ(placement->InstanceDefinition(), nullptr);
}

TEST_F(ImportTest, SettingsStringsViewsSelectionAndPathStay) {
  ONX_Model open;
  open.m_3dm_file_version = 50;
  open.m_settings.m_model_units.m_unit_system = ON_UnitSystem::meters;
  open.m_settings.m_views = {View("Mine", ON_Viewport::View::parallel)};
  open.m_document_user_strings.SetUserString("Key", "open");
  open.m_object_table = {TriangleObject(TestId(1))};
  doc_.SetModel(std::move(open), "open.3dm");
  doc_.Objects()[0]->Select();
  CRhinoView* const view = doc_.ActiveView();

  ONX_Model added;
  added.m_3dm_file_version = 70;
  added.m_settings.m_views = {View("Theirs", ON_Viewport::View::parallel)};
  added.m_document_user_strings.SetUserString("Key", "added");
  added.m_userdata_table.resize(1);
  added.m_object_table = {TriangleObject(TestId(2))};
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(doc_.PathName(), "open.3dm");
  EXPECT_EQ(doc_.FileVersion(), 50);
  EXPECT_EQ(doc_.ModelUnits(), ON_UnitSystem::meters);
  EXPECT_EQ(doc_.m_user_strings.GetUserString("Key"), "open");
  EXPECT_TRUE(doc_.PlugInData().empty());
  EXPECT_EQ(doc_.ActiveView(), view);
  EXPECT_EQ(view->Viewport().Name(), "Mine");
  EXPECT_EQ(doc_.SelectedCount(), 1);
}

TEST_F(ImportTest, CountsOfUnreadRecordsAddUp) {
  ONX_Model open;
  open.m_unread = {{"brep", 2}};
  doc_.SetModel(std::move(open), "");
  ONX_Model added;
  added.m_unread = {{"hatch", 1}, {"brep", 3}};
  added.m_problems = {"bad"};
  doc_.ImportModel(std::move(added));
  ASSERT_EQ(doc_.UnreadKinds().size(), 2u);
  EXPECT_EQ(doc_.UnreadKinds()[0].m_count, 5);
  EXPECT_EQ(doc_.UnreadKinds()[1].m_name, "hatch");
  EXPECT_EQ(doc_.Problems().size(), 1u);
}

}  // namespace
