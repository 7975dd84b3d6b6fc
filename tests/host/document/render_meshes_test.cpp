#include "host/document/render_meshes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/document/app.h"
#include "host/document/doc.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/system/interrupt.h"
#include "model_parts.h"
#include "support/brep_shapes.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A mesh that a document might hold, of one triangle.
std::shared_ptr<const ON_Mesh> HeldMesh() {
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  return mesh;
}

// A surface that can't be meshed: a point.
std::shared_ptr<const ON_Surface> PointSurface() {
  auto surface = std::make_shared<ON_NurbsSurface>();
  surface->Create({2, 2}, {{{0, 1}, {0, 1}}}, ON_SimpleArray<ON_4dPoint>(4, {1, 1, 1, 1}), false);
  return surface;
}

class RenderMeshesTest : public testing::Test {
 protected:
  RenderMeshesTest() {
    RhinoApp().CommandWindow().SetSink([this](std::string_view text) { printed_ += text; });
  }
  ~RenderMeshesTest() override { RhinoApp().CommandWindow().SetSink({}); }

  void Add(std::shared_ptr<ON_Geometry> geometry, std::string name = "") {
    ONX_ModelObject& object = model_.m_object_table.emplace_back();
    object.m_attributes.m_uuid = TestId(static_cast<unsigned>(model_.m_object_table.size()));
    object.m_attributes.m_name = std::move(name);
    object.m_geometry = std::move(geometry);
  }

  // The meshes of all objects of the document that was added up.
  std::vector<CRhinoObjRef> Get() {
    if (objects_.empty()) {
      doc_.SetModel(std::move(model_), "");
      for (const auto& object : doc_.Objects()) objects_.push_back(object.get());
    }
    return Get(objects_);
  }
  std::vector<CRhinoObjRef> Get(std::span<const CRhinoObject* const> objects) {
    std::vector<CRhinoObjRef> meshes;
    const int count = RhinoGetRenderMeshes(objects, meshes);
    EXPECT_EQ(count, static_cast<int>(meshes.size()));
    return meshes;
  }

  ONX_Model model_;
  CRhinoDoc doc_;
  std::vector<const CRhinoObject*> objects_;
  std::string printed_;
};

TEST_F(RenderMeshesTest, AreThoseOfTheDocumentWhereItHasThem) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  std::vector<const ON_Mesh*> held;
  for (ON_BrepFace& face : box->m_F) {
    face.m_render_mesh = HeldMesh();
    held.push_back(face.m_render_mesh.get());
  }
  Add(box);
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 6u);
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(meshes[i].Mesh(), held[i]);
    EXPECT_EQ(&meshes[i].Object(), objects_[0]);
  }
}

TEST_F(RenderMeshesTest, AreMadeForTheFacesThatLackThem) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  box->m_F[1].m_render_mesh = box->m_F[4].m_render_mesh = HeldMesh();
  const ON_Mesh* held = box->m_F[1].m_render_mesh.get();
  Add(box);
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 6u);
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(meshes[i].Mesh() == held, i == 1 || i == 4) << i;
    EXPECT_EQ(meshes[i].Mesh()->FaceCount(), i == 1 || i == 4 ? 1 : 2) << i;
  }
  EXPECT_EQ(printed_, "");
}

TEST_F(RenderMeshesTest, AreKeptWithTheObject) {
  Add(MakeBoxBrep({{0, 0, 0}, {4, 4, 4}}));
  const auto first = Get();
  const auto second = Get();
  ASSERT_EQ(first.size(), 6u);
  ASSERT_EQ(second.size(), 6u);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(first[i].Mesh(), second[i].Mesh());
}

TEST_F(RenderMeshesTest, FollowTheSettingsOfTheDocument) {
  model_.m_settings.m_render_mesh.m_max_edge_length = 1;
  Add(MakeBoxBrep({{0, 0, 0}, {4, 4, 4}}));
  EXPECT_GE(Get().at(0).Mesh()->FaceCount(), 32);
}

TEST_F(RenderMeshesTest, ComeInTheOrderOfTheObjects) {
  for (int i = 1; i <= 40; ++i) Add(MakeBoxBrep({{0, 0, 0}, {1.0 * i, 4, 4}}));
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 240u);
  for (std::size_t i = 0; i < meshes.size(); ++i) EXPECT_EQ(&meshes[i].Object(), objects_[i / 6]);
}

TEST_F(RenderMeshesTest, ComeAsOftenAsAnObjectIsNamed) {
  Add(MakeBoxBrep({{0, 0, 0}, {4, 4, 4}}));
  ASSERT_EQ(Get().size(), 6u);
  const CRhinoObject* twice[] = {objects_[0], objects_[0]};
  EXPECT_EQ(Get(twice).size(), 12u);
}

TEST_F(RenderMeshesTest, OfASurfaceAreMade) {
  auto plane = std::make_shared<ON_PlaneSurface>();
  Add(plane);
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 1u);
  EXPECT_EQ(meshes[0].Mesh()->FaceCount(), 2);
}

std::shared_ptr<ON_Extrusion> SmallExtrusion() {
  auto extrusion = std::make_shared<ON_Extrusion>();
  extrusion->m_profile_count = 1;
  extrusion->m_profile = std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{3, 0, 0});
  return extrusion;
}

TEST_F(RenderMeshesTest, OfAnExtrusionAreMadeOfItsFaces) {
  Add(SmallExtrusion());
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 1u);
  EXPECT_EQ(meshes[0].Mesh()->FaceCount(), 2);
}

TEST_F(RenderMeshesTest, OfAnExtrusionAreThoseOfTheDocument) {
  const auto extrusion = SmallExtrusion();
  extrusion->m_render_mesh = HeldMesh();
  Add(extrusion);
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 1u);
  EXPECT_EQ(meshes[0].Mesh(), extrusion->m_render_mesh.get());
}

TEST_F(RenderMeshesTest, OfAMeshAreItself) {
  auto mesh = std::make_shared<ON_Mesh>(*HeldMesh());
  Add(mesh);
  const auto meshes = Get();
  ASSERT_EQ(meshes.size(), 1u);
  EXPECT_EQ(meshes[0].Mesh(), mesh.get());
}

TEST_F(RenderMeshesTest, OfACurveAreNone) {
  Add(std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0}));
  EXPECT_THAT(Get(), IsEmpty());
  EXPECT_EQ(printed_, "");
}

TEST_F(RenderMeshesTest, LeaveOutAFaceThatFailsAndTellIt) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  box->m_S[2] = PointSurface();
  Add(box, "lid");
  EXPECT_EQ(Get().size(), 5u);
  EXPECT_EQ(printed_, "1 face of brep \"lid\" could not be meshed.\n");
  // Once is enough.
  EXPECT_EQ(Get().size(), 5u);
  EXPECT_EQ(printed_, "1 face of brep \"lid\" could not be meshed.\n");
}

TEST_F(RenderMeshesTest, NameAnObjectWithoutANameByItsNumber) {
  std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  box->m_S[2] = box->m_S[3] = PointSurface();
  // Of a face that has its mesh nothing is told.
  box->m_F[3].m_render_mesh = HeldMesh();
  box->m_S[5] = PointSurface();
  Add(box);
  EXPECT_EQ(Get().size(), 4u);
  EXPECT_EQ(printed_, "2 faces of brep " + std::to_string(objects_[0]->RuntimeSerialNumber()) +
                          " could not be meshed.\n");
}

TEST_F(RenderMeshesTest, TellOfAnObjectWithoutFaces) {
  const auto extrusion = SmallExtrusion();
  extrusion->m_profile = std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{0, 0, 0});
  Add(extrusion, "rod");
  EXPECT_THAT(Get(), IsEmpty());
  EXPECT_EQ(printed_, "No render mesh could be made of extrusion \"rod\".\n");
}

TEST_F(RenderMeshesTest, TellInTheOrderOfTheObjects) {
  for (const char* const name : {"a", "b", "c", "d"}) {
    std::shared_ptr<ON_Brep> box = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
    box->m_S[2] = PointSurface();
    Add(box, name);
  }
  Get();
  EXPECT_EQ(printed_,
            "1 face of brep \"a\" could not be meshed.\n"
            "1 face of brep \"b\" could not be meshed.\n"
            "1 face of brep \"c\" could not be meshed.\n"
            "1 face of brep \"d\" could not be meshed.\n");
}

TEST_F(RenderMeshesTest, AreNotKeptWhenInterrupted) {
  Add(MakeBoxBrep({{0, 0, 0}, {4, 4, 4}}));
  host::RequestInterrupt();
  EXPECT_THAT(Get(), IsEmpty());
  host::ClearInterrupt();
  EXPECT_EQ(printed_, "");
  EXPECT_EQ(Get().size(), 6u);
}

TEST_F(RenderMeshesTest, OfSeveralObjectsTellHowFarTheyAre) {
  std::vector<std::string> told;
  RhinoApp().CommandWindow().SetProgressSink([&told](const host::Progress* progress) {
    told.push_back(progress == nullptr ? "end" : std::string(progress->Task));
    if (progress == nullptr) return;
    EXPECT_EQ(progress->Total, 3u);
    EXPECT_LE(progress->Done, 3u);
    EXPECT_EQ(progress->Bytes, 0u);
  });
  for (double z : {0.0, 10.0, 20.0}) Add(MakeBoxBrep({{0, 0, z}, {4, 4, z + 4}}));
  EXPECT_EQ(Get().size(), 18u);
  ASSERT_GE(told.size(), 2u);
  EXPECT_EQ(told.front(), "Meshing");
  EXPECT_EQ(told.back(), "end");
  // What is kept, and one object alone, are part of another job.
  told.clear();
  EXPECT_EQ(Get().size(), 18u);
  EXPECT_EQ(Get({objects_.data(), 1}).size(), 6u);
  EXPECT_THAT(told, IsEmpty());
  RhinoApp().CommandWindow().SetProgressSink({});
}

}  // namespace
