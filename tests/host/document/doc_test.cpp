#include "host/document/doc.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstring>
#include <set>

#include "host/document/object_iterator.h"
#include "host/geometry/on_mesh.h"
#include "model_parts.h"

namespace {

TEST(Document, ANewOneIsEmptyAndHasViews) {
  const CRhinoDoc doc;
  EXPECT_EQ(doc.PathName(), "");
  EXPECT_TRUE(doc.Objects().empty());
  EXPECT_FALSE(doc.BoundingBox().IsValid());
  ASSERT_NE(doc.ActiveView(), nullptr);
  EXPECT_EQ(doc.ActiveView()->Viewport().Name(), "Perspective");
}

TEST(Document, HoldsWhatTheModelHolds) {
  ONX_Model model;
  model.m_3dm_file_version = 70;
  model.m_properties.m_notes = "notes";
  model.m_settings.m_model_units.m_unit_system = ON_UnitSystem::inches;
  model.m_layer_table = {Layer("A", TestId(1))};
  model.m_material_table.resize(2);
  model.m_group_table.resize(3);
  model.m_linetype_table.resize(4);
  model.m_dimstyle_table.resize(5);
  model.m_idef_table.resize(6);
  model.m_document_user_strings.SetUserString("Owner", "Ada");
  model.m_userdata_table.resize(1);
  model.m_unread = {{"brep", 2}};
  model.m_problems = {"something"};
  model.m_object_table = {TriangleObject(TestId(7))};
  model.m_object_table[0].m_span = {100, 20};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "/models/a.3dm");
  EXPECT_EQ(doc.PathName(), "/models/a.3dm");
  EXPECT_EQ(doc.FileVersion(), 70);
  EXPECT_EQ(doc.FileProperties().m_notes, "notes");
  EXPECT_EQ(doc.ModelUnits(), ON_UnitSystem::inches);
  EXPECT_EQ(doc.m_layer_table.Count(), 1);
  EXPECT_EQ(doc.m_material_table.Count(), 2);
  EXPECT_EQ(doc.m_group_table.Count(), 3);
  EXPECT_EQ(doc.m_linetype_table.Count(), 4);
  EXPECT_EQ(doc.m_dimstyle_table.Count(), 5);
  EXPECT_EQ(doc.m_instance_definition_table.Count(), 6);
  EXPECT_EQ(doc.m_user_strings.GetUserString("OWNER"), "Ada");
  EXPECT_EQ(doc.PlugInData().size(), 1u);
  EXPECT_EQ(doc.UnreadKinds().front().m_name, "brep");
  EXPECT_EQ(doc.Problems().front(), "something");
  EXPECT_EQ(doc.Objects()[0]->FileSpan().offset, 100u);
  EXPECT_EQ(doc.Objects()[0]->FileSpan().length, 20u);
}

TEST(Document, UserStringsAreSetAndRead) {
  CRhinoDoc doc;
  EXPECT_FALSE(doc.m_user_strings.GetUserString("Key").has_value());
  doc.m_user_strings.SetUserString("Key", "value");
  EXPECT_EQ(doc.m_user_strings.GetUserString("key"), "value");
}

TEST(Document, OpeningReplacesEverything) {
  CRhinoDoc doc;
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1))};
  model.m_light_table = {PointLight(TestId(2))};
  model.m_document_user_strings.SetUserString("Key", "value");
  doc.SetModel(std::move(model), "a");
  doc.Objects()[0]->Select();
  const unsigned serialNumber = doc.Objects()[0]->RuntimeSerialNumber();
  doc.SetModel({}, "b");
  EXPECT_TRUE(doc.Objects().empty());
  EXPECT_TRUE(doc.Lights().empty());
  EXPECT_EQ(doc.SelectedCount(), 0);
  EXPECT_TRUE(doc.m_user_strings.IsEmpty());
  EXPECT_EQ(doc.LookupObject(TestId(1)), nullptr);
  EXPECT_EQ(doc.LookupObject(serialNumber), nullptr);
}

TEST(Document, ObjectsAndLightsAreFoundByIdAndSerialNumber) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(2))};
  model.m_light_table = {PointLight(TestId(3))};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  CRhinoObject* second = doc.Objects()[1].get();
  CRhinoObject* light = doc.Lights()[0].get();
  EXPECT_EQ(doc.LookupObject(TestId(2)), second);
  EXPECT_EQ(doc.LookupObject(second->RuntimeSerialNumber()), second);
  EXPECT_EQ(doc.LookupObject(TestId(3)), light);
  EXPECT_EQ(doc.LookupObject(light->RuntimeSerialNumber()), light);
  EXPECT_EQ(doc.LookupObject(TestId(4)), nullptr);
  EXPECT_EQ(doc.LookupObject(0u), nullptr);
}

TEST(Document, SerialNumbersAreNeverGivenTwice) {
  std::set<unsigned> numbers;
  CRhinoDoc first;
  CRhinoDoc second;
  for (int round = 0; round < 3; ++round) {
    for (CRhinoDoc* doc : {&first, &second}) {
      ONX_Model model;
      model.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(2))};
      doc->SetModel(std::move(model), "");
      for (const auto& object : doc->Objects()) numbers.insert(object->RuntimeSerialNumber());
    }
  }
  EXPECT_EQ(numbers.size(), 12u);
  EXPECT_GT(*numbers.begin(), 0u);
}

TEST(Document, ObjectsWithoutAnIdGetOne) {
  ONX_Model model;
  model.m_object_table = {TriangleObject({}), TriangleObject({})};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  const ON_UUID first = doc.Objects()[0]->Attributes().m_uuid;
  const ON_UUID second = doc.Objects()[1]->Attributes().m_uuid;
  EXPECT_FALSE(first.IsNil());
  EXPECT_FALSE(second.IsNil());
  EXPECT_NE(first, second);
  EXPECT_EQ(doc.LookupObject(second), doc.Objects()[1].get());
}

TEST(Document, AnIdThatAFileGivesTwiceStaysWithTheFirstObject) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(1))};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  EXPECT_EQ(doc.LookupObject(TestId(1)), doc.Objects()[0].get());
  const ON_UUID second = doc.Objects()[1]->Attributes().m_uuid;
  EXPECT_NE(second, TestId(1));
  EXPECT_EQ(doc.LookupObject(second), doc.Objects()[1].get());
}

TEST(Document, TheBoxHoldsVisibleObjectsAndNoLights) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1)), TriangleObject(TestId(2), {10, 10, 10})};
  model.m_light_table = {PointLight(TestId(3))};
  model.m_light_table[0].m_light->m_location = {1000, 0, 0};
  model.m_object_table.emplace_back();
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  EXPECT_EQ(doc.BoundingBox().m_min, (ON_3dPoint{0, 0, 0}));
  EXPECT_EQ(doc.BoundingBox().m_max, (ON_3dPoint{11, 11, 10}));

  EXPECT_TRUE(doc.Objects()[1]->Hide());
  EXPECT_EQ(doc.BoundingBox().m_max, (ON_3dPoint{1, 1, 0}));
  EXPECT_TRUE(doc.Objects()[1]->Hide(false));
  EXPECT_EQ(doc.BoundingBox().m_max, (ON_3dPoint{11, 11, 10}));

  ONX_Model added;
  added.m_object_table = {TriangleObject(TestId(4), {-5, 0, 0})};
  doc.ImportModel(std::move(added));
  EXPECT_EQ(doc.BoundingBox().m_min, (ON_3dPoint{-5, 0, 0}));
}

TEST(Document, TheBoxOfHiddenObjectsIsNotValid) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1))};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  EXPECT_TRUE(doc.Objects()[0]->Hide());
  EXPECT_FALSE(doc.BoundingBox().IsValid());
}

TEST(Document, SelectedLightsCount) {
  ONX_Model model;
  model.m_object_table = {TriangleObject(TestId(1))};
  model.m_light_table = {PointLight(TestId(2))};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  EXPECT_TRUE(doc.Objects()[0]->Select());
  EXPECT_TRUE(doc.Lights()[0]->Select());
  EXPECT_EQ(doc.SelectedCount(), 2);
}

TEST(Document, ALightIsAnObjectOfTypeLight) {
  ONX_Model model;
  model.m_light_table = {PointLight(TestId(2)), ONX_ModelLight()};
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  EXPECT_NE(ON_Light::Cast(doc.Lights()[0]->Geometry()), nullptr);
  EXPECT_EQ(doc.Lights()[1]->Geometry(), nullptr);
  EXPECT_EQ(doc.Lights()[1]->ObjectType(), ON_ObjectType::light);
}

// A file may choose ids that any simple hash puts into one place.
TEST(Document, IdsThatAreMadeToCollideAreFoundQuickly) {
  constexpr std::uint64_t kCount = 100000;
  ONX_Model model;
  model.m_object_table.resize(kCount);
  for (std::uint64_t i = 0; i < kCount; ++i) {
    const std::uint64_t halves[2] = {(i + 1) * 0x9E3779B97F4A7C15U, i + 1};
    std::memcpy(model.m_object_table[i].m_attributes.m_uuid.bytes.data(), halves, sizeof(halves));
  }
  const auto start = std::chrono::steady_clock::now();
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

// A million objects are walked, asked whether they are visible and selected without a search for
// each: any search would take minutes.
TEST(Document, AMillionObjectsAreWalkedQuickly) {
  constexpr std::size_t kCount = 1000000;
  ONX_Model model;
  for (unsigned i = 0; i < 1000; ++i) model.m_layer_table.push_back(Layer("L", TestId(i + 1)));
  const auto geometry = TriangleObject({}).m_geometry;
  model.m_object_table.resize(kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    model.m_object_table[i].m_geometry = geometry;
    model.m_object_table[i].m_attributes.m_layer_index = static_cast<int>(i % 1000);
  }
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  const auto start = std::chrono::steady_clock::now();
  CRhinoObjectIterator iterator(doc);
  int visible = 0;
  for (CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    visible += object->IsVisible() ? 1 : 0;
    object->Select();
    EXPECT_EQ(doc.LookupObject(object->RuntimeSerialNumber()), object);
  }
  EXPECT_EQ(visible, static_cast<int>(kCount));
  EXPECT_EQ(doc.SelectedCount(), static_cast<int>(kCount));
  EXPECT_TRUE(doc.BoundingBox().IsValid());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
