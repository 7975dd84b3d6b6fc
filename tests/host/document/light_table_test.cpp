#include "edited_document.h"
#include "host/document/object_iterator.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class LightTableTest : public EditedDocument {
 protected:
  // The positions of the lights that an iterator shows.
  std::vector<int> Shown() {
    std::vector<int> positions;
    CRhinoObjectIterator it(doc_, 15);
    it.IncludeLights();
    for (const CRhinoObject* object = it.First(); object != nullptr; object = it.Next()) {
      const ON_Light* light = ON_Light::Cast(object->Geometry());
      if (light != nullptr) positions.push_back(light->LightIndex());
    }
    return positions;
  }
  int Add(const std::string& name, const ON_UUID& id = {}) {
    ON_3dmObjectAttributes attributes;
    attributes.m_name = name;
    attributes.m_uuid = id;
    ON_Light light;
    light.m_style = ON_LightStyle::world_spot;
    return doc_.m_light_table.AddLight(light, attributes);
  }
};

TEST_F(LightTableTest, AnAddedLightIsAnObjectOfTheDocument) {
  const unsigned before = doc_.ContentNumber();
  EXPECT_EQ(Add("Key", TestId(40)), 2);
  EXPECT_NE(doc_.ContentNumber(), before);
  CRhinoObject* light = doc_.m_light_table.At(2);
  ASSERT_NE(light, nullptr);
  EXPECT_EQ(doc_.LookupObject(TestId(40)), light);
  EXPECT_EQ(doc_.LookupObject(light->RuntimeSerialNumber()), light);
  EXPECT_FALSE(light->IsDeleted());
  EXPECT_EQ(light->Attributes().m_name, "Key");
  EXPECT_EQ(light->ObjectType(), ON_ObjectType::light);
  EXPECT_EQ(light->ShortDescription(), "light");
  EXPECT_EQ(light->FileSpan().length, 0u);
  EXPECT_EQ(Light(2).LightIndex(), 2);
  EXPECT_EQ(Light(2).Style(), ON_LightStyle::world_spot);
  EXPECT_EQ(Light(2).m_light_id, TestId(40));
  EXPECT_TRUE(light->IsVisible());
  EXPECT_FALSE(light->IsSelected());
  EXPECT_THAT(Shown(), ElementsAre(0, 1, 2));
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("Light change")));
}

TEST_F(LightTableTest, AnIdThatIsTakenIsReplaced) {
  Add("One", TestId(30));
  Add("Two");
  const ON_UUID one = doc_.m_light_table.At(2)->Attributes().m_uuid;
  const ON_UUID two = doc_.m_light_table.At(3)->Attributes().m_uuid;
  EXPECT_NE(one, TestId(30));
  EXPECT_FALSE(one.IsNil());
  EXPECT_FALSE(two.IsNil());
  EXPECT_NE(one, two);
  EXPECT_EQ(Light(2).m_light_id, one);
}

TEST_F(LightTableTest, ADeletedLightIsPassedOver) {
  CRhinoObject& light = *doc_.m_light_table.At(0);
  const unsigned number = light.RuntimeSerialNumber();
  const unsigned before = doc_.ContentNumber();
  EXPECT_TRUE(light.Select());
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(0));
  EXPECT_NE(doc_.ContentNumber(), before);
  EXPECT_TRUE(light.IsDeleted());
  EXPECT_FALSE(light.IsVisible());
  EXPECT_FALSE(light.IsSelected());
  EXPECT_FALSE(light.Select());
  EXPECT_EQ(doc_.SelectedCount(), 0);
  EXPECT_EQ(doc_.m_light_table.At(0), nullptr);
  EXPECT_EQ(doc_.LookupObject(TestId(30)), nullptr);
  EXPECT_EQ(doc_.LookupObject(number), nullptr);
  EXPECT_THAT(Shown(), ElementsAre(1));
}

TEST_F(LightTableTest, TheOtherLightsKeepTheirPositions) {
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(0));
  EXPECT_EQ(doc_.m_light_table.Count(), 2);
  EXPECT_EQ(doc_.m_light_table.At(1)->Attributes().m_uuid, TestId(31));
  EXPECT_EQ(Add("Key"), 2);
}

TEST_F(LightTableTest, WhatIsNotThereCannotBeEdited) {
  CRhinoObject& light = *doc_.m_light_table.At(0);
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(0));
  EXPECT_FALSE(doc_.m_light_table.DeleteLight(0));
  EXPECT_FALSE(doc_.m_light_table.DeleteLight(2));
  EXPECT_FALSE(doc_.m_light_table.DeleteLight(-1));
  EXPECT_FALSE(doc_.m_light_table.ModifyLight({}, 0));
  EXPECT_FALSE(doc_.ModifyObjectAttributes(light, {}));
  EXPECT_FALSE(light.Hide());
}

TEST_F(LightTableTest, ALightOfABlockIsNotDeleted) {
  ONX_Model model = Model();
  model.m_light_table[0].m_attributes.m_mode = ON_ObjectMode::idef_member;
  doc_.SetModel(std::move(model), "");
  EXPECT_FALSE(doc_.m_light_table.DeleteLight(0));
  EXPECT_NE(doc_.m_light_table.At(0), nullptr);
}

TEST_F(LightTableTest, AddingIsUndoneAndRedone) {
  Add("Key", TestId(40));
  const CRhinoObject* light = doc_.m_light_table.At(2);
  const unsigned number = light->RuntimeSerialNumber();
  ASSERT_TRUE(doc_.Undo());
  EXPECT_TRUE(light->IsDeleted());
  EXPECT_EQ(doc_.m_light_table.At(2), nullptr);
  EXPECT_THAT(Shown(), ElementsAre(0, 1));
  ASSERT_TRUE(doc_.Redo());
  EXPECT_EQ(doc_.m_light_table.At(2), light);
  EXPECT_EQ(light->RuntimeSerialNumber(), number);
  EXPECT_EQ(light->Attributes().m_name, "Key");
  EXPECT_EQ(Light(2).Style(), ON_LightStyle::world_spot);
}

TEST_F(LightTableTest, DeletingIsUndoneAndRedone) {
  SetIntensity(1, 0.5);
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(1));
  ASSERT_TRUE(doc_.Undo());
  EXPECT_EQ(Light(1).m_intensity, 0.5);
  EXPECT_EQ(doc_.LookupObject(TestId(31)), doc_.m_light_table.At(1));
  ASSERT_TRUE(doc_.Redo());
  EXPECT_EQ(doc_.m_light_table.At(1), nullptr);
  ASSERT_TRUE(doc_.Undo());
  ASSERT_TRUE(doc_.Undo());
  EXPECT_EQ(Light(1).m_intensity, 1);
}

TEST_F(LightTableTest, OneRecordMayHoldAllOfALightsLife) {
  const unsigned record = doc_.BeginUndoRecord("Light");
  Add("Key");
  SetIntensity(2, 0.5);
  Rename(*doc_.m_light_table.At(2), "Fill");
  SetIntensity(0, 0.25);
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(0));
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(doc_.Undo());
    EXPECT_THAT(Shown(), ElementsAre(0, 1));
    EXPECT_EQ(Light(0).m_intensity, 1);
    ASSERT_TRUE(doc_.Redo());
    EXPECT_THAT(Shown(), ElementsAre(1, 2));
    EXPECT_EQ(Light(2).m_intensity, 0.5);
    EXPECT_EQ(doc_.m_light_table.At(2)->Attributes().m_name, "Fill");
  }
}

TEST_F(LightTableTest, AnImportFindsTheIdOfADeletedLightTaken) {
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(0));
  ONX_Model model;
  model.m_light_table = {PointLight(TestId(30))};
  doc_.ImportModel(std::move(model));
  EXPECT_EQ(doc_.m_light_table.Count(), 3);
  EXPECT_NE(doc_.m_light_table.At(2)->Attributes().m_uuid, TestId(30));
  EXPECT_EQ(Light(2).LightIndex(), 2);
}

}  // namespace
