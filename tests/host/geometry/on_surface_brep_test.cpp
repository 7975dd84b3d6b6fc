#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_plane_surface.h"
#include "surface_checks.h"
#include "surface_samples.h"

// The brep of a surface: one face with its natural boundary.

using testing::ElementsAre;

namespace {

using Type = ON_BrepTrim::Type;

struct Counts {
  std::size_t vertices, edges;
  std::array<Type, 4> types;
};

// Where a trim begins or ends, in the parameters of the surface and in space.
ON_3dPoint TrimPoint(const ON_Brep& brep, const ON_BrepTrim& trim, double fraction) {
  return brep.CurveOf(trim).PointAt(trim.m_domain.ParameterAt(fraction));
}

// Each edge lies on the surface beside its trims, ends in its vertices, and the trims name it.
void ExpectEdgesLieOnTheSurface(const ON_Brep& brep, const ON_Surface& form) {
  for (const ON_BrepTrim& trim : brep.m_T) {
    if (trim.m_ei < 0) continue;
    const ON_BrepEdge& edge = brep.m_E[static_cast<std::size_t>(trim.m_ei)];
    const ON_Curve& curve = brep.CurveOf(edge);
    ASSERT_TRUE(curve.IsValid());
    EXPECT_EQ(edge.m_domain, curve.Domain());
    for (const double s : kFractions) {
      const ON_3dPoint uv = TrimPoint(brep, trim, s);
      const double t = edge.m_domain.ParameterAt(trim.m_bRev3d ? 1 - s : s);
      ExpectPointsAgree(form.PointAt(uv.x, uv.y), curve.PointAt(t));
    }
    for (const std::size_t end : {0U, 1U}) {
      const int vertex = trim.m_vi[trim.m_bRev3d ? 1 - end : end];
      EXPECT_EQ(edge.m_vi[end], vertex);
    }
  }
}

void ExpectLoopRunsAround(const ON_Brep& brep) {
  ASSERT_EQ(1u, brep.m_L.size());
  EXPECT_EQ(ON_BrepLoop::Type::outer, brep.m_L[0].m_type);
  ASSERT_THAT(brep.m_L[0].m_ti, ElementsAre(0, 1, 2, 3));
  for (std::size_t i = 0; i < 4; ++i) {
    const ON_BrepTrim &trim = brep.m_T[i], &next = brep.m_T[(i + 1) % 4];
    EXPECT_EQ(TrimPoint(brep, trim, 1), TrimPoint(brep, next, 0));
    EXPECT_EQ(trim.m_vi[1], next.m_vi[0]);
    EXPECT_EQ(0, trim.m_li);
    const ON_3dPoint uv = TrimPoint(brep, trim, 0);
    const auto vertex = static_cast<std::size_t>(trim.m_vi[0]);
    ExpectPointsAgree(brep.m_S[0]->PointAt(uv.x, uv.y), brep.m_V[vertex].point);
  }
}

void ExpectBrep(const ON_Surface& surface, const Counts& counts) {
  const std::unique_ptr<ON_Brep> brep = surface.BrepForm();
  ASSERT_NE(nullptr, brep);
  EXPECT_EQ(1u, brep->m_F.size());
  EXPECT_THAT(brep->m_F[0].m_li, ElementsAre(0));
  EXPECT_FALSE(brep->m_F[0].m_bRev);
  ASSERT_EQ(1u, brep->m_S.size());
  EXPECT_EQ(surface.BoundingBox().m_max, brep->m_S[0]->BoundingBox().m_max);
  EXPECT_EQ(counts.vertices, brep->m_V.size());
  EXPECT_EQ(counts.edges, brep->m_E.size());
  EXPECT_EQ(counts.edges, brep->m_C3.size());
  ASSERT_EQ(4u, brep->m_T.size());
  ASSERT_EQ(4u, brep->m_C2.size());
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(counts.types[i], brep->m_T[i].m_type) << i;
  ExpectLoopRunsAround(*brep);
  ON_NurbsSurface form;
  ASSERT_TRUE(surface.GetNurbForm(form));
  ExpectEdgesLieOnTheSurface(*brep, form);
}

constexpr auto kBoundary = Type::boundary;
constexpr auto kSeam = Type::seam;
constexpr auto kSingular = Type::singular;

TEST(SurfaceBrep, AnOpenSurfaceHasFourEdges) {
  ON_PlaneSurface plane;
  plane.m_domain[0] = {0, 3};
  plane.m_extents[1] = {5, 9};
  ExpectBrep(plane, {4, 4, {kBoundary, kBoundary, kBoundary, kBoundary}});
  ExpectBrep(RationalPatch(), {4, 4, {kBoundary, kBoundary, kBoundary, kBoundary}});
}

TEST(SurfaceBrep, ItsTrimsRunCounterclockwise) {
  const auto brep = RationalPatch().BrepForm();
  ASSERT_NE(nullptr, brep);
  EXPECT_EQ((ON_3dPoint{0, 2, 0}), TrimPoint(*brep, brep->m_T[0], 0));
  EXPECT_EQ((ON_3dPoint{3, 2, 0}), TrimPoint(*brep, brep->m_T[1], 0));
  EXPECT_EQ((ON_3dPoint{3, 4, 0}), TrimPoint(*brep, brep->m_T[2], 0));
  EXPECT_EQ((ON_3dPoint{0, 4, 0}), TrimPoint(*brep, brep->m_T[3], 0));
  using Iso = ON_BrepTrim::Iso;
  const Iso expected[] = {Iso::south, Iso::east, Iso::north, Iso::west};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(expected[i], brep->m_T[i].m_iso);
}

TEST(SurfaceBrep, ASeamIsOneEdge) {
  ExpectBrep(Cylinder(), {2, 3, {kBoundary, kSeam, kBoundary, kSeam}});
  const auto brep = Cylinder().BrepForm();
  EXPECT_THAT(brep->m_E[1].m_ti, ElementsAre(1, 3));
  EXPECT_FALSE(brep->m_T[1].m_bRev3d);
  EXPECT_TRUE(brep->m_T[3].m_bRev3d);
  // A vertex names an edge once for each end that is there.
  EXPECT_THAT(brep->m_V[0].m_ei, ElementsAre(0, 0, 1));
  EXPECT_THAT(brep->m_V[1].m_ei, ElementsAre(1, 2, 2));
}

TEST(SurfaceBrep, ASideThatIsAPointHasNoEdge) {
  ExpectBrep(Sphere(), {2, 1, {kSingular, kSeam, kSingular, kSeam}});
  ExpectBrep(Cone(), {2, 2, {kSingular, kSeam, kBoundary, kSeam}});
  const auto brep = Sphere().BrepForm();
  EXPECT_EQ(-1, brep->m_T[0].m_ei);
  EXPECT_EQ(brep->m_T[0].m_vi[0], brep->m_T[0].m_vi[1]);
}

TEST(SurfaceBrep, ATorusHasTwoSeamsAndOneVertex) {
  ExpectBrep(Torus(), {1, 2, {kSeam, kSeam, kSeam, kSeam}});
}

TEST(SurfaceBrep, TransposedTheSidesChangePlaces) {
  ON_RevSurface cone = Cone();
  cone.m_bTransposed = true;
  ExpectBrep(cone, {2, 2, {kSeam, kBoundary, kSeam, kSingular}});
}

TEST(SurfaceBrep, ItKeepsTheKindOfTheSurface) {
  EXPECT_NE(nullptr, ON_RevSurface::Cast(Cone().BrepForm()->m_S[0].get()));
  EXPECT_NE(nullptr, ON_PlaneSurface::Cast(ON_PlaneSurface().BrepForm()->m_S[0].get()));
}

TEST(SurfaceBrep, WhatIsNotValidHasNone) {
  EXPECT_EQ(nullptr, ON_NurbsSurface().BrepForm());
  EXPECT_EQ(nullptr, ON_ClippingPlaneSurface().BrepForm());
}

}  // namespace
