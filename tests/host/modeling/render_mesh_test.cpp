#include "host/modeling/render_mesh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"
#include "host/modeling/mesh_quality.h"
#include "host/system/interrupt.h"
#include "mesh_checks.h"
#include "support/brep_shapes.h"

namespace {

using host::MadeMeshes;
using host::MakeRenderMeshes;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kPi = std::numbers::pi;

double ToleranceFor(const ON_Brep& brep, const ON_MeshParameters& parameters = {}) {
  const ON_BoundingBox box = host::TrimmedBox(brep);
  return host::QualityOf(parameters, box.m_min.DistanceTo(box.m_max)).tolerance;
}

// Each face has a mesh that lies on its surface and looks where the face does.
MadeMeshes ExpectGoodMeshes(const ON_Brep& brep, const ON_MeshParameters& parameters = {}) {
  MadeMeshes made = MakeRenderMeshes(brep, parameters);
  EXPECT_THAT(made.failed_faces, IsEmpty());
  EXPECT_EQ(made.meshes.size(), brep.m_F.size());
  if (made.meshes.size() != brep.m_F.size()) return made;
  const double tolerance = ToleranceFor(brep, parameters);
  for (std::size_t i = 0; i < made.meshes.size(); ++i) {
    const ON_Mesh& mesh = *made.meshes[i];
    const ON_BrepFace& face = brep.m_F[i];
    EXPECT_TRUE(mesh.HasValidFaceIndices());
    EXPECT_TRUE(mesh.HasVertexNormals());
    EXPECT_TRUE(mesh.HasTextureCoordinates());
    const MeshFit fit = FitOf(mesh, brep.SurfaceOf(face), face.m_bRev, tolerance);
    EXPECT_LT(fit.vertex, tolerance / 4) << i;
    EXPECT_LE(fit.sag, tolerance) << i;
    EXPECT_GT(fit.vertex_normal, 0.9999) << i;
    EXPECT_GT(fit.triangle_normal, 0.8) << i;
  }
  return made;
}

void ExpectClosed(const MadeMeshes& made) {
  const EdgeUse use = EdgeUseOf(made.meshes);
  EXPECT_EQ(use.once, 0);
  EXPECT_EQ(use.more, 0);
  EXPECT_EQ(use.twisted, 0);
  EXPECT_GT(use.twice, 0);
}

// Turned about the z axis.
ON_RevSurface Turned(std::shared_ptr<const ON_Curve> curve) {
  ON_RevSurface surface;
  surface.m_angle = {0, 2 * kPi};
  surface.m_t = {0, 2 * kPi};
  surface.m_curve = std::move(curve);
  return surface;
}

// From the south pole to the north pole, about the origin or a place on the x axis.
std::shared_ptr<ON_ArcCurve> UprightArc(double x, double radius, ON_Interval angle) {
  ON_Arc arc;
  arc.plane = {{x, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}};
  arc.radius = radius;
  arc.m_angle = angle;
  return std::make_shared<ON_ArcCurve>(arc);
}

std::unique_ptr<ON_Brep> SphereBrep(double radius) {
  return Turned(UprightArc(0, radius, {-kPi / 2, kPi / 2})).BrepForm();
}

// A square sheet of NURBS with one bump.
ON_NurbsSurface Bump(double height) {
  ON_NurbsSurface surface;
  ON_SimpleArray<ON_4dPoint> cvs;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      const bool is_inner = i % 3 != 0 && j % 3 != 0;
      cvs.push_back({10.0 * i, 10.0 * j, is_inner ? height : 0, 1});
    }
  }
  surface.Create({4, 4}, {{{0, 0, 0, 1, 1, 1}, {0, 0, 0, 1, 1, 1}}}, std::move(cvs), false);
  return surface;
}

TEST(RenderMesh, OfAPlateLeavesItsHoleOpen) {
  const auto brep = MakePlateBrep(10, 3);
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  EXPECT_NEAR(AreaOf(made.meshes), 400 - 9 * kPi, 0.6);
  for (const ON_3fVector& normal : made.meshes.at(0)->m_N) {
    EXPECT_EQ(normal, (ON_3fVector{0, 0, 1}));
  }
  // Each edge of the outer square is one edge of the mesh.
  const EdgeUse use = EdgeUseOf(made.meshes);
  EXPECT_EQ(use.more, 0);
  EXPECT_GT(use.once, 4 + 17);
}

TEST(RenderMesh, OfABoxIsClosedAndHasNoMoreTrianglesThanItTakes) {
  const auto brep = MakeBoxBrep({{-1, 2, 3}, {4, 6, 5}});
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  ExpectClosed(made);
  EXPECT_DOUBLE_EQ(VolumeOf(made.meshes), 40);
  for (const auto& mesh : made.meshes) EXPECT_EQ(mesh->FaceCount(), 2);
}

TEST(RenderMesh, OfACylinderClosesAtItsSeamAndItsCaps) {
  const auto brep = MakeCylinderBrep(5, 10);
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  ExpectClosed(made);
  EXPECT_NEAR(VolumeOf(made.meshes), 250 * kPi, 4);
  // The lower cap is reversed: it looks down.
  for (const ON_3fVector& normal : made.meshes.at(2)->m_N) EXPECT_EQ(normal.z, -1);
}

TEST(RenderMesh, OfASphereHasSensiblePoles) {
  const auto brep = SphereBrep(4);
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  ExpectClosed(made);
  EXPECT_NEAR(VolumeOf(made.meshes), 4.0 / 3 * kPi * 64, 1);
  const ON_Mesh& mesh = *made.meshes.at(0);
  int poles = 0;
  for (std::size_t i = 0; i < mesh.m_V.size(); ++i) {
    if (std::abs(mesh.m_V[i].z) < 3.999f) continue;
    ++poles;
    EXPECT_FLOAT_EQ(mesh.m_N[i].z, mesh.m_V[i].z > 0 ? 1.0f : -1.0f);
  }
  // Each triangle at a pole has its own vertex there, with the texture coordinate of its direction.
  EXPECT_GT(poles, 20);
  for (const ON_MeshFace& face : mesh.m_F) {
    const auto s = [&](std::size_t i) { return mesh.m_T[static_cast<std::size_t>(face.vi[i])].x; };
    EXPECT_LT(std::max({s(0), s(1), s(2)}) - std::min({s(0), s(1), s(2)}), 0.1f);
  }
}

TEST(RenderMesh, OfATorusClosesInBothDirections) {
  const auto brep = Turned(UprightArc(10, 2, {0, 2 * kPi})).BrepForm();
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  ExpectClosed(made);
  EXPECT_NEAR(std::abs(VolumeOf(made.meshes)), 2 * kPi * 10 * kPi * 4, 8);
}

TEST(RenderMesh, OfAConeHasItsTip) {
  const auto line = std::make_shared<ON_LineCurve>(ON_3dPoint{3, 0, 0}, ON_3dPoint{0, 0, 8});
  const MadeMeshes made = ExpectGoodMeshes(*Turned(line).BrepForm());
  const EdgeUse use = EdgeUseOf(made.meshes);
  // Open at its foot only, and as narrow triangles as there are pieces of the circle.
  EXPECT_EQ(made.meshes.at(0)->FaceCount(), use.once);
  EXPECT_NEAR(AreaOf(made.meshes), kPi * 3 * std::hypot(3, 8), 0.5);
}

TEST(RenderMesh, OfASumSurface) {
  ON_SumSurface surface;
  surface.m_curve = {UprightArc(0, 5, {0, kPi}),
                     std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{0, 7, 0})};
  const MadeMeshes made = ExpectGoodMeshes(*surface.BrepForm());
  EXPECT_NEAR(AreaOf(made.meshes), 5 * kPi * 7, 0.5);
}

TEST(RenderMesh, OfAnUnclampedSurface) {
  ON_NurbsSurface surface = Bump(30);
  surface.m_knot[0] = {-2, -1, 0, 1, 2, 3};
  const MadeMeshes made = ExpectGoodMeshes(*surface.BrepForm());
  EXPECT_EQ(EdgeUseOf(made.meshes).more, 0);
}

TEST(RenderMesh, OfAReversedFaceLooksToTheOtherSide) {
  auto brep = Bump(30).BrepForm();
  const MadeMeshes straight = ExpectGoodMeshes(*brep);
  brep->m_F[0].m_bRev = true;
  const MadeMeshes reversed = ExpectGoodMeshes(*brep);
  EXPECT_GT(straight.meshes.at(0)->m_N.at(0).z, 0);
  EXPECT_LT(reversed.meshes.at(0)->m_N.at(0).z, 0);
}

TEST(RenderMesh, HasTheParametersOfItsSurface) {
  auto surface = std::make_shared<ON_PlaneSurface>();
  surface->m_domain[0] = {10, 30};
  surface->m_domain[1] = {-4, -3};
  surface->m_extents[0] = {0, 5};
  surface->m_extents[1] = {0, 2};
  const MadeMeshes made = ExpectGoodMeshes(*surface->BrepForm());
  const ON_Mesh& mesh = *made.meshes.at(0);
  EXPECT_EQ(mesh.m_srf_domain[0], (ON_Interval{10, 30}));
  EXPECT_EQ(mesh.m_srf_domain[1], (ON_Interval{-4, -3}));
  ASSERT_EQ(mesh.m_S.size(), mesh.m_V.size());
  for (std::size_t i = 0; i < mesh.m_V.size(); ++i) {
    EXPECT_FLOAT_EQ(mesh.m_T[i].x, mesh.m_V[i].x / 5);
    EXPECT_FLOAT_EQ(mesh.m_T[i].y, mesh.m_V[i].y / 2);
    EXPECT_NEAR(mesh.m_S[i].x, 10 + mesh.m_V[i].x * 4, 1e-6);
    EXPECT_NEAR(mesh.m_S[i].y, -4 + mesh.m_V[i].y / 2, 1e-6);
  }
}

TEST(RenderMesh, TakesStretchesOfCurvesAndBackwardOnes) {
  auto brep = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  // Each edge in turn is a piece of a longer line, or runs through its curve backwards.
  for (std::size_t i = 0; i < brep->m_E.size(); ++i) {
    ON_BrepEdge& edge = brep->m_E[i];
    const ON_Curve& curve = brep->CurveOf(edge);
    const ON_3dPoint from = curve.PointAtStart();
    const ON_3dPoint to = curve.PointAtEnd();
    const ON_3dVector way = to - from;
    auto line = i % 2 == 0 ? std::make_shared<ON_LineCurve>(from + way * -1, to + way * 2)
                           : std::make_shared<ON_LineCurve>(to + way * 1, from + way * -2);
    line->m_t = {0, 4};
    edge.m_domain = {1, 2};
    edge.m_bReversed = i % 2 != 0;
    brep->m_C3[static_cast<std::size_t>(edge.m_c3i)] = line;
  }
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  ExpectClosed(made);
  EXPECT_DOUBLE_EQ(VolumeOf(made.meshes), 64);
}

TEST(RenderMesh, TakesStretchesOfArcsAtTheirTrueEnds) {
  // A quarter of a disk, whose bow is a part of a longer arc.
  BrepBuilder builder;
  const int center = builder.AddVertex({0, 0, 0});
  const int right = builder.AddVertex({2, 0, 0});
  const int top = builder.AddVertex({0, 2, 0});
  ON_Arc arc;
  arc.radius = 2;
  arc.m_angle = {-1, 3};
  const auto bow = std::make_shared<ON_ArcCurve>(arc);
  const auto base = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{2, 0, 0});
  const auto side = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 2, 0}, ON_3dPoint{0, 0, 0});
  const int edges[] = {builder.AddEdge(base, center, right), builder.AddEdge(bow, right, top),
                       builder.AddEdge(side, top, center)};
  auto plane = std::make_shared<ON_PlaneSurface>();
  plane->m_domain[0] = plane->m_extents[0] = {-3, 3};
  plane->m_domain[1] = plane->m_extents[1] = {-3, 3};
  builder.AddFace(plane);
  builder.AddLoop(ON_BrepLoop::Type::outer, {{base, edges[0]}, {bow, edges[1]}, {side, edges[2]}});
  auto brep = builder.Take();
  const ON_Interval whole = bow->Domain();
  const ON_Interval quarter{whole.ParameterAt(0.25), whole.ParameterAt((1 + kPi / 2) / 4)};
  brep->m_E[1].m_domain = quarter;
  brep->m_T[1].m_domain = quarter;
  const MadeMeshes made = ExpectGoodMeshes(*brep);
  EXPECT_NEAR(AreaOf(made.meshes), kPi, 0.02);
}

TEST(RenderMesh, IsAsFineAsAsked) {
  const auto brep = SphereBrep(1);
  const int by_default = ExpectGoodMeshes(*brep).meshes.at(0)->FaceCount();
  ON_MeshParameters parameters;
  parameters.m_tolerance = 3e-4;
  EXPECT_GT(ExpectGoodMeshes(*brep, parameters).meshes.at(0)->FaceCount(), 4 * by_default);
}

TEST(RenderMesh, KeepsEdgesShorterThanAsked) {
  ON_MeshParameters parameters;
  parameters.m_max_edge_length = 1;
  const auto brep = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  const MadeMeshes made = ExpectGoodMeshes(*brep, parameters);
  ExpectClosed(made);
  for (const auto& mesh : made.meshes) {
    for (const ON_MeshFace& face : mesh->m_F) {
      for (std::size_t i = 0; i < 3; ++i) {
        const ON_3fPoint& a = mesh->m_V[static_cast<std::size_t>(face.vi[i])];
        const ON_3fPoint& b = mesh->m_V[static_cast<std::size_t>(face.vi[(i + 1) % 3])];
        EXPECT_LE(std::hypot(a.x - b.x, a.y - b.y, a.z - b.z), 1.0001);
      }
    }
  }
}

TEST(RenderMesh, IsTheSameEachTime) {
  const auto brep = Turned(UprightArc(10, 2, {0, 2 * kPi})).BrepForm();
  const MadeMeshes first = MakeRenderMeshes(*brep, {});
  const MadeMeshes second = MakeRenderMeshes(*brep, {});
  ASSERT_EQ(first.meshes.size(), 1u);
  ASSERT_EQ(second.meshes.size(), 1u);
  EXPECT_EQ(first.meshes[0]->m_V, second.meshes[0]->m_V);
  EXPECT_EQ(first.meshes[0]->m_N, second.meshes[0]->m_N);
  EXPECT_EQ(first.meshes[0]->m_F, second.meshes[0]->m_F);
}

TEST(RenderMesh, DoesNotDependOnTheUnitOrThePlace) {
  for (const double size : {1e-9, 1e-4, 1e6, 1e12}) {
    const MadeMeshes made = ExpectGoodMeshes(*MakeCylinderBrep(size, 2 * size));
    ExpectClosed(made);
    EXPECT_NEAR(VolumeOf(made.meshes) / (size * size * size), 2 * kPi, 0.05) << size;
  }
  const MadeMeshes far =
      ExpectGoodMeshes(*MakeBoxBrep({{1e6, 1e6, 1e6}, {1e6 + 4, 1e6 + 4, 1e6 + 4}}));
  ExpectClosed(far);
}

TEST(RenderMesh, NamesAFaceThatFailsAndMakesTheOthers) {
  auto brep = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  // A surface that is a point.
  ON_NurbsSurface point = Bump(0);
  for (ON_4dPoint& cv : point.m_cv) cv = {1, 1, 1, 1};
  brep->m_S[2] = std::make_shared<ON_NurbsSurface>(point);
  const MadeMeshes made = MakeRenderMeshes(*brep, {});
  EXPECT_THAT(made.failed_faces, ElementsAre(2));
  EXPECT_EQ(made.meshes.size(), 5u);
}

TEST(RenderMesh, FailsForNumbersThatAreNone) {
  for (const double value : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), 1e300, ON_UNSET_VALUE}) {
    ON_NurbsSurface surface = Bump(30);
    auto brep = surface.BrepForm();
    surface.m_cv[5].z = value;
    brep->m_S[0] = std::make_shared<ON_NurbsSurface>(surface);
    const MadeMeshes made = MakeRenderMeshes(*brep, {});
    EXPECT_THAT(made.failed_faces, ElementsAre(0)) << value;
    EXPECT_THAT(made.meshes, IsEmpty()) << value;
  }
}

TEST(RenderMesh, FailsForABrepWhosePartsDoNotFit) {
  auto brep = MakeBoxBrep({{0, 0, 0}, {4, 4, 4}});
  brep->m_T[3].m_ei = 99;
  EXPECT_THAT(MakeRenderMeshes(*brep, {}).failed_faces, ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(RenderMesh, FailsForATrimFarOutsideOfItsSurface) {
  auto brep = Bump(30).BrepForm();
  brep->m_C2[1] = std::make_shared<ON_LineCurve>(ON_3dPoint{1, 0, 0}, ON_3dPoint{1e9, 1, 0});
  brep->m_T[1].m_domain = brep->m_C2[1]->Domain();
  EXPECT_THAT(MakeRenderMeshes(*brep, {}).failed_faces, ElementsAre(0));
}

TEST(RenderMesh, OfNothingIsNothing) {
  const MadeMeshes made = MakeRenderMeshes(ON_Brep(), {});
  EXPECT_THAT(made.meshes, IsEmpty());
  EXPECT_THAT(made.failed_faces, IsEmpty());
}

TEST(RenderMesh, StopsAtAnInterrupt) {
  host::RequestInterrupt();
  ON_MeshParameters parameters;
  parameters.m_tolerance = 1e-9;
  const MadeMeshes made = MakeRenderMeshes(*SphereBrep(1), parameters);
  host::ClearInterrupt();
  EXPECT_THAT(made.meshes, IsEmpty());
}

}  // namespace
