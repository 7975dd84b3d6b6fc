#include "edited_document.h"
#include "host/document/undo_list.h"

namespace {

using testing::ElementsAre;
using testing::Optional;

class UndoTest : public EditedDocument {};

TEST_F(UndoTest, ANewDocumentHasNothingToUndo) {
  EXPECT_FALSE(doc_.Undo());
  EXPECT_FALSE(doc_.Redo());
  EXPECT_FALSE(doc_.UndoCaption());
  EXPECT_FALSE(doc_.RedoCaption());
}

TEST_F(UndoTest, ARecordIsUndoneAndRedoneInOneStep) {
  const unsigned record = doc_.BeginUndoRecord("Repaint");
  EXPECT_NE(record, 0u);
  Rename(0, "slate");
  EXPECT_EQ(doc_.m_material_table.AddMaterial({}), 2);
  Rename(Object(0), "Door");
  SetIntensity(1, 0.25);
  SetVisible(kGarden, false);
  EXPECT_TRUE(Object(1).Hide());
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("Repaint")));

  ASSERT_TRUE(doc_.Undo());
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak"));
  EXPECT_EQ(Object(0).Attributes().m_name, "");
  EXPECT_EQ(Light(1).m_intensity, 1);
  EXPECT_TRUE(Object(2).IsVisible());
  EXPECT_TRUE(Object(1).IsVisible());
  EXPECT_EQ(doc_.BoundingBox().m_max.x, 11);
  EXPECT_FALSE(doc_.UndoCaption());
  EXPECT_THAT(doc_.RedoCaption(), Optional(std::string("Repaint")));

  ASSERT_TRUE(doc_.Redo());
  EXPECT_THAT(MaterialNames(), ElementsAre("slate", "oak", ""));
  EXPECT_EQ(doc_.m_material_table.At(2)->MaterialIndex(), 2);
  EXPECT_EQ(Object(0).Attributes().m_name, "Door");
  EXPECT_EQ(Light(1).m_intensity, 0.25);
  EXPECT_EQ(Light(1).LightIndex(), 1);
  EXPECT_FALSE(Object(2).IsVisible());
  EXPECT_FALSE(Object(1).IsVisible());
  EXPECT_EQ(doc_.BoundingBox().m_max.x, 1);
  EXPECT_FALSE(doc_.Redo());
  ASSERT_TRUE(doc_.Undo());
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak"));
}

TEST_F(UndoTest, UserStringsReadBackTheSame) {
  ON_3dmObjectAttributes attributes = Object(0).Attributes();
  attributes.SetUserString("OrvArchive", "первый \"1\".rib");
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  attributes.SetUserString("OrvArchive", "second.rib");
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  ASSERT_TRUE(doc_.Undo());
  EXPECT_EQ(Object(0).Attributes().GetUserString("OrvArchive"), "первый \"1\".rib");
  ASSERT_TRUE(doc_.Undo());
  EXPECT_EQ(Object(0).Attributes().GetUserString("OrvArchive"), std::nullopt);
  ASSERT_TRUE(doc_.Redo());
  ASSERT_TRUE(doc_.Redo());
  EXPECT_EQ(Object(0).Attributes().GetUserString("OrvArchive"), "second.rib");
}

TEST_F(UndoTest, RecordsAreUndoneFromTheLastToTheFirst) {
  for (const char* name : {"one", "two", "three"}) {
    const unsigned record = doc_.BeginUndoRecord(name);
    Rename(0, name);
    EXPECT_TRUE(doc_.EndUndoRecord(record));
  }
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "two");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "one");
  EXPECT_THAT(doc_.RedoCaption(), Optional(std::string("two")));
  EXPECT_TRUE(doc_.Redo());
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "two");
  EXPECT_THAT(doc_.RedoCaption(), Optional(std::string("three")));
}

TEST_F(UndoTest, ANewChangeEndsRedoing) {
  Rename(0, "slate");
  EXPECT_TRUE(doc_.Undo());
  const unsigned record = doc_.BeginUndoRecord("Nothing yet");
  EXPECT_TRUE(doc_.RedoCaption());
  Rename(1, "ash");
  EXPECT_FALSE(doc_.RedoCaption());
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  EXPECT_FALSE(doc_.Redo());
}

TEST_F(UndoTest, AnEmptyRecordIsDroppedAndRedoingGoesOn) {
  Rename(0, "slate");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(doc_.EndUndoRecord(doc_.BeginUndoRecord("Look around")));
  EXPECT_FALSE(doc_.UndoCaption());
  EXPECT_TRUE(doc_.Redo());
}

TEST_F(UndoTest, AnOpenRecordTakesWhatFollows) {
  const unsigned outer = doc_.BeginUndoRecord("outer");
  const unsigned inner = doc_.BeginUndoRecord("inner");
  EXPECT_EQ(inner, 0u);
  Rename(0, "slate");
  EXPECT_FALSE(doc_.EndUndoRecord(inner));
  Rename(1, "ash");
  EXPECT_TRUE(doc_.EndUndoRecord(outer));
  EXPECT_FALSE(doc_.EndUndoRecord(outer));
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("outer")));
  EXPECT_TRUE(doc_.Undo());
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak"));
}

TEST_F(UndoTest, NothingIsUndoneWhileARecordIsOpen) {
  Rename(0, "slate");
  const unsigned record = doc_.BeginUndoRecord("open");
  EXPECT_FALSE(doc_.Undo());
  EXPECT_FALSE(doc_.Redo());
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  EXPECT_TRUE(doc_.Undo());
}

TEST_F(UndoTest, AChangeOutsideOfRecordsIsOneOfItsOwn) {
  Rename(0, "slate");
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("Material change")));
  SetVisible(kHouse, false);
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("Layer change")));
  SetIntensity(0, 0.5);
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("Light change")));
  Rename(Object(0), "Door");
  EXPECT_THAT(doc_.UndoCaption(), Optional(std::string("Object change")));
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "brick");
  EXPECT_FALSE(doc_.Undo());
}

TEST_F(UndoTest, OpeningForgetsAllChanges) {
  Rename(0, "slate");
  Rename(1, "ash");
  EXPECT_TRUE(doc_.Undo());
  doc_.SetModel(Model(), "");
  EXPECT_FALSE(doc_.Undo());
  EXPECT_FALSE(doc_.Redo());
}

TEST_F(UndoTest, ImportingForgetsAllChanges) {
  EXPECT_EQ(doc_.m_material_table.AddMaterial({}), 2);
  doc_.ImportModel(Model());
  EXPECT_FALSE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.Count(), 5);
}

TEST_F(UndoTest, ARecordIsStillOpenAfterADocumentWasOpenedInIt) {
  const unsigned record = doc_.BeginUndoRecord("Open");
  Rename(0, "slate");
  doc_.SetModel(Model(), "");
  Rename(1, "ash");
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  EXPECT_TRUE(doc_.Undo());
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak"));
  EXPECT_FALSE(doc_.Undo());
}

TEST_F(UndoTest, UndoingAHideShowsAndDoesNotSelect) {
  EXPECT_TRUE(Object(0).Select());
  EXPECT_TRUE(Object(0).Hide());
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(Object(0).IsVisible());
  EXPECT_FALSE(Object(0).IsSelected());
  EXPECT_TRUE(Object(0).Select());
  EXPECT_TRUE(doc_.Redo());
  EXPECT_FALSE(Object(0).IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 0);
}

// In between, the object would stand on a layer that is off.
TEST_F(UndoTest, WhatCanBeSelectedBeforeAndAfterStaysSelected) {
  EXPECT_TRUE(Object(0).Select());
  const unsigned record = doc_.BeginUndoRecord("Move");
  ON_Layer house = LayerAt(kHouse);
  house.m_name = "Villa";
  EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(house, kHouse));
  ON_3dmObjectAttributes attributes = Object(0).Attributes();
  attributes.m_layer_index = kGarden;
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  SetVisible(kHouse, false);
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  ASSERT_TRUE(Object(0).IsSelected());

  ASSERT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_layer_table.FullPath(kHouse), "House");
  EXPECT_EQ(Object(0).Attributes().m_layer_index, kHouse);
  EXPECT_TRUE(Object(0).IsSelected());
  ASSERT_TRUE(doc_.Redo());
  EXPECT_EQ(Object(0).Attributes().m_layer_index, kGarden);
  EXPECT_TRUE(Object(0).IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 1);
}

TEST_F(UndoTest, WhatCanNotBeSelectedAfterwardsIsDeselected) {
  SetVisible(kGarden, false);
  SetVisible(kGarden, true);
  EXPECT_TRUE(Object(0).Select());
  EXPECT_TRUE(Object(2).Select());
  EXPECT_TRUE(doc_.Undo());
  EXPECT_FALSE(Object(2).IsSelected());
  EXPECT_TRUE(Object(0).IsSelected());
  EXPECT_EQ(doc_.SelectedCount(), 1);
}

TEST_F(UndoTest, ObjectsKeepTheirOrderAndSerialNumbers) {
  const unsigned number = Object(0).RuntimeSerialNumber();
  Rename(Object(0), "Door");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(doc_.Redo());
  EXPECT_EQ(Object(0).RuntimeSerialNumber(), number);
  EXPECT_EQ(Object(0).Attributes().m_name, "Door");
}

DocState RenamedMaterial(int index) {
  return MaterialState{index, ON_Material()};
}

TEST(UndoList, ARecordKeepsTheFirstStateOfAThingOnly) {
  UndoList list;
  const unsigned record = list.Begin("Many");
  for (int i = 0; i < 10; ++i) list.Add(std::make_shared<DocState>(RenamedMaterial(0)));
  list.Add(std::make_shared<DocState>(RenamedMaterial(1)));
  list.Add(std::make_shared<DocState>(LayerState{0, {}}));
  EXPECT_TRUE(list.End(record));
  EXPECT_EQ(list.MoveToRedoable().size(), 3u);
}

TEST(UndoList, ForgetsTheOldestRecordsBeyondItsLimit) {
  UndoList list;
  const auto state = std::make_shared<DocState>(RenamedMaterial(0));
  for (std::size_t i = 0; i < UndoList::kMaxStates + 5; ++i) list.Add(state);
  std::size_t count = 0;
  for (; list.UndoCaption(); ++count) list.MoveToRedoable();
  EXPECT_EQ(count, UndoList::kMaxStates);
}

TEST(UndoList, ARecordThatIsLargerThanTheLimitIsKeptWhole) {
  UndoList list;
  list.Add(std::make_shared<DocState>(RenamedMaterial(0)));
  const unsigned record = list.Begin("Large");
  const int count = static_cast<int>(UndoList::kMaxStates) + 1;
  for (int i = 0; i < count; ++i) list.Add(std::make_shared<DocState>(LayerState{i, {}}));
  EXPECT_TRUE(list.End(record));
  EXPECT_EQ(list.MoveToRedoable().size(), UndoList::kMaxStates + 1);
  EXPECT_FALSE(list.UndoCaption());
  EXPECT_EQ(list.MoveToUndoable().size(), UndoList::kMaxStates + 1);
}

}  // namespace
