#include "export/render_mesh_rule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/document/app.h"
#include "support/brep_shapes.h"
#include "walk_fixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

enum : int { kNurbs = 0, kAsNeeded = 1, kMesh = 2 };
constexpr ON_UUID kOtherRenderer = "11111111-2222-4333-8444-555555555551"_uuid;

std::shared_ptr<ON_Brep> Box() {
  return MakeBoxBrep({{0, 0, 0}, {1, 1, 1}});
}

// A mesh whose texture fills the unit square, or a part of it.
std::shared_ptr<ON_Mesh> RenderMesh(bool isPacked) {
  auto mesh = SquareMesh();
  mesh->m_srf_scale = {1, 1};
  mesh->m_packed_tex_domain = {ON_Interval{0, isPacked ? 0.5 : 1}, ON_Interval{0, 1}};
  EXPECT_EQ(mesh->HasPackedTextureRegion(), isPacked);
  return mesh;
}

// Asks the rule. As the scene decides, about a box without render meshes whose material needs one,
// where the host would unpack meshes.
class RenderMeshRule : public testing::Test {
 protected:
  RenderMeshRule() {
    settings_.RenderMesh = kAsNeeded;
    quality_.m_texture_range = 1;
  }

  bool IsMesh() {
    ONX_Model model;
    model.m_object_table = {ObjectOf(brep_)};
    model.m_object_table[0].m_attributes.m_mapping_refs = mappings_;
    doc_.SetModel(std::move(model), "");
    return orv::IsWrittenAsMesh(*doc_.Objects()[0], *brep_, attributes_, settings_,
                                wantsRenderMesh_, quality_);
  }
  void UseMesh(std::size_t face, bool isPacked) {
    brep_->m_F[face].m_render_mesh = RenderMesh(isPacked);
  }
  void UseSingleSurface() { brep_ = SquareSurface().m_geometry->BrepForm(); }

  CRhinoDoc doc_;
  std::shared_ptr<ON_Brep> brep_ = Box();
  std::vector<ON_MappingRef> mappings_;
  orv::ObjectAttributes attributes_;
  orv::RenderSettings settings_;
  bool wantsRenderMesh_ = true;
  ON_MeshParameters quality_;
};

TEST_F(RenderMeshRule, TheObjectsYesComesFirst) {
  attributes_.RenderMesh = kMesh;
  settings_.RenderMesh = kNurbs;
  wantsRenderMesh_ = false;
  EXPECT_TRUE(IsMesh());
}

TEST_F(RenderMeshRule, TheObjectsNoComesFirst) {
  attributes_.RenderMesh = kNurbs;
  settings_.RenderMesh = kMesh;
  EXPECT_FALSE(IsMesh());
}

TEST_F(RenderMeshRule, TheSceneAsksForMeshesOrNurbsEverywhere) {
  settings_.RenderMesh = kMesh;
  wantsRenderMesh_ = false;
  EXPECT_TRUE(IsMesh());
  settings_.RenderMesh = kNurbs;
  wantsRenderMesh_ = true;
  UseMesh(0, true);
  EXPECT_FALSE(IsMesh());
}

TEST_F(RenderMeshRule, AMaterialThatNeedsNoMeshGivesNurbs) {
  wantsRenderMesh_ = false;
  UseMesh(0, true);
  mappings_ = {{.m_plugin_id = RhinoApp().GetDefaultRenderApp(), .m_mapping_id = {}}};
  EXPECT_FALSE(IsMesh());
}

TEST_F(RenderMeshRule, APackedMeshGivesAMesh) {
  UseMesh(0, true);
  EXPECT_TRUE(IsMesh());
}

TEST_F(RenderMeshRule, TheFirstMeshDecides) {
  UseMesh(1, false);
  UseMesh(2, true);
  quality_.m_texture_range = 2;
  EXPECT_FALSE(IsMesh());
}

TEST_F(RenderMeshRule, WithoutMeshesTheHostsParametersDecide) {
  EXPECT_FALSE(IsMesh());
  quality_.m_texture_range = 2;
  EXPECT_TRUE(IsMesh());
}

TEST_F(RenderMeshRule, ASingleSurfaceWithoutMeshesIsNotPacked) {
  UseSingleSurface();
  quality_.m_texture_range = 2;
  EXPECT_FALSE(IsMesh());
  UseMesh(0, true);
  EXPECT_TRUE(IsMesh());
}

TEST_F(RenderMeshRule, ATextureMappingOfTheHostsRendererGivesAMesh) {
  mappings_ = {{.m_plugin_id = kOtherRenderer, .m_mapping_id = {}}};
  EXPECT_FALSE(IsMesh());
  mappings_.push_back({.m_plugin_id = RhinoApp().GetDefaultRenderApp(), .m_mapping_id = {}});
  EXPECT_TRUE(IsMesh());
  UseSingleSurface();
  EXPECT_TRUE(IsMesh());
  UseMesh(0, false);
  EXPECT_TRUE(IsMesh());
}

TEST_F(RenderMeshRule, TheHostPacksTheTexturesOfMeshesOfHighQuality) {
  const ON_MeshParameters& quality =
      RhinoApp().AppSettings().RenderMeshSettings().QualityMeshParameters();
  EXPECT_EQ(quality.m_texture_range, 2);
}

using SurfaceAsMesh = WalkTest;

TEST_F(SurfaceAsMesh, EachRenderMeshIsAStatement) {
  const std::shared_ptr<ON_Brep> box = Box();
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = SquareMesh();
  settings_.RenderMesh = kMesh;
  model_.m_object_table = {ObjectOf(box)};
  std::string polygons;
  for (int i = 0; i < 6; ++i) polygons += SquarePolygon(4);
  EXPECT_EQ(Walk(), "\n  AttributeBegin\n" + polygons + "  AttributeEnd\n");
}

TEST_F(SurfaceAsMesh, AMeshWithoutFacesIsLeftOut) {
  const std::shared_ptr<ON_Brep> box = Box();
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = SquareMesh();
  const auto empty = SquareMesh();
  empty->m_F.clear();
  box->m_F[3].m_render_mesh = empty;
  settings_.RenderMesh = kMesh;
  model_.m_object_table = {ObjectOf(box)};
  std::string polygons;
  for (int i = 0; i < 5; ++i) polygons += SquarePolygon(4);
  EXPECT_EQ(Walk(), "\n  AttributeBegin\n" + polygons + "  AttributeEnd\n");
}

TEST_F(SurfaceAsMesh, IsWeldedWhereTheObjectSaysAndNeverSubdivided) {
  const std::shared_ptr<ON_Brep> box = Box();
  const auto mesh = SquareMesh();
  mesh->m_V[3] = mesh->m_V[0];
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = mesh;
  model_.m_object_table = {ObjectOf(box)};
  for (const char* const key : {"OrvRenderMesh", "OrvWeldPolyVerts", "OrvSubdivisionMesh"}) {
    model_.m_object_table[0].m_attributes.SetUserString(key, "yes");
  }
  const std::string text = Walk();
  EXPECT_THAT(text, HasSubstr("    # Welded - reduced 4 vertices to 3\n    PointsPolygons [ 4 ]"));
  EXPECT_THAT(text, Not(HasSubstr("SubdivisionMesh")));
}

TEST_F(SurfaceAsMesh, ABakeOfMapsNeedsMeshes) {
  settings_.RenderMesh = kAsNeeded;
  settings_.BakeEnable = true;
  settings_.WriteMaterials = true;
  const std::shared_ptr<ON_Brep> box = Box();
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = RenderMesh(true);
  model_.m_object_table = {ObjectOf(box)};
  const std::vector<ONX_ModelObject> objects = model_.m_object_table;
  EXPECT_THAT(Walk(), HasSubstr("PointsPolygons"));
  model_.m_object_table = objects;
  settings_.BakeMesh = true;
  EXPECT_THAT(Walk(), HasSubstr("NuPatch"));
}

TEST_F(SurfaceAsMesh, WithoutMaterialsAMeshIsNeeded) {
  settings_.RenderMesh = kAsNeeded;
  const std::shared_ptr<ON_Brep> box = Box();
  for (ON_BrepFace& face : box->m_F) face.m_render_mesh = RenderMesh(true);
  model_.m_object_table = {ObjectOf(box)};
  const std::vector<ONX_ModelObject> objects = model_.m_object_table;
  EXPECT_THAT(Walk(), HasSubstr("PointsPolygons"));
  model_.m_object_table = objects;
  settings_.WriteMaterials = true;
  EXPECT_THAT(Walk(), HasSubstr("NuPatch"));
}

}  // namespace
