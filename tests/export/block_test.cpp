#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export/object_walk.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_point_cloud.h"
#include "host/geometry/on_subd.h"
#include "support/blocks.h"
#include "walk_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

ONX_ModelObject Line() {
  auto line = std::make_shared<ON_LineCurve>();
  line->m_line = {{0, 0, 0}, {1, 0, 0}};
  return ObjectOf(line);
}

std::size_t CountOf(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != std::string_view::npos;
       at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

class BlockTest : public WalkTest {
 protected:
  void Place(const ON_UUID& block, const ON_Xform& xform = {}) {
    model_.m_object_table.push_back(PlacementOf(block, xform));
  }
  // A surface material named by its shader. The surface has one of four places in the table.
  void UseMaterials() {
    settings_.WriteMaterials = true;
    settings_.Colors = false;
    model_.m_material_table.resize(2);
    const char* const shaders[] = {"\"own\"", "\"placement\""};
    for (std::size_t i = 0; i < 2; ++i) {
      model_.m_material_table[i].SetUserString("OrvSurface", shaders[i]);
      model_.m_material_table[i].SetUserString("OrvDisplacementMode", "off");
    }
  }
  static ONX_ModelObject WithMaterial(ONX_ModelObject object, int index,
                                      ON_AttributeSource source = ON_AttributeSource::object) {
    object.m_attributes.m_material_source = source;
    object.m_attributes.m_material_index = index;
    return object;
  }
};

TEST_F(BlockTest, TheFirstPieceDefinesAndEachPlaces) {
  const ON_UUID block = AddBlock(model_, "Tile", {SquareSurface()});
  Place(block, TranslationBy(5, 6, 7));
  ON_Xform numbers;
  double number = 0;
  for (auto& row : numbers.m_xform) {
    for (double& value : row) value = ++number;
  }
  Place(block, numbers);
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    ArchiveBegin "Block_#0"
)" + SquarePatch(6) + R"(    ArchiveEnd
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  5 6 7 1]
    ArchiveInstance "Block_#0"
  AttributeEnd

  AttributeBegin
    ConcatTransform [1 5 9 13  2 6 10 14  3 7 11 15  4 8 12 16]
    ArchiveInstance "Block_#0"
  AttributeEnd
)");
  EXPECT_THAT(blocks_.InOrder(), ElementsAre(doc_.Objects()[0]->RuntimeSerialNumber()));
  EXPECT_EQ(messages_, "");
}

TEST_F(BlockTest, EachObjectOfABlockIsAnArchive) {
  const ON_UUID block =
      AddBlock(model_, "Pair", {ObjectOf(SquareMesh()), ObjectOf(SquareMesh()), SquareSurface()});
  for (int i = 0; i < 10; ++i) Place(block);
  const std::string text = Walk();
  EXPECT_EQ(CountOf(text, "ArchiveBegin"), 3u);
  EXPECT_EQ(CountOf(text, "ArchiveEnd"), 3u);
  EXPECT_EQ(CountOf(text, "ArchiveInstance"), 30u);
  EXPECT_THAT(blocks_.InOrder(), SizeIs(3));
}

TEST_F(BlockTest, EachPieceNamesTheMapsOfItsObject) {
  settings_.BakeEnable = settings_.BakeUseMap1 = true;
  settings_.ImageName = "map.png";
  settings_.RenderMesh = 0;
  settings_.Outline = true;
  settings_.ToonId = 2;
  model_.m_group_table = {{.m_id = {}, .m_name = "Floor", .m_index = 0}};
  ONX_ModelObject tile = SquareSurface();
  tile.m_attributes.m_group = {0};
  const ON_UUID block = AddBlock(model_, "Tile", {std::move(tile)});
  Place(block);
  Place(block);
  const std::string text = Walk();
  const std::string id = doc_.Objects()[0]->Attributes().m_uuid.ToString();
  for (const char* number : {"100000", "100001"}) {
    EXPECT_THAT(
        text, HasSubstr("  AttributeBegin\n    Attribute \"toon\" \"id\" [" + std::string(number) +
                        "]\n    Attribute \"bake\" \"string bakemaps\" "
                        "[\"map_" +
                        id +
                        ".png\"]\n"
                        "    Attribute \"grouping\" \"string membership\" \"+Floor\"\n"));
  }
}

TEST_F(BlockTest, AFurtherPieceHasToonIdAndGroupsAndNoAttributes) {
  settings_.Outline = true;
  settings_.ToonId = 2;
  model_.m_group_table = {{.m_id = {}, .m_name = "Floor", .m_index = 0}};
  ONX_ModelObject tile = SquareSurface();
  tile.m_attributes.m_group = {0};
  tile.m_attributes.SetUserString("OrvCastShadow", "No");
  const ON_UUID block = AddBlock(model_, "Tile", {std::move(tile)});
  Place(block);
  Place(block);
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    Attribute "toon" "id" [100000]
    Attribute "grouping" "string membership" "+Floor"
    ArchiveBegin "Block_#0"
      Attribute "visibility" "integer transmission" [0]
)" + SquarePatch(6) + R"(    ArchiveEnd
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd

  AttributeBegin
    Attribute "toon" "id" [100001]
    Attribute "grouping" "string membership" "+Floor"
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd
)");
}

TEST_F(BlockTest, TheObjectsOwnMaterialIsInTheArchive) {
  UseMaterials();
  const ON_UUID block = AddBlock(
      model_, "Pair", {WithMaterial(SquareSurface(), 0), WithMaterial(ObjectOf(SquareMesh()), 0)});
  Place(block);
  Place(block);
  const std::string begin = R"(
  AttributeBegin
    ArchiveBegin "Block_#)";
  const std::string material = R"("
      Surface "own"
      Opacity [ 1 1 1 ]
)";
  const std::string end = R"(    ArchiveEnd
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#)";
  const std::string again = R"(
  AttributeBegin
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#)";
  EXPECT_EQ(Walk(), begin + "0" + material + SquarePatch(6) + end + "0\"\n  AttributeEnd\n" +
                        begin + "1" + material + SquarePolygon(6) + end + "1\"\n  AttributeEnd\n" +
                        again + "0\"\n  AttributeEnd\n" + again + "1\"\n  AttributeEnd\n");
}

TEST_F(BlockTest, TheMaterialOfThePlacementStandsBeforeItsArchive) {
  UseMaterials();
  const ON_UUID block =
      AddBlock(model_, "Tile", {WithMaterial(SquareSurface(), 0, ON_AttributeSource::parent)});
  for (int i = 0; i < 2; ++i) {
    Place(block);
    model_.m_object_table.back() = WithMaterial(std::move(model_.m_object_table.back()), 1);
    model_.m_object_table.back().m_attributes.m_name = i == 0 ? "first" : "second";
  }
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    Attribute "identifier" "name" ["first"]
    Surface "placement"
    Opacity [ 1 1 1 ]
    ArchiveBegin "Block_#0"
)" + SquarePatch(6) + R"(    ArchiveEnd
    Attribute "identifier" "name" ["first"]
    Surface "placement"
    Opacity [ 1 1 1 ]
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd

  AttributeBegin
    Attribute "identifier" "name" ["second"]
    Surface "placement"
    Opacity [ 1 1 1 ]
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd
)");
}

TEST_F(BlockTest, AMeshWithThePlacementsMaterialHasItAtItsPlaceAlone) {
  UseMaterials();
  const ON_UUID block = AddBlock(
      model_, "Tile", {WithMaterial(ObjectOf(SquareMesh()), 0, ON_AttributeSource::parent)});
  Place(block);
  model_.m_object_table.back() = WithMaterial(std::move(model_.m_object_table.back()), 1);
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    ArchiveBegin "Block_#0"
)" + SquarePolygon(6) + R"(    ArchiveEnd
    Surface "placement"
    Opacity [ 1 1 1 ]
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd
)");
}

TEST_F(BlockTest, ASubdivisionSurfaceIsAnArchiveAsAMeshIs) {
  UseMaterials();
  settings_.Outline = true;
  settings_.ToonId = 2;
  auto net = std::make_shared<ON_SubD>();
  for (const ON_3dPoint& p : {ON_3dPoint{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}) {
    net->m_vertex.push_back({p, ON_SubDVertex::Tag::smooth});
  }
  net->m_face = {{{0, 1, 2}}};
  Place(AddBlock(model_, "Leaf", {WithMaterial(ObjectOf(net), 0, ON_AttributeSource::parent)}));
  model_.m_object_table.back() = WithMaterial(std::move(model_.m_object_table.back()), 1);
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    ArchiveBegin "Block_#0"
      SubdivisionMesh "catmull-clark" [ 3 ] [0 1 2 ]
       ["interpolateboundary"] [1 0] [1] [0]
       "P" [ 0 0 0 1 0 0 1 1 0  ]
    ArchiveEnd
    Surface "placement"
    Opacity [ 1 1 1 ]
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd
)");
}

// Two surfaces whose render meshes have packed textures; one has the material of its placement.
TEST_F(BlockTest, TheMaterialThatIsWrittenAsksForAMesh) {
  UseMaterials();
  settings_.RenderMesh = 1;
  const auto mesh = SquareMesh();
  mesh->m_srf_scale = {1, 1};
  mesh->m_packed_tex_domain = {ON_Interval{0, 0.5}, ON_Interval{0, 1}};
  ASSERT_TRUE(mesh->HasPackedTextureRegion());
  const std::shared_ptr<ON_Brep> brep = SquareSurface().m_geometry->BrepForm();
  brep->m_F[0].m_render_mesh = mesh;
  const auto walk = [&](int needsMesh) {
    UseMaterials();
    model_.m_material_table[static_cast<std::size_t>(needsMesh)].SetUserString("OrvSurface",
                                                                               "\"VWeave\"");
    Place(AddBlock(model_, "Pair",
                   {WithMaterial(ObjectOf(brep), 0),
                    WithMaterial(ObjectOf(brep), 0, ON_AttributeSource::parent)}));
    model_.m_object_table.back() = WithMaterial(std::move(model_.m_object_table.back()), 1);
    blocks_ = {};
    return Walk();
  };
  const std::string own = walk(0);
  EXPECT_THAT(own, HasSubstr(SquarePolygon(6) + "    ArchiveEnd\n    ConcatTransform"));
  EXPECT_THAT(own, HasSubstr(SquarePatch(6) + "    ArchiveEnd\n    Surface \"placement\""));
  const std::string placement = walk(1);
  EXPECT_THAT(placement, HasSubstr(SquarePatch(6) + "    ArchiveEnd\n    ConcatTransform"));
  EXPECT_THAT(placement, HasSubstr(SquarePolygon(6) + "    ArchiveEnd\n    Surface \"VWeave\""));
}

TEST_F(BlockTest, AnInteractiveSessionNumbersPiecesAndPlacements) {
  UseMaterials();
  const orv::IprSettings ipr;
  iprSettings_ = &ipr;
  const ON_UUID block = AddBlock(model_, "Pair",
                                 {WithMaterial(SquareSurface(), 0),
                                  WithMaterial(SquareSurface(), 0, ON_AttributeSource::parent)});
  Place(block);
  const std::string text = Walk();
  EXPECT_THAT(text, HasSubstr("    ArchiveBegin \"Block_#0\"\n"
                              "      Attribute \"identifier\" \"name\" [\"Object_#0\"]\n"));
  EXPECT_THAT(text, HasSubstr("  AttributeBegin\n"
                              "    Attribute \"identifier\" \"name\" [\"Object_#2\"]\n"));
}

TEST_F(BlockTest, ACurveIsAnArchiveAndPointsAreWrittenWhereTheyStand) {
  settings_.RenderCurves = true;
  auto cloud = std::make_shared<ON_PointCloud>();
  cloud->m_P = {{1, 2, 3}};
  auto point = std::make_shared<ON_Point>();
  point->point = {4, 5, 6};
  const ON_UUID block = AddBlock(model_, "Marks", {Line(), ObjectOf(cloud), ObjectOf(point)});
  Place(block, TranslationBy(1, 0, 0));
  Place(block, TranslationBy(2, 0, 0));
  const std::string text = Walk();
  EXPECT_THAT(text, testing::StartsWith("\n  AttributeBegin\n    ArchiveBegin \"Block_#0\"\n"
                                        "      Color 0 0 0\n"));
  EXPECT_THAT(text, HasSubstr("    ArchiveEnd\n"
                              "    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  1 0 0 1]\n"
                              "    ArchiveInstance \"Block_#0\"\n  AttributeEnd\n"));
  EXPECT_THAT(text, HasSubstr("\n  AttributeBegin\n"
                              "    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  2 0 0 1]\n"
                              "    ArchiveInstance \"Block_#0\"\n  AttributeEnd\n"));
  EXPECT_EQ(CountOf(text, "Archive"), 4u);
  EXPECT_EQ(CountOf(text, "ConcatTransform"), 2u);
  EXPECT_EQ(CountOf(text, "Points \"P\" [1 2 3 ]"), 2u);
  EXPECT_EQ(CountOf(text, "Points \"P\" [4 5 6]"), 2u);
  EXPECT_THAT(blocks_.InOrder(), SizeIs(1));
}

TEST_F(BlockTest, ACurveHasItsOwnMaterialInItsArchiveAndNoneAtItsPlace) {
  UseMaterials();
  settings_.RenderCurves = true;
  std::vector<ONX_ModelObject> lines = {WithMaterial(Line(), 0),
                                        WithMaterial(Line(), 0, ON_AttributeSource::parent)};
  for (ONX_ModelObject& line : lines) line.m_attributes.SetUserString("OrvShadeCurves", "Yes");
  Place(AddBlock(model_, "Marks", std::move(lines)));
  model_.m_object_table.back() = WithMaterial(std::move(model_.m_object_table.back()), 1);
  const std::string text = Walk();
  EXPECT_THAT(text, testing::StartsWith(R"(
  AttributeBegin
    ArchiveBegin "Block_#0"
      Surface "own"
      Opacity [ 1 1 1 ]
      Curves "linear" [2] "nonperiodic" "P" [ 0 0 0 1 0 0 ] "constantwidth" [1]
    ArchiveEnd
    ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd

  AttributeBegin
    ArchiveBegin "Block_#1"
)"));
  EXPECT_EQ(CountOf(text, "      Surface \"own\"\n"), 2u);
  EXPECT_THAT(text, Not(HasSubstr("placement")));
}

TEST_F(BlockTest, AnAnnotationIsWrittenWhereItStandsAtEachPlacement) {
  settings_.RenderDimensions = true;
  auto leader = std::make_shared<ON_Annotation>();
  leader->m_type = ON_Annotation::Type::leader;
  leader->m_points = {{1, 2}, {4, 2}};
  const ON_UUID block = AddBlock(model_, "Notes", {ObjectOf(leader)});
  Place(block, TranslationBy(1, 0, 0));
  Place(block, TranslationBy(2, 0, 0));
  const std::string text = Walk();
  EXPECT_EQ(CountOf(text, "\"P\" [1 2 0 4 2 0 ]"), 2u);
  EXPECT_THAT(text, Not(HasSubstr("Archive")));
  EXPECT_THAT(text, Not(HasSubstr("ConcatTransform")));
  EXPECT_THAT(blocks_.InOrder(), SizeIs(0));
}

TEST_F(BlockTest, AReplacedObjectLeavesItsArchiveOpenAndHasNoInstance) {
  ONX_ModelObject tile = SquareSurface();
  tile.m_attributes.SetUserString("OrvArchiveMode", "replace");
  tile.m_attributes.SetUserString("OrvArchive", "tree.rib");
  const ON_UUID block = AddBlock(model_, "Tile", {std::move(tile)});
  Place(block);
  Place(block);
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    ArchiveBegin "Block_#0"
      ReadArchive "tree.rib"
    AttributeEnd

    AttributeBegin
      ConcatTransform [1 0 0 0  0 1 0 0  0 0 1 0  0 0 0 1]
      ArchiveInstance "Block_#0"
    AttributeEnd
)");
}

TEST_F(BlockTest, SoDoesAReplacedMeshWhateverItsMaterial) {
  UseMaterials();
  ONX_ModelObject tile = WithMaterial(ObjectOf(SquareMesh()), 0, ON_AttributeSource::parent);
  tile.m_attributes.SetUserString("OrvMeshFile", "tree");
  tile.m_attributes.SetUserString("OrvUseMeshFile", "bakeanduse");
  Place(AddBlock(model_, "Tile", {std::move(tile)}));
  model_.m_object_table.push_back(SquareSurface());
  const std::string text = Walk();
  EXPECT_THAT(text, testing::StartsWith("\n  AttributeBegin\n    ArchiveBegin \"Block_#0\"\n"
                                        "      ReadArchive \"tree"));
  EXPECT_THAT(text, HasSubstr("\"\n    AttributeEnd\n\n    AttributeBegin\n"));
  EXPECT_THAT(text, testing::EndsWith(SquarePatch(6) + "    AttributeEnd\n"));
  EXPECT_EQ(CountOf(text, "Archive"), 2u);
}

TEST_F(BlockTest, BlocksInBlocksAreFlat) {
  const ON_UUID leaf = AddBlock(model_, "Leaf", {SquareSurface()});
  const ON_UUID branch = AddBlock(
      model_, "Branch",
      {PlacementOf(leaf, TranslationBy(0, 1, 0)), PlacementOf(leaf, TranslationBy(0, 2, 0))});
  Place(branch, ScalingBy(3));
  EXPECT_EQ(Walk(), R"(
  AttributeBegin
    ArchiveBegin "Block_#0"
)" + SquarePatch(6) + R"(    ArchiveEnd
    ConcatTransform [3 0 0 0  0 3 0 0  0 0 3 0  0 3 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd

  AttributeBegin
    ConcatTransform [3 0 0 0  0 3 0 0  0 0 3 0  0 6 0 1]
    ArchiveInstance "Block_#0"
  AttributeEnd
)");
}

TEST_F(BlockTest, HiddenPlacementsAndWhatABlockHidesAreNotWritten) {
  ONX_ModelObject hidden = SquareSurface();
  hidden.m_attributes.m_visible = false;
  const ON_UUID block = AddBlock(model_, "Tile", {SquareSurface(), std::move(hidden)});
  Place(block);
  model_.m_object_table.back().m_attributes.m_mode = ON_ObjectMode::hidden;
  Place(block);
  const std::string text = Walk();
  EXPECT_EQ(CountOf(text, "AttributeBegin"), 1u);
}

TEST_F(BlockTest, AMemberThatIsNotReadIsPassedOver) {
  ONX_ModelObject unread;
  unread.m_object_type = static_cast<unsigned>(ON_ObjectType::hatch);
  Place(AddBlock(model_, "Tile", {std::move(unread), SquareSurface()}));
  EXPECT_EQ(CountOf(Walk(), "AttributeBegin"), 1u);
}

TEST_F(BlockTest, APlacementWithoutItsBlockWritesNothing) {
  Place("11111111-2222-4333-8444-555555555551"_uuid);
  EXPECT_EQ(Walk(), "");
  EXPECT_EQ(messages_, "");
}

TEST_F(BlockTest, ABlockThatContainsItselfIsToldOnce) {
  const ON_UUID block = AddBlock(model_, "Snake", {SquareSurface(), PlacementOf({})});
  model_.m_object_table[1].m_geometry = PlacementOf(block).m_geometry;
  Place(block);
  Place(block);
  model_.m_object_table.push_back(ObjectOf(SquareMesh()));
  EXPECT_EQ(Walk(), "\n  AttributeBegin\n" + SquarePolygon(4) + "  AttributeEnd\n");
  EXPECT_EQ(messages_, "Not exported: block \"Snake\" contains itself or a block that does.\n");
}

TEST_F(BlockTest, ManyBlocksThatCannotBeShownAreCounted) {
  for (int i = 0; i < 13; ++i) {
    const ON_UUID block = AddBlock(model_, "Snake", {PlacementOf({})});
    model_.m_object_table.back().m_geometry = PlacementOf(block).m_geometry;
    Place(block);
    Place(block);
  }
  EXPECT_EQ(Walk(), "");
  EXPECT_EQ(CountOf(messages_, "Not exported: "), 10u);
  EXPECT_THAT(messages_, testing::EndsWith("... and 3 more blocks.\n"));
}

// Each placement for itself could be shown.
TEST_F(BlockTest, ABlockIsNotPlacedBeyondTheLongestList) {
  const ON_UUID block = AddBlock(model_, "Snow", {SquareSurface(), SquareSurface()});
  for (int i = 0; i < 5; ++i) Place(block);
  model_.m_object_table.push_back(SquareSurface());
  doc_.SetModel(std::move(model_), "");
  const auto records = orv::FlattenObjects(orv::GatherObjects(doc_, false, settings_), 7);
  ASSERT_EQ(records.size(), 7u);
  EXPECT_FALSE(records.back().IsPiece);
  EXPECT_EQ(messages_, "Not exported: block \"Snow\" is placed too often.\n");
}

TEST_F(BlockTest, PlainObjectsAreNoArchives) {
  AddBlock(model_, "Unused", {SquareSurface()});
  model_.m_object_table.push_back(SquareSurface());
  EXPECT_THAT(Walk(), Not(HasSubstr("Archive")));
  EXPECT_THAT(blocks_.InOrder(), IsEmpty());
}

TEST(BlockIds, KeepsTheOrderOfFirstUse) {
  orv::BlockIds ids;
  EXPECT_TRUE(ids.Add(7));
  EXPECT_TRUE(ids.Add(3));
  EXPECT_FALSE(ids.Add(7));
  EXPECT_TRUE(ids.Contains(3));
  EXPECT_FALSE(ids.Contains(4));
  EXPECT_THAT(ids.InOrder(), ElementsAre(7, 3));
}

class BlockExportTest : public ExportTest {
 protected:
  BlockExportTest() {
    const ON_UUID block = AddBlock(model_, "Tile", {SquareSurface(), ObjectOf(SquareMesh())});
    for (int i = 0; i < 2; ++i) model_.m_object_table.push_back(PlacementOf(block));
    Open();
  }
  std::string Number(std::size_t object) {
    return std::to_string(doc_.Objects()[object]->RuntimeSerialNumber());
  }
};

TEST_F(BlockExportTest, ArchivesAreFreedBeforeTheWorldEnds) {
  const std::string rib = Rib();
  EXPECT_THAT(rib,
              testing::EndsWith("  AttributeEnd\n\n  FreeArchive \"Block_" + Number(0) +
                                "\"\n  FreeArchive \"Block_" + Number(1) + "\"\n\nWorldEnd\n"));
}

TEST_F(BlockExportTest, AFileOfObjectsAloneKeepsItsArchives) {
  settings_.ArchiveOnly = true;
  const std::string rib = Rib();
  EXPECT_THAT(rib,
              testing::EndsWith("ArchiveInstance \"Block_" + Number(1) + "\"\nAttributeEnd\n"));
  EXPECT_THAT(rib, Not(HasSubstr("FreeArchive")));
}

TEST_F(BlockExportTest, AFileWithoutBlocksFreesNone) {
  model_.m_object_table = {SquareSurface()};
  model_.m_settings.m_views = {PerspectiveView()};
  Open();
  EXPECT_THAT(Rib(), Not(HasSubstr("FreeArchive")));
}

TEST_F(BlockExportTest, EachExportDefinesTheArchivesAgain) {
  EXPECT_THAT(Rib(), HasSubstr("ArchiveBegin"));
  EXPECT_THAT(Rib(), HasSubstr("ArchiveBegin"));
}

TEST_F(BlockExportTest, AnInteractiveExportWritesArchives) {
  const orv::IprSettings ipr;
  iprSettings_ = &ipr;
  const std::string rib = Rib();
  EXPECT_EQ(CountOf(rib, "ArchiveBegin"), 2u);
  EXPECT_EQ(CountOf(rib, "ArchiveInstance"), 4u);
  EXPECT_EQ(CountOf(rib, "FreeArchive"), 2u);
}

}  // namespace
