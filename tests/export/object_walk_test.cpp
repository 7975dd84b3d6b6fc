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

// Writes no material unless a test asks for it.
class ObjectWalkTest : public testing::Test {
 protected:
  ObjectWalkTest() { settings_.WriteMaterials = false; }
  ~ObjectWalkTest() override { host::ClearInterrupt(); }

  // What the walk of all objects of the model writes.
  std::string Walk(bool succeeds = true) {
    doc_.SetModel(std::move(model_), "");
    const auto objects =
        orv::FlattenObjects(orv::GatherObjects(doc_, false, orv::RenderSettings()));
    return Written([&](orv::RibWriter& writer) {
      writer.Indent = 2;
      EXPECT_EQ(orv::WriteObjects(writer, doc_, objects, settings_, iprSettings_, textures_),
                succeeds);
    });
  }

  ONX_Model model_;
  CRhinoDoc doc_;
  orv::RenderSettings settings_;
  const orv::IprSettings* iprSettings_ = nullptr;
  orv::TextureConverter textures_;
};

// Stands for all geometry that has the form of a brep.
class Surface : public ON_Geometry {
 public:
  ON_ObjectType ObjectType() const override { return ON_ObjectType::brep; }
  ON_BoundingBox BoundingBox() const override { return {}; }
  bool HasBrepForm() const override { return true; }
};

ONX_ModelObject SurfaceObject() {
  return ObjectOf(std::make_shared<Surface>());
}

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

TEST_F(ObjectWalkTest, AMeshASurfaceAndAHiddenObjectGiveTwoBlocks) {
  model_.m_object_table = {ObjectOf(SquareMesh()), SurfaceObject(), HiddenObjectOf(SquareMesh())};
  EXPECT_EQ(Walk(), std::string(kSquare) + "\n  AttributeBegin\n  AttributeEnd\n");
}

TEST_F(ObjectWalkTest, OutlinesCountSurfacesAlone) {
  settings_.Outline = true;
  settings_.ToonId = 2;
  model_.m_object_table = {SurfaceObject(), ObjectOf(SquareMesh()), SurfaceObject()};
  EXPECT_EQ(Walk(),
            "\n  AttributeBegin\n    Attribute \"toon\" \"id\" [100000]\n  AttributeEnd\n" +
                std::string(kSquare) +
                "\n  AttributeBegin\n    Attribute \"toon\" \"id\" [100001]\n  AttributeEnd\n");
}

TEST_F(ObjectWalkTest, OutlinesOfAnotherKindDoNotCount) {
  model_.m_object_table = {SurfaceObject()};
  const std::vector<ONX_ModelObject> objects = model_.m_object_table;
  settings_.Outline = true;
  settings_.ToonId = 3;
  EXPECT_THAT(Walk(), Not(HasSubstr("toon")));
  model_.m_object_table = objects;
  settings_.Outline = false;
  settings_.ToonId = 2;
  EXPECT_THAT(Walk(), Not(HasSubstr("toon")));
}

TEST_F(ObjectWalkTest, ABlockHasItsPartsInTheirOrder) {
  settings_.WriteMaterials = true;
  model_.m_group_table = {{.m_id = {}, .m_name = "Chairs", .m_index = 0}};
  model_.m_object_table = {ObjectOf(SquareMesh())};
  ON_3dmObjectAttributes& attributes = model_.m_object_table[0].m_attributes;
  attributes.m_name = "seat";
  attributes.m_group = {0};
  attributes.m_material_source = ON_AttributeSource::object;
  attributes.m_material_index = 0;
  attributes.SetUserString("OrvCastShadow", "No");
  attributes.SetUserString("OrvArchiveMode", "insert");
  attributes.SetUserString("OrvArchive", "legs.rib");
  model_.m_material_table.resize(1);
  model_.m_material_table[0].SetUserString("OrvSurface", "\"matte\"");
  model_.m_material_table[0].SetUserString("OrvDisplacementMode", "off");
  settings_.Colors = false;
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    Attribute "grouping" "string membership" "+Chairs"
    Attribute "identifier" "name" ["seat"]
    Surface "matte"
    Opacity [ 1 1 1 ]
    Attribute "visibility" "integer transmission" [0]
    ReadArchive "legs.rib"
    PointsPolygons [ 4 ] [0 1 2 3 ]
     "P" [ 0 0 0 1 0 0 1 1 0 0 1 0  ]
  AttributeEnd
)");
}

TEST_F(ObjectWalkTest, AReplacementTakesThePlaceOfTheGeometry) {
  model_.m_object_table = {ObjectOf(SquareMesh()), SurfaceObject(), ObjectOf(SquareMesh())};
  for (std::size_t i : {0, 1}) {
    model_.m_object_table[i].m_attributes.SetUserString("OrvArchiveMode", "REPLACE");
    model_.m_object_table[i].m_attributes.SetUserString("OrvArchive", "tree.rib");
  }
  const std::string block = "\n  AttributeBegin\n    ReadArchive \"tree.rib\"\n  AttributeEnd\n";
  EXPECT_EQ(Walk(), block + block + std::string(kSquare));
}

TEST_F(ObjectWalkTest, AnInteractiveSessionNumbersObjects) {
  settings_.WriteMaterials = true;
  const orv::IprSettings ipr;
  iprSettings_ = &ipr;
  model_.m_object_table = {ObjectOf(SquareMesh()), ObjectOf(SquareMesh())};
  model_.m_object_table[0].m_attributes.m_name = "seat";
  const std::string text = Walk();
  for (const auto& object : doc_.Objects()) {
    const std::string number = std::to_string(object->RuntimeSerialNumber());
    EXPECT_THAT(text, HasSubstr("Attribute \"identifier\" \"name\" [\"Object_" + number + "\"]"));
  }
  EXPECT_THAT(text, Not(HasSubstr("seat")));
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
  EXPECT_FALSE(orv::WriteObjects(writer, doc_, objects, settings_, nullptr, textures_));
  EXPECT_FALSE(writer.HasError());
  EXPECT_TRUE(writer.Close());
  reader.join();
}

}  // namespace
