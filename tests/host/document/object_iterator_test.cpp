#include "host/document/object_iterator.h"

#include <gtest/gtest.h>

#include "host/document/doc.h"
#include "model_parts.h"

namespace {

ONX_ModelObject ObjectInMode(unsigned number, ON_ObjectMode mode) {
  ONX_ModelObject object = TriangleObject(TestId(number));
  object.m_attributes.m_mode = mode;
  object.m_attributes.m_name = std::to_string(number);
  return object;
}

ONX_Model ModelOfEveryMode() {
  ONX_Model model;
  model.m_layer_table = {Layer("On", TestId(100)), Layer("Off", TestId(101))};
  model.m_layer_table[1].m_visible = false;
  model.m_object_table = {
      ObjectInMode(1, ON_ObjectMode::normal), ObjectInMode(2, ON_ObjectMode::locked),
      ObjectInMode(3, ON_ObjectMode::hidden), ObjectInMode(4, ON_ObjectMode::idef_member),
      ObjectInMode(5, ON_ObjectMode::normal)};
  model.m_object_table[4].m_attributes.m_layer_index = 1;
  model.m_light_table = {PointLight(TestId(6))};
  model.m_light_table[0].m_attributes.m_name = "light";
  return model;
}

std::string Names(CRhinoObjectIterator& iterator) {
  std::string names;
  for (const CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    names += (names.empty() ? "" : " ") + object->Attributes().m_name;
  }
  return names;
}

class ObjectIteratorTest : public testing::Test {
 protected:
  ObjectIteratorTest() { doc_.SetModel(ModelOfEveryMode(), ""); }

  CRhinoDoc doc_;
};

TEST_F(ObjectIteratorTest, WalksNormalLockedAndHiddenObjectsInTheOrderOfTheDocument) {
  CRhinoObjectIterator iterator(doc_);
  EXPECT_EQ(Names(iterator), "1 2 3 5");
}

TEST_F(ObjectIteratorTest, LightsComeLast) {
  CRhinoObjectIterator iterator(doc_);
  iterator.IncludeLights();
  EXPECT_EQ(Names(iterator), "1 2 3 5 light");
}

TEST_F(ObjectIteratorTest, FirstStartsTheWalkAnew) {
  CRhinoObjectIterator iterator(doc_);
  EXPECT_EQ(Names(iterator), Names(iterator));
  EXPECT_EQ(iterator.Next(), nullptr);
}

TEST_F(ObjectIteratorTest, NextAloneBeginsAtTheFirst) {
  CRhinoObjectIterator iterator(doc_);
  EXPECT_EQ(iterator.Next(), doc_.Objects().front().get());
}

TEST_F(ObjectIteratorTest, TheMaskChoosesStates) {
  CRhinoObjectIterator normal(doc_, CRhinoObjectIterator::normal_objects);
  EXPECT_EQ(Names(normal), "1");
  CRhinoObjectIterator locked(doc_, CRhinoObjectIterator::locked_objects);
  EXPECT_EQ(Names(locked), "2");
  CRhinoObjectIterator hidden(doc_, CRhinoObjectIterator::hidden_objects);
  EXPECT_EQ(Names(hidden), "3 5");
  CRhinoObjectIterator members(doc_, CRhinoObjectIterator::idef_objects);
  EXPECT_EQ(Names(members), "4");
}

TEST_F(ObjectIteratorTest, OtherCategoriesHoldNothing) {
  CRhinoObjectIterator iterator(doc_, 7, 2);
  EXPECT_EQ(Names(iterator), "");
}

TEST_F(ObjectIteratorTest, StartsOverWhenObjectsCome) {
  CRhinoObjectIterator iterator(doc_);
  iterator.First();
  iterator.Next();
  ONX_Model added;
  added.m_object_table = {TriangleObject(TestId(50))};
  doc_.ImportModel(std::move(added));
  EXPECT_EQ(iterator.Next(), doc_.Objects().front().get());
}

TEST_F(ObjectIteratorTest, HidingOnTheWayDoesNotDisturbTheWalk) {
  CRhinoObjectIterator iterator(doc_);
  std::string names;
  for (CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    names += object->Attributes().m_name;
    object->Hide();
  }
  EXPECT_EQ(names, "1235");
}

}  // namespace
