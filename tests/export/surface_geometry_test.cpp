#include "export/surface_geometry.h"

#include <gtest/gtest.h>

#include "support/blocks.h"
#include "support/brep_shapes.h"
#include "walk_fixture.h"

namespace {

enum : int { kAsNeeded = 1, kMesh = 2 };

ONX_ModelObject Box() {
  return ObjectOf(std::shared_ptr<ON_Brep>(MakeBoxBrep({{0, 0, 0}, {1, 1, 1}})));
}

// The positions of the objects that have render meshes when a scene has been prepared.
class PrepareRenderMeshesTest : public testing::Test {
 protected:
  std::vector<std::size_t> Prepared(int renderMesh) {
    doc_.SetModel(model_, "");
    orv::RenderSettings settings;
    settings.RenderMesh = renderMesh;
    orv::PrepareRenderMeshes(orv::FlattenObjects(orv::GatherObjects(doc_, false, settings)),
                             settings);
    std::vector<std::size_t> prepared;
    for (std::size_t i = 0; i < doc_.Objects().size(); ++i) {
      if (doc_.Objects()[i]->KeptRenderMeshes()) prepared.push_back(i);
    }
    return prepared;
  }

  ONX_Model model_;
  CRhinoDoc doc_;
};

TEST_F(PrepareRenderMeshesTest, MakesThoseOfVisibleBreps) {
  model_.m_object_table = {Box(), HiddenObjectOf(Box().m_geometry), SquareSurface(),
                           ObjectOf(SquareMesh()), Box()};
  EXPECT_EQ(Prepared(kMesh), (std::vector<std::size_t>{0, 4}));
}

TEST_F(PrepareRenderMeshesTest, MakesThoseOfBrepsInBlocks) {
  const ON_UUID block = AddBlock(model_, "Boxes", {Box(), SquareSurface()});
  AddBlock(model_, "Unused", {Box()});
  for (int i = 0; i < 2; ++i) model_.m_object_table.push_back(PlacementOf(block));
  EXPECT_EQ(Prepared(kMesh), (std::vector<std::size_t>{0}));
}

TEST_F(PrepareRenderMeshesTest, MakesNoneUnlessTheSceneAsksForMeshesEverywhere) {
  model_.m_object_table = {Box()};
  EXPECT_EQ(Prepared(kAsNeeded), std::vector<std::size_t>());
}

}  // namespace
