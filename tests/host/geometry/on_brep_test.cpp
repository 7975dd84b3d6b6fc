#include "host/geometry/on_brep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "support/brep_shapes.h"

using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr ON_BoundingBox kBox{{0, 0, 0}, {1, 2, 3}};
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A plane brep with the natural boundary of its rectangle.
std::unique_ptr<ON_Brep> MakeRectangle() {
  ON_PlaneSurface surface;
  surface.m_domain[0] = {0, 4};
  surface.m_domain[1] = {0, 2};
  return surface.BrepForm();
}

void ExpectBox(const ON_BoundingBox& box, ON_3dPoint min, ON_3dPoint max) {
  EXPECT_LT(box.m_min.DistanceTo(min), 1e-12);
  EXPECT_LT(box.m_max.DistanceTo(max), 1e-12);
}

}  // namespace

TEST(Brep, IsAnObjectOfItsKind) {
  const auto brep = MakeBoxBrep(kBox);
  EXPECT_EQ(ON_ObjectType::brep, brep->ObjectType());
  EXPECT_TRUE(brep->HasBrepForm());
  EXPECT_EQ(brep.get(), ON_Brep::Cast(brep.get()));
  EXPECT_EQ(nullptr, ON_Brep::Cast(&brep->SurfaceOf(brep->m_F[0])));
}

TEST(Brep, ItsBrepFormIsACopyOfTheSameCurvesAndSurfaces) {
  const auto brep = MakeCylinderBrep(2, 5);
  const auto copy = brep->BrepForm();
  ASSERT_NE(nullptr, copy);
  EXPECT_TRUE(copy->IsValid());
  EXPECT_EQ(brep->m_C2, copy->m_C2);
  EXPECT_EQ(brep->m_C3, copy->m_C3);
  EXPECT_EQ(brep->m_S, copy->m_S);
  EXPECT_THAT(copy->m_F, SizeIs(3));
}

TEST(Brep, WholeOnesAreValid) {
  EXPECT_TRUE(MakeBoxBrep(kBox)->IsValid());
  EXPECT_TRUE(MakePlateBrep(5, 2)->IsValid());
  EXPECT_TRUE(MakeCylinderBrep(2, 5)->IsValid());
  EXPECT_TRUE(MakeRectangle()->IsValid());
  EXPECT_FALSE(ON_Brep().IsValid());
}

TEST(Brep, AWrongNameAnywhereMakesItInvalid) {
  const std::function<void(ON_Brep&)> kMistakes[] = {
      [](ON_Brep& b) { b.m_F[0].m_si = 6; },
      [](ON_Brep& b) { b.m_F[0].m_si = -1; },
      [](ON_Brep& b) { b.m_F[1].m_li = {0}; },
      [](ON_Brep& b) { b.m_F[1].m_li = {}; },
      [](ON_Brep& b) { b.m_F[1].m_li = {17}; },
      [](ON_Brep& b) { b.m_L[2].m_fi = 3; },
      [](ON_Brep& b) { b.m_L[2].m_fi = -1; },
      [](ON_Brep& b) { b.m_L[2].m_ti.clear(); },
      [](ON_Brep& b) { b.m_L[2].m_ti.pop_back(); },
      [](ON_Brep& b) { b.m_L[2].m_ti[1] = b.m_L[2].m_ti[0]; },
      [](ON_Brep& b) { b.m_T[7].m_li = 99; },
      [](ON_Brep& b) { b.m_T[7].m_ei = 12; },
      [](ON_Brep& b) { b.m_T[7].m_ei = -2; },
      [](ON_Brep& b) { b.m_T[7].m_ei = -1; },
      [](ON_Brep& b) { b.m_T[7].m_c2i = -1; },
      [](ON_Brep& b) { b.m_T[7].m_c2i = 24; },
      [](ON_Brep& b) { b.m_T[7].m_vi[1] = 8; },
      [](ON_Brep& b) { b.m_T[7].m_domain.Max += 1; },
      [](ON_Brep& b) {
        b.m_T[7].m_domain = {1, 0};
      },
      [](ON_Brep& b) { b.m_T[7].m_domain.Min = kNaN; },
      [](ON_Brep& b) { b.m_E[5].m_c3i = 12; },
      [](ON_Brep& b) { b.m_E[5].m_vi[0] = -1; },
      [](ON_Brep& b) { std::swap(b.m_E[5].m_vi, b.m_E[6].m_vi); },
      [](ON_Brep& b) { b.m_E[5].m_ti.pop_back(); },
      [](ON_Brep& b) { b.m_E[5].m_ti.push_back(0); },
      [](ON_Brep& b) { b.m_E[5].m_domain.Min -= 1; },
      [](ON_Brep& b) { b.m_V[3].m_ei.pop_back(); },
      [](ON_Brep& b) { b.m_V[3].m_ei.push_back(b.m_V[3].m_ei[0]); },
      [](ON_Brep& b) { b.m_V[3].m_ei[0] = 12; },
      [](ON_Brep& b) { b.m_V[3].point.y = kNaN; },
      [](ON_Brep& b) { b.m_C2[3] = nullptr; },
      [](ON_Brep& b) { b.m_C3[3] = nullptr; },
      [](ON_Brep& b) { b.m_S[3] = nullptr; },
  };
  const auto whole = MakeBoxBrep(kBox);
  for (std::size_t i = 0; i < std::size(kMistakes); ++i) {
    ON_Brep brep = *whole;
    kMistakes[i](brep);
    EXPECT_FALSE(brep.IsValid()) << i;
  }
}

TEST(Brep, FacesAreFoundByTheirPosition) {
  const auto brep = MakeBoxBrep(kBox);
  EXPECT_EQ(&brep->m_F[5], brep->Face(5));
  EXPECT_EQ(nullptr, brep->Face(6));
  EXPECT_EQ(nullptr, brep->Face(-1));
}

TEST(Brep, AFaceIsASurfaceWhenItsBoundaryIsTheSidesOfTheDomain) {
  const auto cylinder = MakeCylinderBrep(2, 5);
  EXPECT_TRUE(cylinder->FaceIsSurface(0));
  EXPECT_FALSE(cylinder->FaceIsSurface(1));
  EXPECT_FALSE(cylinder->FaceIsSurface(3));
  EXPECT_FALSE(cylinder->FaceIsSurface(-1));
  // It has sides for its outer loop, and a hole.
  EXPECT_FALSE(MakePlateBrep(5, 2)->FaceIsSurface(0));
  const auto box = MakeBoxBrep(kBox);
  EXPECT_TRUE(box->FaceIsSurface(5));
  box->m_T[box->m_T.size() - 2].m_iso = ON_BrepTrim::Iso::x;
  EXPECT_FALSE(box->FaceIsSurface(5));
}

TEST(Brep, IsASurfaceWhenItsOnlyFaceIs) {
  EXPECT_FALSE(MakeBoxBrep(kBox)->IsSurface());
  EXPECT_FALSE(MakePlateBrep(5, 2)->IsSurface());
  EXPECT_FALSE(ON_Brep().IsSurface());
  const auto brep = MakeRectangle();
  EXPECT_TRUE(brep->IsSurface());
  brep->m_F[0].m_bRev = true;
  EXPECT_TRUE(brep->IsSurface());
}

TEST(Brep, GivesTheMeshesOfItsFacesInTheirOrder) {
  const auto brep = MakeBoxBrep(kBox);
  const auto first = std::make_shared<ON_Mesh>(), second = std::make_shared<ON_Mesh>();
  brep->m_F[1].m_render_mesh = first;
  brep->m_F[4].m_render_mesh = second;
  brep->m_F[4].m_analysis_mesh = first;
  std::vector<std::shared_ptr<const ON_Mesh>> meshes{second};
  EXPECT_EQ(2, brep->GetMesh(ON_Brep::MeshType::render, meshes));
  EXPECT_THAT(meshes, ElementsAre(second, first, second));
  EXPECT_EQ(1, brep->GetMesh(ON_Brep::MeshType::analysis, meshes));
  EXPECT_EQ(first, meshes.back());
}

TEST(Brep, ItsBoxIsThatOfItsFaces) {
  ExpectBox(MakeBoxBrep(kBox)->BoundingBox(), kBox.m_min, kBox.m_max);
  ExpectBox(MakeCylinderBrep(2, 5)->BoundingBox(), {-2, -2, 0}, {2, 2, 5});
  ExpectBox(MakePlateBrep(5, 2)->BoundingBox(), {-5, -5, 0}, {5, 5, 0});
  EXPECT_FALSE(ON_Brep().BoundingBox().IsValid());
}

TEST(Brep, ItsBoxLeavesOutWhatTrimsCutOffButForATenth) {
  BrepBuilder builder;
  const auto plane = std::make_shared<ON_PlaneSurface>();
  for (const int i : {0, 1}) plane->m_domain[i] = plane->m_extents[i] = {-10, 10};
  const auto circle = std::make_shared<ON_ArcCurve>(ON_Arc{{}, 1, {0, 2 * std::numbers::pi}});
  const int vertex = builder.AddVertex({1, 0, 0});
  builder.AddFace(plane);
  builder.AddLoop(ON_BrepLoop::Type::outer, {{circle, builder.AddEdge(circle, vertex, vertex)}});
  const auto brep = builder.Take();
  ASSERT_TRUE(brep->IsValid());
  ExpectBox(brep->BoundingBox(), {-1.2, -1.2, 0}, {1.2, 1.2, 0});
  // The same of a NURBS surface.
  const auto form = std::make_shared<ON_NurbsSurface>();
  ASSERT_TRUE(plane->GetNurbForm(*form));
  brep->m_S[0] = form;
  ExpectBox(brep->BoundingBox(), {-1.2, -1.2, 0}, {1.2, 1.2, 0});
  // What was computed before is taken as it stands.
  brep->m_bbox = kBox;
  ExpectBox(brep->BoundingBox(), kBox.m_min, kBox.m_max);
}
