#include "host/document/instance_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/document/doc.h"
#include "host/geometry/on_point_cloud.h"
#include "model_parts.h"
#include "support/blocks.h"

using testing::IsEmpty;
using testing::SizeIs;

namespace {

ONX_ModelObject Triangle(int layer = -1) {
  ONX_ModelObject object = TriangleObject({});
  object.m_attributes.m_layer_index = layer;
  return object;
}

ONX_ModelObject HiddenTriangle() {
  ONX_ModelObject object = Triangle();
  object.m_attributes.m_visible = false;
  return object;
}

// Placements of blocks; `model_` is opened by the first look at it.
class InstanceObjectTest : public testing::Test {
 protected:
  // Places a block in the document.
  void Place(const ON_UUID& block, const ON_Xform& xform = {}) {
    model_.m_object_table.push_back(PlacementOf(block, xform));
  }
  // The last object.
  const CRhinoInstanceObject& Placement() {
    if (!model_.m_object_table.empty()) doc_.SetModel(std::exchange(model_, {}), "");
    const auto* placement = CRhinoInstanceObject::Cast(doc_.Objects().back().get());
    EXPECT_NE(placement, nullptr);
    return *placement;
  }
  // What the placement shows, or why not.
  std::vector<CRhinoInstanceObjectPiece> Pieces(std::string_view expectedProblem = {}) {
    std::vector<CRhinoInstanceObjectPiece> pieces;
    std::string problem;
    EXPECT_EQ(Placement().Explode(pieces, problem), expectedProblem.empty());
    EXPECT_EQ(problem, expectedProblem);
    return pieces;
  }
  const CRhinoObject* Object(std::size_t index) { return doc_.Objects()[index].get(); }

  ONX_Model model_;
  CRhinoDoc doc_;
};

TEST_F(InstanceObjectTest, APlacementShowsTheMembersOfItsBlock) {
  Place(AddBlock(model_, "Chair", {Triangle(), Triangle()}), TranslationBy(1, 2, 3));
  const auto pieces = Pieces();
  ASSERT_THAT(pieces, SizeIs(2));
  EXPECT_EQ(pieces[0].m_object, Object(0));
  EXPECT_EQ(pieces[1].m_object, Object(1));
  EXPECT_EQ(pieces[1].m_xform, TranslationBy(1, 2, 3));
  EXPECT_EQ(Placement().InstanceDefinition()->m_name, "Chair");
}

TEST_F(InstanceObjectTest, APlacementWithoutABlockShowsNothing) {
  Place(TestId(77));
  EXPECT_THAT(Pieces(), IsEmpty());
  EXPECT_EQ(Placement().InstanceDefinition(), nullptr);
  EXPECT_FALSE(Placement().BoundingBox().IsValid());
}

TEST_F(InstanceObjectTest, ABlockWithoutAnIdIsNotPlaced) {
  AddBlock(model_, "Chair", {Triangle()});
  model_.m_idef_table[0].m_id = {};
  Place({});
  EXPECT_THAT(Pieces(), IsEmpty());
}

TEST_F(InstanceObjectTest, TheFirstOfTwoBlocksWithOneIdCounts) {
  const ON_UUID block = AddBlock(model_, "A", {Triangle()});
  AddBlock(model_, "B", {Triangle()});
  model_.m_idef_table[1].m_id = block;
  AddBlock(model_, "C", {Triangle()});
  Place(block);
  EXPECT_EQ(Placement().InstanceDefinition()->m_name, "A");
  EXPECT_EQ(Pieces().at(0).m_object, Object(0));
}

TEST_F(InstanceObjectTest, BlocksInBlocksAreWhereTheirPlacesSay) {
  const ON_UUID leaf = AddBlock(model_, "Leaf", {Triangle()});
  const ON_UUID branch = AddBlock(
      model_, "Branch",
      {PlacementOf(leaf, TranslationBy(1, 0, 0)), Triangle(), PlacementOf(leaf, ScalingBy(3))});
  Place(branch, TranslationBy(0, 10, 0) * ScalingBy(2));
  const auto pieces = Pieces();
  ASSERT_THAT(pieces, SizeIs(3));
  EXPECT_EQ(pieces[0].m_object, Object(0));
  EXPECT_EQ(pieces[1].m_object, Object(2));
  EXPECT_EQ(pieces[2].m_object, Object(0));
  // The inner place is scaled and moved by the outer one.
  EXPECT_EQ(pieces[0].m_xform * ON_3dPoint({0, 0, 0}), (ON_3dPoint{2, 10, 0}));
  EXPECT_EQ(pieces[2].m_xform * ON_3dPoint({1, 1, 1}), (ON_3dPoint{6, 16, 6}));
}

TEST_F(InstanceObjectTest, PiecesAreAppended) {
  Place(AddBlock(model_, "Chair", {Triangle()}));
  std::vector<CRhinoInstanceObjectPiece> pieces(1);
  std::string problem;
  ASSERT_TRUE(Placement().Explode(pieces, problem));
  ASSERT_TRUE(Placement().Explode(pieces, problem));
  EXPECT_THAT(pieces, SizeIs(3));
}

TEST_F(InstanceObjectTest, HiddenMembersAreNotShown) {
  model_.m_layer_table = {Layer("On", TestId(1)), Layer("Off", TestId(2))};
  model_.m_layer_table[1].m_visible = false;
  const ON_UUID leaf = AddBlock(model_, "Leaf", {Triangle()});
  ONX_ModelObject hidden = PlacementOf(leaf);
  hidden.m_attributes.m_visible = false;
  ONX_ModelObject off = PlacementOf(leaf);
  off.m_attributes.m_layer_index = 1;
  Place(AddBlock(model_, "Tree",
                 {HiddenTriangle(), Triangle(1), std::move(hidden), std::move(off), Triangle(0)}));
  const auto pieces = Pieces();
  ASSERT_THAT(pieces, SizeIs(1));
  EXPECT_EQ(pieces[0].m_object, Object(5));
}

TEST_F(InstanceObjectTest, WhatIsHiddenOrShownLaterIsSeenAtOnce) {
  model_.m_layer_table = {Layer("Members", TestId(1))};
  Place(AddBlock(model_, "Chair", {Triangle(0), Triangle()}));
  EXPECT_THAT(Pieces(), SizeIs(2));
  ON_Layer layer = *doc_.m_layer_table.At(0);
  layer.m_visible = false;
  ASSERT_TRUE(doc_.m_layer_table.ModifyLayer(layer, 0));
  EXPECT_THAT(Pieces(), SizeIs(1));
  ASSERT_TRUE(doc_.Undo());
  EXPECT_THAT(Pieces(), SizeIs(2));
  ON_3dmObjectAttributes attributes = Object(1)->Attributes();
  attributes.m_visible = false;
  ASSERT_TRUE(doc_.ModifyObjectAttributes(*doc_.Objects()[1], attributes));
  EXPECT_THAT(Pieces(), SizeIs(1));
}

TEST_F(InstanceObjectTest, MembersThatAreNotReadOrNotThereArePassedOver) {
  ONX_ModelObject unread;
  unread.m_object_type = static_cast<unsigned>(ON_ObjectType::hatch);
  Place(AddBlock(model_, "Chair", {std::move(unread), Triangle(), PlacementOf(TestId(7))}));
  model_.m_idef_table[0].m_object_ids.push_back(TestId(99));
  EXPECT_THAT(Pieces(), SizeIs(1));
}

TEST_F(InstanceObjectTest, ABlockThatContainsItselfIsTold) {
  const ON_UUID block = AddBlock(model_, "Snake", {Triangle()});
  const ON_UUID tail = AddBlock(model_, "Tail", {PlacementOf(block)});
  model_.m_idef_table[0].m_object_ids.push_back(TestId(5));
  model_.m_object_table.push_back(PlacementOf(tail));
  model_.m_object_table.back().m_attributes.m_uuid = TestId(5);
  Place(AddBlock(model_, "Zoo", {PlacementOf(block), Triangle()}));
  EXPECT_THAT(Pieces("block \"Zoo\" contains itself or a block that does"), IsEmpty());
  EXPECT_FALSE(Placement().BoundingBox().IsValid());
  EXPECT_FALSE(doc_.BoundingBox().IsValid());
}

TEST_F(InstanceObjectTest, AHiddenPlacementDoesNotMakeABlockContainItself) {
  const ON_UUID block = AddBlock(model_, "Snake", {Triangle()});
  ONX_ModelObject inside = PlacementOf(block);
  inside.m_attributes.m_uuid = TestId(5);
  inside.m_attributes.m_visible = false;
  model_.m_object_table.push_back(std::move(inside));
  model_.m_idef_table[0].m_object_ids.push_back(TestId(5));
  Place(block);
  EXPECT_THAT(Pieces(), SizeIs(1));
}

TEST_F(InstanceObjectTest, SixtyFourLevelsAreShownAndNoMore) {
  ON_UUID block = AddBlock(model_, "1", {Triangle()});
  for (int level = 2; level <= 64; ++level) {
    block = AddBlock(model_, std::to_string(level), {PlacementOf(block, TranslationBy(1, 0, 0))});
  }
  const ON_UUID tooDeep = AddBlock(model_, "65", {PlacementOf(block)});
  ONX_Model deeper = model_;
  Place(block);
  const auto pieces = Pieces();
  ASSERT_THAT(pieces, SizeIs(1));
  EXPECT_EQ(pieces[0].m_xform, TranslationBy(63, 0, 0));
  model_ = std::move(deeper);
  Place(tooDeep);
  EXPECT_THAT(Pieces("block \"65\" is more than 64 blocks deep"), IsEmpty());
}

TEST_F(InstanceObjectTest, AChainOfManyBlocksIsNoBurden) {
  ON_UUID block = AddBlock(model_, "First", {Triangle()});
  for (int i = 0; i < 100000; ++i) block = AddBlock(model_, "Link", {PlacementOf(block)});
  Place(block);
  EXPECT_THAT(Pieces("block \"Link\" is more than 64 blocks deep"), IsEmpty());
}

// Each level places the one below twice: 2 to the power of 40 objects.
TEST_F(InstanceObjectTest, AnAvalancheOfObjectsIsTold) {
  ON_UUID block = AddBlock(model_, "Flake", {Triangle()});
  for (int i = 0; i < 40; ++i) {
    block = AddBlock(model_, "Avalanche", {PlacementOf(block), PlacementOf(block)});
  }
  Place(block);
  EXPECT_THAT(Pieces("block \"Avalanche\" shows more than 2000000 objects"), IsEmpty());
  EXPECT_TRUE(Placement().BoundingBox().IsValid());
}

TEST_F(InstanceObjectTest, AnAvalancheOfNothingIsNothing) {
  ON_UUID block = AddBlock(model_, "Flake", {HiddenTriangle()});
  for (int i = 0; i < 60; ++i) {
    block = AddBlock(model_, "Avalanche", {PlacementOf(block), PlacementOf(block)});
  }
  Place(block);
  EXPECT_THAT(Pieces(), IsEmpty());
}

TEST_F(InstanceObjectTest, PlacesThatLeaveTheNumbersAreTold) {
  const ON_UUID inner = AddBlock(model_, "Inner", {Triangle()});
  Place(AddBlock(model_, "Outer", {Triangle(), PlacementOf(inner, ScalingBy(1e200))}),
        ScalingBy(1e200));
  EXPECT_THAT(Pieces("block \"Outer\" holds placements whose numbers are too large"), IsEmpty());
}

TEST_F(InstanceObjectTest, TheBoxIsThatOfWhatIsShown) {
  const ON_UUID leaf = AddBlock(model_, "Leaf", {Triangle()});
  Place(AddBlock(model_, "Branch", {PlacementOf(leaf), PlacementOf(leaf, ScalingBy(5))}),
        TranslationBy(100, 0, 0));
  const ON_BoundingBox box = Placement().BoundingBox();
  EXPECT_EQ(box.m_min, (ON_3dPoint{100, 0, 0}));
  EXPECT_EQ(box.m_max, (ON_3dPoint{105, 5, 0}));
  EXPECT_EQ(doc_.BoundingBox().m_max, box.m_max);
}

TEST_F(InstanceObjectTest, TheDocumentsBoxFollowsHiddenMembers) {
  Place(AddBlock(model_, "Chair", {Triangle()}), TranslationBy(1, 0, 0));
  Placement();
  EXPECT_TRUE(doc_.BoundingBox().IsValid());
  ON_3dmObjectAttributes attributes = Object(0)->Attributes();
  attributes.m_visible = false;
  ASSERT_TRUE(doc_.ModifyObjectAttributes(*doc_.Objects()[0], attributes));
  EXPECT_FALSE(doc_.BoundingBox().IsValid());
}

TEST_F(InstanceObjectTest, AMemberIsNotVisibleOnItsOwn) {
  Place(AddBlock(model_, "Chair", {Triangle()}));
  EXPECT_TRUE(Placement().IsVisible());
  EXPECT_FALSE(Object(0)->IsVisible());
  EXPECT_FALSE(doc_.Objects()[0]->Select());
}

}  // namespace
