#include "export/object_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export_fixture.h"

namespace {

using testing::ElementsAre;

// A document of a visible object "mesh", a hidden object "hidden", an object "off" on a layer that
// is off, a light "light" and a hidden light "hidden light".
class ObjectListTest : public testing::Test {
 protected:
  ObjectListTest() {
    ONX_Model model;
    model.m_layer_table.resize(2);
    model.m_layer_table[1].m_visible = false;
    model.m_object_table = {ObjectOf(SquareMesh()), HiddenObjectOf(SquareMesh()),
                            ObjectOf(SquareMesh()), ObjectOf(SquareMesh())};
    model.m_object_table[0].m_attributes.m_name = "mesh";
    model.m_object_table[1].m_attributes.m_name = "hidden";
    model.m_object_table[2].m_attributes.m_name = "off";
    model.m_object_table[2].m_attributes.m_layer_index = 1;
    model.m_object_table[3].m_attributes.m_name = "locked";
    model.m_object_table[3].m_attributes.m_mode = ON_ObjectMode::locked;
    model.m_light_table = {PointLight(), PointLight()};
    model.m_light_table[0].m_attributes.m_name = "light";
    model.m_light_table[1].m_attributes.m_name = "hidden light";
    model.m_light_table[1].m_attributes.m_mode = ON_ObjectMode::hidden;
    doc_.SetModel(std::move(model), "");
  }

  std::vector<std::string> Names(bool selectedOnly) {
    std::vector<std::string> names;
    for (const CRhinoObject* object : orv::GatherObjects(doc_, selectedOnly, settings_)) {
      names.push_back(object->Attributes().m_name);
    }
    return names;
  }

  std::vector<std::string> BakeNames(bool selectedOnly) {
    std::vector<std::string> names;
    for (const CRhinoObject* object : orv::GatherBakeObjects(doc_, selectedOnly)) {
      names.push_back(object->Attributes().m_name);
    }
    return names;
  }

  CRhinoDoc doc_;
  orv::RenderSettings settings_;
};

TEST_F(ObjectListTest, HoldsVisibleObjectsAndEveryLight) {
  EXPECT_THAT(Names(false), ElementsAre("mesh", "locked", "light", "hidden light"));
}

TEST_F(ObjectListTest, OfASelectionHoldsTheSelectedObjectsAndEveryLight) {
  EXPECT_THAT(Names(true), ElementsAre("light", "hidden light"));
  ASSERT_TRUE(doc_.Objects()[0]->Select());
  EXPECT_THAT(Names(true), ElementsAre("mesh", "light", "hidden light"));
}

TEST_F(ObjectListTest, OfASelectionInABakePassHoldsTheOtherVisibleObjects) {
  settings_.BakeEnable = true;
  EXPECT_THAT(Names(true), ElementsAre("mesh", "locked", "light", "hidden light"));
}

TEST_F(ObjectListTest, MapsAreBakedOfHiddenObjectsToo) {
  EXPECT_THAT(BakeNames(false),
              ElementsAre("mesh", "hidden", "off", "locked", "light", "hidden light"));
}

TEST_F(ObjectListTest, MapsOfASelectionAreBakedOfTheSelectedObjectsAndEveryLight) {
  ASSERT_TRUE(doc_.Objects()[0]->Select());
  EXPECT_THAT(BakeNames(true), ElementsAre("mesh", "light", "hidden light"));
}

TEST_F(ObjectListTest, LeavesOutMembersOfBlockDefinitions) {
  ONX_Model model;
  model.m_object_table = {ObjectOf(SquareMesh())};
  model.m_object_table[0].m_attributes.m_mode = ON_ObjectMode::idef_member;
  doc_.SetModel(std::move(model), "");
  EXPECT_THAT(Names(false), ElementsAre());
}

}  // namespace
