#include "export/attribute_block.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export_fixture.h"

namespace {

using testing::IsEmpty;

class AttributeBlockTest : public ExportTest {
 protected:
  AttributeBlockTest() {
    model_.m_object_table = {ObjectOf(SquareMesh())};
    model_.m_object_table[0].m_attributes.m_uuid = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;
    Open();
  }

  // The block of an object with the attributes; whether an archive replaces it is in isReplaced_.
  std::string Block() {
    return Written([this](orv::RibWriter& writer) {
      isReplaced_ = orv::WriteAttributeBlock(writer, *doc_.Objects()[0], attributes_, settings_);
    });
  }

  orv::ObjectAttributes attributes_;
  bool isReplaced_ = false;
};

TEST_F(AttributeBlockTest, OfDefaultsIsEmpty) {
  EXPECT_THAT(Block(), IsEmpty());
  EXPECT_FALSE(isReplaced_);
}

TEST_F(AttributeBlockTest, HasItsStatementsInTheirOrder) {
  settings_.Outline = true;
  settings_.InkWidth = 0.5;
  settings_.RhinoGamma = 2;
  attributes_ = {.VisibleToCamera = false,
                 .Reflected = false,
                 .CastShadow = false,
                 .UseLineWidth = true,
                 .UseLineColor = true,
                 .UseFlatness = true,
                 .BackFace = false,
                 .Changed = {},
                 .LineColor = {255, 128, 0},
                 .LineWidth = 3,
                 .Flatness = 0.25,
                 .CurveType = 1,
                 .ArchiveMode = 1,
                 .UseMeshFile = 1,
                 .Archive = "C:\\ribs\\tree.rib",
                 .MeshFile = "C:\\meshes\\tree.obj"};
  EXPECT_EQ(Block(),
            "Attribute \"visibility\" \"integer camera\" [0]\n"
            "Attribute \"visibility\" \"integer trace\" [0]\n"
            "Attribute \"visibility\" \"integer transmission\" [0]\n"
            "Sides 1\n"
            "Attribute \"toon\" \"float inkwidth\" [1.5]\n"
            "Attribute \"toon\" \"color ink\" [1 0.25098 0]\n"
            "GeometricApproximation \"flatness\" [0.25]\n"
            "Attribute \"curve\" \"string type\" \"polyline\"\n"
            "ReadArchive \"C:/ribs/tree.rib\"\n"
            "Attribute \"render\" \"string meshfile\" \"C:/meshes/tree.obj\"\n");
  EXPECT_FALSE(isReplaced_);
}

TEST_F(AttributeBlockTest, WithoutOutlinesThereIsNoInk) {
  attributes_.UseLineWidth = attributes_.UseLineColor = true;
  EXPECT_THAT(Block(), IsEmpty());
}

TEST_F(AttributeBlockTest, NamesEachKindOfCurve) {
  attributes_.CurveType = 2;
  EXPECT_EQ(Block(), "Attribute \"curve\" \"string type\" \"ribbon\"\n");
  attributes_.CurveType = 3;
  EXPECT_EQ(Block(), "Attribute \"curve\" \"string type\" \"tube\"\n");
}

TEST_F(AttributeBlockTest, AnArchiveIsInsertedOrReplacesTheObject) {
  attributes_.Archive = "tree.rib";
  EXPECT_THAT(Block(), IsEmpty());
  attributes_.ArchiveMode = 1;
  EXPECT_EQ(Block(), "ReadArchive \"tree.rib\"\n");
  EXPECT_FALSE(isReplaced_);
  attributes_.ArchiveMode = 2;
  EXPECT_EQ(Block(), "ReadArchive \"tree.rib\"\n");
  EXPECT_TRUE(isReplaced_);
  attributes_.Archive = "";
  EXPECT_THAT(Block(), IsEmpty());
  EXPECT_FALSE(isReplaced_);
}

TEST_F(AttributeBlockTest, AReplacementStandsBesideAMeshFile) {
  attributes_.Archive = "tree.rib";
  attributes_.ArchiveMode = 2;
  attributes_.MeshFile = "tree.obj";
  attributes_.UseMeshFile = 1;
  EXPECT_EQ(Block(),
            "ReadArchive \"tree.rib\"\n"
            "Attribute \"render\" \"string meshfile\" \"tree.obj\"\n");
  EXPECT_TRUE(isReplaced_);
}

TEST_F(AttributeBlockTest, AMeshFileOfABakeIsWrittenInABakeAlone) {
  attributes_.MeshFile = "tree.obj";
  attributes_.UseMeshFile = 2;
  EXPECT_THAT(Block(), IsEmpty());
  settings_.BakeEnable = true;
  EXPECT_EQ(Block(), "Attribute \"render\" \"string meshfile\" \"tree.obj\"\n");
  EXPECT_FALSE(isReplaced_);
}

TEST_F(AttributeBlockTest, ABakedMeshIsWrittenInABakeAndReadElsewhere) {
  attributes_.MeshFile = "C:\\meshes\\tree.rib";
  attributes_.UseMeshFile = 3;
  const std::string name = "C:/meshes/tree_7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4.rib";
  EXPECT_EQ(Block(), "ReadArchive \"" + name + "\"\n");
  EXPECT_TRUE(isReplaced_);
  settings_.BakeEnable = true;
  EXPECT_EQ(Block(), "Attribute \"render\" \"string meshfile\" \"" + name + "\"\n");
  EXPECT_FALSE(isReplaced_);
}

TEST_F(AttributeBlockTest, ABakeOfTheSelectionLeavesOutOtherMeshFiles) {
  attributes_.MeshFile = "tree.obj";
  attributes_.UseMeshFile = 1;
  settings_.BakeEnable = settings_.Selected = true;
  EXPECT_THAT(Block(), IsEmpty());
  doc_.Objects()[0]->Select();
  EXPECT_EQ(Block(), "Attribute \"render\" \"string meshfile\" \"tree.obj\"\n");
  settings_.BakeEnable = false;
  doc_.Objects()[0]->Select(false);
  EXPECT_EQ(Block(), "Attribute \"render\" \"string meshfile\" \"tree.obj\"\n");
}

TEST_F(AttributeBlockTest, ALongMeshFileNameIsCut) {
  attributes_.MeshFile = std::string(1200, 'm');
  attributes_.UseMeshFile = 1;
  EXPECT_EQ(Block(),
            "Attribute \"render\" \"string meshfile\" \"" + std::string(1000, 'm') + "\"\n");
}

TEST_F(AttributeBlockTest, AFileNameCannotEndItsString) {
  attributes_.Archive = "a\"\nWorldEnd.rib";
  attributes_.ArchiveMode = 1;
  EXPECT_EQ(Block(), "ReadArchive \"a\\\"\\012WorldEnd.rib\"\n");
}

// The group line of an object in the groups with the indices.
class GroupsTest : public ExportTest {
 protected:
  std::string Groups(std::vector<int> indices) {
    model_.m_object_table = {ObjectOf(SquareMesh())};
    model_.m_object_table[0].m_attributes.m_group = std::move(indices);
    model_.m_group_table = groups_;
    Open();
    return Written(
        [this](orv::RibWriter& writer) { orv::WriteGroups(writer, *doc_.Objects()[0], doc_); });
  }

  std::vector<ON_Group> groups_{{.m_id = {}, .m_name = "Name1", .m_index = 4},
                                {.m_id = {}, .m_name = "Name2", .m_index = 9},
                                {.m_id = {}, .m_name = "", .m_index = 2}};
};

TEST_F(GroupsTest, AreNamedInTheObjectsOrder) {
  EXPECT_EQ(Groups({4, 9}), "Attribute \"grouping\" \"string membership\" \"+Name1,Name2\"\n");
  EXPECT_EQ(Groups({9, 4}), "Attribute \"grouping\" \"string membership\" \"+Name2,Name1\"\n");
}

TEST_F(GroupsTest, WithoutANameWriteNothing) {
  EXPECT_THAT(Groups({}), IsEmpty());
  EXPECT_THAT(Groups({2}), IsEmpty());
  EXPECT_THAT(Groups({77}), IsEmpty());
  EXPECT_EQ(Groups({77, 4}), "Attribute \"grouping\" \"string membership\" \"+Name1\"\n");
}

TEST_F(GroupsTest, CannotEndTheString) {
  groups_[0].m_name = "a\"b";
  EXPECT_EQ(Groups({4}), "Attribute \"grouping\" \"string membership\" \"+a\\\"b\"\n");
}

}  // namespace
