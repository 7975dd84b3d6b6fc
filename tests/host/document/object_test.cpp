#include "host/document/object.h"

#include <gtest/gtest.h>

#include "host/document/doc.h"
#include "host/geometry/on_line_curve.h"
#include "model_parts.h"

namespace {

constexpr int kOn = 0;
constexpr int kOff = 1;
constexpr int kBelowOff = 2;
constexpr int kLocked = 3;

// A document with one object for each attributes, on layers that are on, off, below the one that is
// off, and locked.
class ObjectTest : public testing::Test {
 protected:
  CRhinoObject& Add(int layer, ON_ObjectMode mode = ON_ObjectMode::normal, bool visible = true) {
    ONX_Model model;
    model.m_layer_table = {Layer("On", TestId(1)), Layer("Off", TestId(2)),
                           Layer("Below off", TestId(3), TestId(2)), Layer("Locked", TestId(4))};
    model.m_layer_table[1].m_visible = false;
    model.m_layer_table[3].m_locked = true;
    ONX_ModelObject object = TriangleObject(TestId(10));
    object.m_attributes.m_layer_index = layer;
    object.m_attributes.m_mode = mode;
    object.m_attributes.m_visible = visible;
    model.m_object_table.push_back(std::move(object));
    doc_.SetModel(std::move(model), "");
    return *doc_.Objects().front();
  }

  CRhinoDoc doc_;
};

TEST_F(ObjectTest, IsVisibleOnALayerThatIsOn) {
  EXPECT_TRUE(Add(kOn).IsVisible());
}

TEST_F(ObjectTest, IsNotVisibleOnALayerThatIsOff) {
  EXPECT_FALSE(Add(kOff).IsVisible());
  EXPECT_FALSE(Add(kBelowOff).IsVisible());
}

TEST_F(ObjectTest, IsVisibleOnALayerThatIsNotInTheTable) {
  EXPECT_TRUE(Add(-1).IsVisible());
  EXPECT_TRUE(Add(4).IsVisible());
}

TEST_F(ObjectTest, IsVisibleOnALockedLayerOrWhenLocked) {
  EXPECT_TRUE(Add(kLocked).IsVisible());
  EXPECT_TRUE(Add(kOn, ON_ObjectMode::locked).IsVisible());
}

TEST_F(ObjectTest, IsNotVisibleWhenHiddenByModeOrFlag) {
  EXPECT_FALSE(Add(kOn, ON_ObjectMode::hidden).IsVisible());
  EXPECT_FALSE(Add(kOn, ON_ObjectMode::normal, false).IsVisible());
  EXPECT_TRUE(Add(kOn, ON_ObjectMode::normal, false).IsHidden());
}

TEST_F(ObjectTest, AMemberOfABlockIsNotVisible) {
  const CRhinoObject& member = Add(kOn, ON_ObjectMode::idef_member);
  EXPECT_TRUE(member.IsInstanceDefinitionGeometry());
  EXPECT_FALSE(member.IsVisible());
  EXPECT_FALSE(member.IsHidden());
}

TEST_F(ObjectTest, AnObjectThatABlockListsIsAMember) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(2))};
  model.m_idef_table.resize(1);
  model.m_idef_table[0].m_object_ids = {TestId(2), TestId(77)};
  doc_.SetModel(std::move(model), "");
  EXPECT_TRUE(doc_.Objects()[0]->IsVisible());
  EXPECT_FALSE(doc_.Objects()[1]->IsVisible());
  EXPECT_TRUE(doc_.Objects()[1]->IsInstanceDefinitionGeometry());
}

TEST_F(ObjectTest, IsLockedByItsModeOrItsLayer) {
  EXPECT_FALSE(Add(kOn).IsLocked());
  EXPECT_TRUE(Add(kLocked).IsLocked());
  EXPECT_TRUE(Add(kOn, ON_ObjectMode::locked).IsLocked());
}

TEST_F(ObjectTest, SelectingTellsWhetherTheSelectionChanged) {
  CRhinoObject& object = Add(kOn);
  EXPECT_TRUE(object.Select());
  EXPECT_FALSE(object.Select());
  EXPECT_TRUE(object.IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 1);
  EXPECT_TRUE(object.Select(false));
  EXPECT_FALSE(object.Select(false));
  EXPECT_EQ(doc_.SelectedCount(), 0);
}

TEST_F(ObjectTest, HiddenAndLockedObjectsAndMembersAreNotSelected) {
  EXPECT_FALSE(Add(kOff).Select());
  EXPECT_FALSE(Add(kLocked).Select());
  EXPECT_FALSE(Add(kOn, ON_ObjectMode::hidden).Select());
  EXPECT_FALSE(Add(kOn, ON_ObjectMode::locked).Select());
  EXPECT_FALSE(Add(kOn, ON_ObjectMode::idef_member).Select());
  EXPECT_EQ(doc_.SelectedCount(), 0);
}

TEST_F(ObjectTest, HidingDeselects) {
  CRhinoObject& object = Add(kOn);
  EXPECT_TRUE(object.Select());
  EXPECT_TRUE(object.Hide());
  EXPECT_FALSE(object.Hide());
  EXPECT_FALSE(object.IsVisible());
  EXPECT_FALSE(object.IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 0);
}

TEST_F(ObjectTest, ShowingBringsBackWhatModeOrFlagHide) {
  EXPECT_TRUE(Add(kOn, ON_ObjectMode::hidden).Hide(false));
  EXPECT_TRUE(doc_.Objects().front()->IsVisible());
  EXPECT_TRUE(Add(kOn, ON_ObjectMode::normal, false).Hide(false));
  EXPECT_TRUE(doc_.Objects().front()->IsVisible());
  EXPECT_FALSE(Add(kOn).Hide(false));
}

TEST_F(ObjectTest, ALockedObjectStaysLockedAndVisible) {
  CRhinoObject& object = Add(kOn, ON_ObjectMode::locked);
  EXPECT_FALSE(object.Hide());
  EXPECT_TRUE(object.IsVisible());
  EXPECT_TRUE(object.IsLocked());
}

TEST_F(ObjectTest, AMemberOfABlockIsNeitherHiddenNorShown) {
  CRhinoObject& member = Add(kOn, ON_ObjectMode::idef_member);
  EXPECT_FALSE(member.Hide());
  EXPECT_FALSE(member.Hide(false));
  EXPECT_TRUE(member.IsInstanceDefinitionGeometry());
}

TEST_F(ObjectTest, SaysWhatItIs) {
  EXPECT_EQ(Add(kOn).ShortDescription(), "mesh");
}

TEST_F(ObjectTest, ACurveSaysOfWhichClassItIs) {
  ONX_Model model;
  model.m_object_table.resize(2);
  for (ONX_ModelObject& object : model.m_object_table) {
    object.m_geometry = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0});
  }
  model.m_object_table[0].m_class_id = "4ed7d4db-e947-11d3-bfe5-0010830122f0"_uuid;
  doc_.SetModel(std::move(model), "");
  EXPECT_EQ(doc_.Objects()[0]->ShortDescription(), "line");
  EXPECT_EQ(doc_.Objects()[0]->ObjectType(), ON_ObjectType::curve);
  // One that no file gave.
  EXPECT_EQ(doc_.Objects()[1]->ShortDescription(), "curve");
}

TEST_F(ObjectTest, WithoutGeometrySaysWhatItsClassIs) {
  ONX_Model model;
  model.m_object_table.resize(3);
  model.m_object_table[0].m_class_id = "4ed7d4dd-e947-11d3-bfe5-0010830122f0"_uuid;
  model.m_object_table[0].m_object_type = static_cast<unsigned>(ON_ObjectType::curve);
  model.m_object_table[1].m_class_id = TestId(5);
  model.m_object_table[2].m_object_type = static_cast<unsigned>(ON_ObjectType::text_dot);
  doc_.SetModel(std::move(model), "");
  EXPECT_EQ(doc_.Objects()[0]->ShortDescription(), "NURBS curve");
  EXPECT_EQ(doc_.Objects()[0]->ObjectType(), ON_ObjectType::curve);
  EXPECT_EQ(doc_.Objects()[0]->Geometry(), nullptr);
  EXPECT_EQ(doc_.Objects()[1]->ShortDescription(), "class " + TestId(5).ToString());
  EXPECT_EQ(doc_.Objects()[2]->ShortDescription(), "text dot");
}

TEST_F(ObjectTest, GeometryDecidesOnTheTypeAndNotWhatTheFileHints) {
  ONX_Model model;
  model.m_object_table.push_back(TriangleObject(TestId(1)));
  model.m_object_table[0].m_object_type = static_cast<unsigned>(ON_ObjectType::point);
  doc_.SetModel(std::move(model), "");
  EXPECT_EQ(doc_.Objects()[0]->ObjectType(), ON_ObjectType::mesh);
}

}  // namespace
