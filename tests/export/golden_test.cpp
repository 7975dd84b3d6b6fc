#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "export_fixture.h"
#include "support/rib_checker.h"

namespace {

// A square with everything that a mesh can carry.
std::shared_ptr<ON_Mesh> FullMesh() {
  auto mesh = SquareMesh(1);
  mesh->m_V.push_back({0.5F, 1.5F, 1});
  mesh->m_F.push_back({{3, 2, 4, 4}});
  mesh->m_N.assign(mesh->m_V.size(), ON_3fVector{0, 0, 1});
  mesh->m_T = {{0, 0}, {1, 0}, {1, 0.75F}, {0, 0.75F}, {0.5F, 1}};
  mesh->m_C = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}, {51, 51, 51}};
  return mesh;
}

// Two squares that meet in an edge whose vertices are doubled.
std::shared_ptr<ON_Mesh> SeamedMesh() {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 2}, {1, 0, 2}, {1, 1, 2}, {0, 1, 2},
               {1, 0, 2}, {2, 0, 2}, {2, 1, 2}, {1, 1, 2}};
  mesh->m_F = {{{0, 1, 2, 3}}, {{4, 5, 6, 7}}};
  mesh->m_N.assign(mesh->m_V.size(), ON_3fVector{0, 0, 1});
  mesh->m_T = {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}, {0, 1}};
  return mesh;
}

std::shared_ptr<ON_Mesh> MeshWithoutFaces() {
  auto mesh = SquareMesh();
  mesh->m_F.clear();
  return mesh;
}

ONX_ModelObject WithString(ONX_ModelObject object, std::string_view key, std::string_view value) {
  object.m_attributes.SetUserString(key, value);
  return object;
}

class GoldenTest : public ExportTest {
 protected:
  GoldenTest() {
    model_.m_settings.m_model_units.m_unit_system = ON_UnitSystem::centimeters;
    model_.m_object_table = {
        ObjectOf(FullMesh()),
        WithString(ObjectOf(SeamedMesh()), "OrvWeldPolyVerts", "Yes"),
        WithString(ObjectOf(SeamedMesh()), "OrvSubdivisionMesh", "Yes"),
        ObjectOf(MeshWithoutFaces()),
        HiddenObjectOf(SquareMesh()),
    };
    model_.m_light_table = {PointLight()};
    Open();
    settings_.FrameNumber = 7;
    settings_.AbsoluteTolerance = true;
    settings_.SharpFilter = true;
    settings_.Zmax = 100;
    settings_.ImageName = "out\\all.tif";
    settings_.RenderToFile = true;
    settings_.UseExtraChannels = true;
    settings_.ReflectChannels = true;
    settings_.ExtraChannels = "Diffuse Depth Lights";
    settings_.ImagePrecision = 1;
    settings_.TileOrder = "Spiral";
    settings_.ImageWidth = 320;
    settings_.ImageHeight = 240;
    settings_.UseCropWindow = true;
    settings_.Enlarge = true;
    settings_.StereoEnable = true;
    settings_.DofEnable = true;
    settings_.AnimMode = 1;
  }

  void ExpectGolden(std::string_view name) {
    ASSERT_EQ(ExportTo(folder_.File("all.rib")), 1) << messages_;
    const std::string rib = WithoutFolderAndDate(FileContent(folder_.File("all_0007.rib")));
    EXPECT_THAT(CheckRib(rib).Complaints, testing::IsEmpty());
    const std::filesystem::path golden =
        std::filesystem::path(ORV_TEST_FOLDER) / "golden" / std::string(name);
    if (std::getenv("ORV_UPDATE_GOLDEN") != nullptr) WriteFileContent(golden, rib);
    EXPECT_EQ(rib, FileContent(golden));
  }
};

TEST_F(GoldenTest, PerspectiveView) {
  ExpectGolden("perspective.rib");
}

TEST_F(GoldenTest, ParallelView) {
  settings_.ViewName = "Plan";
  settings_.Enlarge = false;
  settings_.SingleImageFile = true;
  ExpectGolden("parallel.rib");
}

}  // namespace
