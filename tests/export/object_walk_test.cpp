#include "export/object_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <thread>

#include "host/document/app.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_point_cloud.h"
#include "host/geometry/on_subd.h"
#include "host/system/interrupt.h"
#include "walk_fixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

using ObjectWalkTest = WalkTest;

// Has the form of a brep by its own account, and none when it is asked for it.
class FormlessSurface : public ON_Geometry {
 public:
  ON_ObjectType ObjectType() const override { return ON_ObjectType::brep; }
  ON_BoundingBox BoundingBox() const override { return {}; }
  bool HasBrepForm() const override { return true; }
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

TEST_F(ObjectWalkTest, AMeshASurfaceAndAHiddenObjectGiveTwoBlocks) {
  model_.m_object_table = {ObjectOf(SquareMesh()), SquareSurface(), HiddenObjectOf(SquareMesh())};
  EXPECT_EQ(Walk(),
            std::string(kSquare) + "\n  AttributeBegin\n" + SquarePatch(4) + "  AttributeEnd\n");
}

TEST_F(ObjectWalkTest, ASurfaceWithoutTheFormOfABrepHasNoBlock) {
  model_.m_object_table = {ObjectOf(std::make_shared<FormlessSurface>())};
  model_.m_object_table[0].m_attributes.m_name = "sail\nof cloth";
  EXPECT_EQ(Walk(), "");
  EXPECT_EQ(messages_, "Not exported: the surface of brep \"sail of cloth\" can't be made.\n");
}

TEST_F(ObjectWalkTest, ASubdivisionSurfaceHasABlock) {
  auto subd = std::make_shared<ON_SubD>();
  for (const ON_3dPoint& p : {ON_3dPoint{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}) {
    subd->m_vertex.push_back({p, ON_SubDVertex::Tag::smooth});
  }
  subd->m_face = {{{0, 1, 2}}};
  model_.m_object_table = {ObjectOf(subd)};
  settings_.Outline = true;
  EXPECT_THAT(Walk(),
              testing::StartsWith("\n  AttributeBegin\n    SubdivisionMesh \"catmull-clark\" "
                                  "[ 3 ] [0 1 2 ]\n"));
}

TEST_F(ObjectWalkTest, CurvesAndPointsAreWrittenWhereTheSceneAsksForThem) {
  auto line = std::make_shared<ON_LineCurve>();
  line->m_line = {{0, 0, 0}, {1, 0, 0}};
  auto cloud = std::make_shared<ON_PointCloud>();
  cloud->m_P = {{0, 0, 0}};
  model_.m_object_table = {ObjectOf(line), ObjectOf(cloud), ObjectOf(std::make_shared<ON_Point>())};
  const std::vector<ONX_ModelObject> objects = model_.m_object_table;
  EXPECT_EQ(Walk(), "");
  model_.m_object_table = objects;
  settings_.RenderCurves = true;
  const std::string text = Walk();
  EXPECT_THAT(text, testing::StartsWith("\n  AttributeBegin\n    Color 0 0 0\n"));
  EXPECT_THAT(text, HasSubstr("    Curves \"linear\" [2] \"nonperiodic\" \"P\" [ 0 0 0 1 0 0 ]"));
  EXPECT_THAT(text, HasSubstr("  AttributeEnd\n\n  AttributeBegin\n"));
  EXPECT_THAT(text, HasSubstr("    Points \"P\" [0 0 0 ]\n"));
  EXPECT_THAT(text, HasSubstr("    Points \"P\" [0 0 0] \"constantwidth\" [1]\n"));
}

TEST_F(ObjectWalkTest, AnnotationsAreWrittenWhereTheSceneAsksForThem) {
  auto leader = std::make_shared<ON_Annotation>();
  leader->m_type = ON_Annotation::Type::leader;
  leader->m_points = {{0, 0}, {3, 0}};
  const auto walk = [&](bool curves, bool dimensions) {
    model_.m_object_table = {ObjectOf(leader)};
    settings_.RenderCurves = curves;
    settings_.RenderDimensions = dimensions;
    return Walk();
  };
  EXPECT_EQ(walk(false, false), "");
  EXPECT_EQ(walk(true, false), "");
  for (const bool curves : {false, true}) {
    const std::string text = walk(curves, true);
    EXPECT_THAT(text, testing::StartsWith(
                          "\n  AttributeBegin\n    Color 0 0 0\n    Surface \"constant\"\n"));
    EXPECT_THAT(text, HasSubstr("    NuCurves [2] [2] [0 0 3 3] [0] [3] \"P\" [0 0 0 3 0 0 ]"));
    EXPECT_TRUE(text.ends_with("\n  AttributeEnd\n"));
  }
}

TEST_F(ObjectWalkTest, ACurveOfNoWidthHasNoBlock) {
  auto line = std::make_shared<ON_LineCurve>();
  line->m_line = {{0, 0, 0}, {1, 0, 0}};
  model_.m_object_table = {ObjectOf(line)};
  model_.m_object_table[0].m_attributes.SetUserString("OrvUseLineWidth", "Yes");
  model_.m_object_table[0].m_attributes.SetUserString("OrvLineWidth", "0");
  settings_.RenderCurves = true;
  EXPECT_EQ(Walk(), "");
}

TEST_F(ObjectWalkTest, AnArchiveDoesNotReplaceACurve) {
  auto line = std::make_shared<ON_LineCurve>();
  line->m_line = {{0, 0, 0}, {1, 0, 0}};
  model_.m_object_table = {ObjectOf(line)};
  model_.m_object_table[0].m_attributes.SetUserString("OrvArchiveMode", "replace");
  model_.m_object_table[0].m_attributes.SetUserString("OrvArchive", "tree.rib");
  settings_.RenderCurves = true;
  const std::string text = Walk();
  EXPECT_THAT(text, HasSubstr("    ReadArchive \"tree.rib\"\n"));
  EXPECT_THAT(text, HasSubstr("    Curves "));
}

TEST_F(ObjectWalkTest, OutlinesCountSurfacesAlone) {
  settings_.Outline = true;
  settings_.ToonId = 2;
  model_.m_object_table = {SquareSurface(), ObjectOf(SquareMesh()), SquareSurface()};
  EXPECT_EQ(Walk(), "\n  AttributeBegin\n    Attribute \"toon\" \"id\" [100000]\n" +
                        SquarePatch(4) + "  AttributeEnd\n" + std::string(kSquare) +
                        "\n  AttributeBegin\n    Attribute \"toon\" \"id\" [100001]\n" +
                        SquarePatch(4) + "  AttributeEnd\n");
}

TEST_F(ObjectWalkTest, OutlinesOfAnotherKindDoNotCount) {
  model_.m_object_table = {SquareSurface()};
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
  model_.m_object_table = {ObjectOf(SquareMesh()), SquareSurface(), ObjectOf(SquareMesh())};
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
  EXPECT_THAT(text, HasSubstr("Attribute \"identifier\" \"name\" [\"Object_#0\"]"));
  EXPECT_THAT(text, HasSubstr("Attribute \"identifier\" \"name\" [\"Object_#1\"]"));
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
  EXPECT_FALSE(orv::WriteObjects(writer, doc_, objects, settings_, nullptr, textures_, blocks_));
  EXPECT_FALSE(writer.HasError());
  EXPECT_TRUE(writer.Close());
  reader.join();
}

TEST_F(ObjectWalkTest, TellsHowFarItIs) {
  std::vector<std::string> told;
  RhinoApp().CommandWindow().SetProgressSink([&told](const host::Progress* progress) {
    told.push_back(progress == nullptr
                       ? "end"
                       : std::string(progress->Task) + " " + std::to_string(progress->Done) + "/" +
                             std::to_string(progress->Total) + " " +
                             std::to_string(progress->Bytes));
  });
  model_.m_object_table = {ObjectOf(SquareMesh()), HiddenObjectOf(SquareMesh()),
                           ObjectOf(SquareMesh())};
  const std::string rib = Walk();
  RhinoApp().CommandWindow().SetProgressSink({});
  EXPECT_THAT(told, testing::ElementsAre("Writing 0/2 0",
                                         "Writing 1/2 " + std::to_string(rib.size() / 2), "end"));
}

}  // namespace
