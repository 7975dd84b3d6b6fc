#include "export/object_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <thread>

#include "export_fixture.h"
#include "host/geometry/on_point_cloud.h"
#include "host/system/interrupt.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class ObjectWalkTest : public testing::Test {
 protected:
  ~ObjectWalkTest() override { host::ClearInterrupt(); }

  // What the walk of all objects of the model writes.
  std::string Walk(bool succeeds = true) {
    doc_.SetModel(std::move(model_), "");
    const auto objects =
        orv::FlattenObjects(orv::GatherObjects(doc_, false, orv::RenderSettings()));
    return Written([&](orv::RibWriter& writer) {
      writer.Indent = 2;
      EXPECT_EQ(orv::WriteObjects(writer, objects), succeeds);
    });
  }

  ONX_Model model_;
  CRhinoDoc doc_;
};

constexpr std::string_view kSquare =
    "\n"
    "  AttributeBegin\n"
    "    PointsPolygons [ 4 ] [0 1 2 3 ]\n"
    "     \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0  ]\n"
    "  AttributeEnd\n";

TEST_F(ObjectWalkTest, AnEmptyModelHasNoBlock) {
  EXPECT_EQ(Walk(), "");
}

TEST_F(ObjectWalkTest, EachVisibleMeshHasABlockWithABlankLineBeforeIt) {
  model_.m_object_table = {ObjectOf(SquareMesh()), HiddenObjectOf(SquareMesh()),
                           ObjectOf(SquareMesh())};
  EXPECT_EQ(Walk(), std::string(kSquare) + std::string(kSquare));
}

TEST_F(ObjectWalkTest, AMeshWithoutFacesHasABlockWithoutAStatement) {
  auto mesh = SquareMesh();
  mesh->m_F.clear();
  model_.m_object_table = {ObjectOf(mesh)};
  EXPECT_EQ(Walk(), "\n  AttributeBegin\n  AttributeEnd\n");
}

TEST_F(ObjectWalkTest, AnObjectsStringsAskForAWeld) {
  auto mesh = SquareMesh();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}};
  model_.m_object_table = {ObjectOf(mesh), ObjectOf(mesh)};
  model_.m_object_table[0].m_attributes.SetUserString("OrvWeldPolyVerts", "Yes");
  model_.m_object_table[1].m_attributes.SetUserString("OrvWeldPolyVerts", "NO");
  const std::string text = Walk();
  EXPECT_THAT(text, HasSubstr("# Welded - reduced 4 vertices to 3\n"));
  EXPECT_EQ(text.find("# Welded"), text.rfind("# Welded"));
}

TEST_F(ObjectWalkTest, AnObjectsStringsAskForASubdivisionSurface) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  model_.m_object_table[0].m_attributes.SetUserString("OrvSubdivisionMesh", "Yes");
  EXPECT_THAT(Walk(), HasSubstr("  SubdivisionMesh \"catmull-clark\" [ 4 ] [0 1 2 3 ]\n"));
}

TEST_F(ObjectWalkTest, WhatIsNoMeshWritesNothing) {
  model_.m_object_table = {ObjectOf(std::make_shared<ON_PointCloud>()), ObjectOf(nullptr)};
  model_.m_object_table[1].m_object_type = static_cast<unsigned>(ON_ObjectType::brep);
  model_.m_light_table = {PointLight()};
  EXPECT_EQ(Walk(), "");
}

TEST_F(ObjectWalkTest, EndsWhenTheUserCancels) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  host::RequestInterrupt();
  EXPECT_THAT(Walk(false), Not(HasSubstr("PointsPolygons")));
}

// The stream is a pipe, whose reader cancels when the last object has begun to come.
TEST_F(ObjectWalkTest, CancellingDuringTheLastObjectCounts) {
  auto mesh = SquareMesh();
  mesh->m_V.resize(200000, ON_3fPoint{0.123456F, 1.23456F, 12.3456F});
  model_.m_object_table = {ObjectOf(mesh)};
  doc_.SetModel(std::move(model_), "");
  const TempFolder folder;
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread reader([&] {
    std::ifstream stream(pipe, std::ios::binary);
    stream.get();
    host::RequestInterrupt();
    std::string(std::istreambuf_iterator<char>(stream), {});
  });
  orv::RibWriter writer(pipe);
  const auto objects = orv::FlattenObjects(orv::GatherObjects(doc_, false, orv::RenderSettings()));
  EXPECT_FALSE(orv::WriteObjects(writer, objects));
  EXPECT_FALSE(writer.HasError());
  EXPECT_TRUE(writer.Close());
  reader.join();
}

}  // namespace
