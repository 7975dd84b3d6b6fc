#include "host/document/tables.h"

#include <gtest/gtest.h>

#include "host/document/doc.h"
#include "model_parts.h"

namespace {

CRhinoLayerTable HouseAndGarden() {
  return CRhinoLayerTable({Layer("House", TestId(1)), Layer("Wall", TestId(2), TestId(1)),
                           Layer("Window", TestId(3), TestId(2)), Layer("Garden", TestId(4)),
                           Layer("Wall", TestId(5), TestId(4))});
}

TEST(LayerTable, FindsALayerById) {
  EXPECT_EQ(HouseAndGarden().FindLayer(TestId(4)), 3);
  EXPECT_EQ(HouseAndGarden().FindLayer(TestId(99)), -1);
}

TEST(LayerTable, NilIdNamesNoLayer) {
  EXPECT_EQ(CRhinoLayerTable({Layer("A", {})}).FindLayer(ON_UUID{}), -1);
}

TEST(LayerTable, FindsALayerByNameInAnyCase) {
  EXPECT_EQ(HouseAndGarden().FindLayer("gARDEN"), 3);
  EXPECT_EQ(HouseAndGarden().FindLayer("Window"), 2);
  EXPECT_EQ(HouseAndGarden().FindLayer("Roof"), -1);
}

TEST(LayerTable, FindsALayerByFullPathInAnyCase) {
  EXPECT_EQ(HouseAndGarden().FindLayer("garden::WALL"), 4);
  EXPECT_EQ(HouseAndGarden().FindLayer("House::Wall::Window"), 2);
  EXPECT_EQ(HouseAndGarden().FindLayer("Wall::Window"), -1);
  EXPECT_EQ(HouseAndGarden().FindLayer("Garden::House"), -1);
}

TEST(LayerTable, ATopLayerComesBeforeOneBelowThatHasTheSameName) {
  const CRhinoLayerTable table(
      {Layer("A", TestId(1)), Layer("B", TestId(2), TestId(1)), Layer("B", TestId(3))});
  EXPECT_EQ(table.FindLayer("B"), 2);
}

TEST(LayerTable, TellsTheFullPath) {
  EXPECT_EQ(HouseAndGarden().FullPath(2), "House::Wall::Window");
  EXPECT_EQ(HouseAndGarden().FullPath(3), "Garden");
  EXPECT_EQ(HouseAndGarden().FullPath(-1), "");
  EXPECT_EQ(HouseAndGarden().FullPath(5), "");
}

TEST(LayerTable, ALayerIsOffWithOneAboveIt) {
  std::vector<ON_Layer> layers = HouseAndGarden().Records();
  layers[0].m_visible = false;
  const CRhinoLayerTable table(layers);
  EXPECT_FALSE(table.IsLayerVisible(0));
  EXPECT_FALSE(table.IsLayerVisible(1));
  EXPECT_FALSE(table.IsLayerVisible(2));
  EXPECT_TRUE(table.IsLayerVisible(3));
  EXPECT_TRUE(table.IsLayerVisible(4));
}

TEST(LayerTable, ALayerIsLockedWithOneAboveIt) {
  std::vector<ON_Layer> layers = HouseAndGarden().Records();
  layers[1].m_locked = true;
  const CRhinoLayerTable table(layers);
  EXPECT_FALSE(table.IsLayerLocked(0));
  EXPECT_TRUE(table.IsLayerLocked(1));
  EXPECT_TRUE(table.IsLayerLocked(2));
  EXPECT_FALSE(table.IsLayerLocked(4));
}

TEST(LayerTable, AnIndexOutsideTheTableIsOnAndUnlocked) {
  for (const int index : {-1, 5, 1000000}) {
    EXPECT_TRUE(HouseAndGarden().IsLayerVisible(index));
    EXPECT_FALSE(HouseAndGarden().IsLayerLocked(index));
  }
}

TEST(LayerTable, AParentThatIsNotThereIsNoParent) {
  const CRhinoLayerTable table({Layer("A", TestId(1), TestId(7))});
  EXPECT_EQ(table.ParentOf(0), -1);
  EXPECT_EQ(table.FullPath(0), "A");
}

TEST(LayerTable, LayersThatNameEachOtherAsParentHaveATop) {
  std::vector<ON_Layer> layers = {
      Layer("Self", TestId(1), TestId(1)), Layer("A", TestId(2), TestId(4)),
      Layer("B", TestId(3), TestId(2)), Layer("C", TestId(4), TestId(3)),
      Layer("Below", TestId(5), TestId(3))};
  layers[1].m_visible = false;
  const CRhinoLayerTable table(layers);
  EXPECT_TRUE(table.IsLayerVisible(0));
  EXPECT_FALSE(table.IsLayerVisible(1));
  EXPECT_TRUE(table.IsLayerVisible(4));
  EXPECT_EQ(table.FullPath(0), "Self");
  EXPECT_EQ(table.FullPath(1), "B::C::A");
  EXPECT_EQ(table.FullPath(4), "B::Below");
  EXPECT_EQ(table.FindLayer(table.FullPath(4)), 4);
}

TEST(LayerTable, AChainOfLayersIsWalkedOnce) {
  constexpr unsigned kDepth = 200000;
  std::vector<ON_Layer> layers;
  for (unsigned i = 0; i < kDepth; ++i) layers.push_back(Layer("L", TestId(i + 1), TestId(i + 2)));
  layers.back().m_visible = false;
  const CRhinoLayerTable table(std::move(layers));
  EXPECT_FALSE(table.IsLayerVisible(0));
  EXPECT_EQ(table.ParentOf(0), 1);
}

TEST(GroupTable, FindsAGroupByTheIndexThatItStores) {
  const CRhinoGroupTable table({{TestId(1), "Chairs", 7}, {TestId(2), "Tables", 0}});
  ASSERT_NE(table.FindGroup(7), nullptr);
  EXPECT_EQ(table.FindGroup(7)->m_name, "Chairs");
  EXPECT_EQ(table.FindGroup(0)->m_name, "Tables");
  EXPECT_EQ(table.FindGroup(1), nullptr);
}

TEST(Table, GivesNullOutsideItself) {
  const CRhinoMaterialTable table(std::vector<ON_Material>(2));
  EXPECT_EQ(table.Count(), 2);
  EXPECT_NE(table.At(1), nullptr);
  EXPECT_EQ(table.At(2), nullptr);
  EXPECT_EQ(table.At(-1), nullptr);
}

// A document of two linetypes, of which the layer has the second one.
class LinetypeTableTest : public testing::Test {
 protected:
  LinetypeTableTest() {
    model_.m_linetype_table.resize(2);
    model_.m_layer_table = {Layer("dashed", TestId(1))};
    model_.m_layer_table[0].m_linetype_index = 1;
    model_.m_object_table = {TriangleObject(TestId(2))};
  }

  int IndexOf(ON_AttributeSource source, int index) {
    ON_3dmObjectAttributes& attributes = model_.m_object_table[0].m_attributes;
    attributes.m_linetype_source = source;
    attributes.m_linetype_index = index;
    doc_.SetModel(model_, "");
    return doc_.m_linetype_table.EffectiveLinetypeIndex(*doc_.Objects()[0]);
  }

  ONX_Model model_;
  CRhinoDoc doc_;
};

TEST_F(LinetypeTableTest, AnObjectHasItsOwnLinetypeOrThatOfItsLayer) {
  EXPECT_EQ(IndexOf(ON_AttributeSource::object, 0), 0);
  EXPECT_EQ(IndexOf(ON_AttributeSource::layer, 0), 1);
  EXPECT_EQ(IndexOf(ON_AttributeSource::parent, 0), 1);
}

TEST_F(LinetypeTableTest, ALinetypeThatIsNotThereIsContinuous) {
  EXPECT_EQ(IndexOf(ON_AttributeSource::object, -1), -1);
  EXPECT_EQ(IndexOf(ON_AttributeSource::object, 2), -1);
  model_.m_layer_table[0].m_linetype_index = 5;
  EXPECT_EQ(IndexOf(ON_AttributeSource::layer, 0), -1);
  model_.m_layer_table.clear();
  EXPECT_EQ(IndexOf(ON_AttributeSource::layer, 0), -1);
}

TEST_F(LinetypeTableTest, TheScaleIsTheDocuments) {
  model_.m_settings.m_linetype_scale = 2.5;
  doc_.SetModel(model_, "");
  EXPECT_EQ(doc_.m_linetype_table.LinetypeScale(), 2.5);
  EXPECT_EQ(CRhinoLinetypeTable({}).LinetypeScale(), 1);
}

TEST_F(LinetypeTableTest, AnImportKeepsTheScale) {
  model_.m_settings.m_linetype_scale = 2.5;
  doc_.SetModel(model_, "");
  doc_.ImportModel(ONX_Model(model_));
  EXPECT_EQ(doc_.m_linetype_table.Count(), 4);
  EXPECT_EQ(doc_.m_linetype_table.LinetypeScale(), 2.5);
}

}  // namespace
