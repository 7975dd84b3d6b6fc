#include "host/geometry/on_extrusion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_poly_curve.h"
#include "support/solid_shapes.h"

namespace {

using testing::ElementsAre;
using testing::SizeIs;
using Iso = ON_BrepTrim::Iso;
using Type = ON_BrepTrim::Type;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A square of side 2 from the origin, extruded by 3 along the x axis; its y axis is the world's z.
ON_Extrusion Bar() {
  ON_Extrusion bar;
  bar.m_path = {{0, 0, 0}, {3, 0, 0}};
  bar.m_up = {0, 0, 1};
  bar.m_profile = MakePolygon({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}});
  bar.m_profile_count = 1;
  return bar;
}

std::unique_ptr<ON_Curve> Circle(double radius) {
  return std::make_unique<ON_ArcCurve>(ON_Arc{{}, radius, {0, 2 * std::numbers::pi}});
}

void ExpectNear(const ON_3dPoint& a, const ON_3dPoint& b) {
  EXPECT_NEAR(a.x, b.x, 1e-12);
  EXPECT_NEAR(a.y, b.y, 1e-12);
  EXPECT_NEAR(a.z, b.z, 1e-12);
}

// Each trim lies on its edge, at both ends and half way, and the loops are closed.
void ExpectTrimsOnEdges(const ON_Brep& brep) {
  EXPECT_TRUE(brep.IsValid());
  for (const ON_BrepFace& face : brep.m_F) {
    const ON_Surface& surface = brep.SurfaceOf(face);
    for (const int li : face.m_li) {
      for (const int ti : brep.m_L[static_cast<std::size_t>(li)].m_ti) {
        const ON_BrepTrim& trim = brep.m_T[static_cast<std::size_t>(ti)];
        const ON_BrepEdge& edge = brep.m_E[static_cast<std::size_t>(trim.m_ei)];
        for (const double at : {0.0, 0.5, 1.0}) {
          const ON_3dPoint uv = brep.CurveOf(trim).PointAt(trim.m_domain.ParameterAt(at));
          const double along = trim.m_bRev3d ? 1 - at : at;
          ExpectNear(surface.PointAt(uv.x, uv.y),
                     brep.CurveOf(edge).PointAt(edge.m_domain.ParameterAt(along)));
        }
        ExpectNear(brep.m_V[static_cast<std::size_t>(trim.m_vi[0])].point,
                   surface.PointAt(brep.CurveOf(trim).PointAtStart().x,
                                   brep.CurveOf(trim).PointAtStart().y));
      }
    }
  }
}

// The normals of the faces half way through their surfaces, turned as the faces are.
std::vector<ON_3dVector> Normals(const ON_Brep& brep) {
  std::vector<ON_3dVector> normals;
  for (const ON_BrepFace& face : brep.m_F) {
    const ON_Surface& surface = brep.SurfaceOf(face);
    const ON_3dVector normal =
        surface.NormalAt(surface.Domain(0).ParameterAt(0.5), surface.Domain(1).ParameterAt(0.5));
    normals.push_back(face.m_bRev ? -normal : normal);
  }
  return normals;
}

std::vector<Type> TypesOf(const ON_Brep& brep) {
  std::vector<Type> types;
  for (const ON_BrepTrim& trim : brep.m_T) types.push_back(trim.m_type);
  return types;
}

TEST(Extrusion, IsAKindWithABrepForm) {
  const ON_Extrusion bar = Bar();
  EXPECT_EQ(bar.ObjectType(), ON_ObjectType::extrusion);
  EXPECT_TRUE(bar.HasBrepForm());
  EXPECT_EQ(ON_Extrusion::Cast(&bar), &bar);
}

TEST(Extrusion, ProfilesStandAcrossThePathWithYUp) {
  // The profile's x axis is its y axis times the direction of the path.
  const ON_Extrusion bar = Bar();
  ExpectNear(bar.ProfileTransform(0) * ON_3dPoint{1, 2, 0}, {0, 1, 2});
  ExpectNear(bar.ProfileTransform(1) * ON_3dPoint{1, 2, 0}, {3, 1, 2});
}

TEST(Extrusion, APieceOfThePathCounts) {
  ON_Extrusion bar = Bar();
  bar.m_t = {0.5, 2};
  ExpectNear(bar.EndPlane(0).origin, {1.5, 0, 0});
  ExpectNear(bar.EndPlane(1).origin, {6, 0, 0});
}

TEST(Extrusion, AMitredEndIsCutAlongItsPlane) {
  ON_Extrusion bar = Bar();
  bar.m_bHaveN[1] = true;
  bar.m_N[1] = {1, 0, 1};
  // Points go along the path until they are in the plane x + z = 0 of the end's frame.
  ExpectNear(bar.ProfileTransform(1) * ON_3dPoint{2, 1, 0}, {1, 2, 1});
  ExpectNear(bar.ProfileTransform(0) * ON_3dPoint{2, 1, 0}, {0, 2, 1});
  const ON_Plane plane = bar.EndPlane(1);
  EXPECT_NEAR(plane.DistanceTo({1, 2, 1}), 0, 1e-12);
  EXPECT_NEAR(plane.DistanceTo({3, 0, 5}), 0, 1e-12);
  EXPECT_NEAR(ON_DotProduct(plane.xaxis, plane.yaxis), 0, 1e-12);
  EXPECT_NEAR(plane.zaxis.Length(), 1, 1e-12);
}

TEST(Extrusion, AMitreThatIsTooFlatDoesNotCount) {
  ON_Extrusion bar = Bar();
  bar.m_bHaveN[1] = true;
  for (const ON_3dVector& normal : {ON_3dVector{1, 0, 0.01}, {1, 0, -1}, {0, 0, 0}}) {
    bar.m_N[1] = normal;
    ExpectNear(bar.ProfileTransform(1) * ON_3dPoint{2, 1, 0}, {3, 2, 1});
  }
}

TEST(Extrusion, BoxHoldsBothEnds) {
  ON_Extrusion bar = Bar();
  bar.m_bHaveN[1] = true;
  bar.m_N[1] = {1, 0, 1};
  const ON_BoundingBox box = bar.BoundingBox();
  ExpectNear(box.m_min, {0, 0, 0});
  ExpectNear(box.m_max, {3, 2, 2});
}

TEST(Extrusion, IsValidWhenItCanBeExtruded) {
  EXPECT_TRUE(Bar().IsValid());
  EXPECT_TRUE(MakeDrilledBlock()->IsValid());
  EXPECT_FALSE(ON_Extrusion().IsValid());
  const auto is_valid = [](auto change) {
    ON_Extrusion bar = Bar();
    change(bar);
    EXPECT_EQ(bar.BrepForm() != nullptr, bar.IsValid());
    return bar.IsValid();
  };
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_path.to = e.m_path.from; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_path.to.y = kNaN; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_path.to.x = 1e300; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_up = {2, 0, 0}; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_up = {0, 0, 0}; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_t = {1, 1}; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_path_domain = {1, 0}; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_profile = nullptr; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_profile_count = 0; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) { e.m_profile_count = 2; }));
  EXPECT_FALSE(is_valid([](ON_Extrusion& e) {
    e.m_bHaveN[0] = true;
    e.m_N[0].z = kNaN;
  }));
  EXPECT_TRUE(is_valid([](ON_Extrusion& e) { e.m_N[0].z = kNaN; }));
}

TEST(Extrusion, SeveralProfilesAreClosed) {
  auto block = MakeDrilledBlock();
  auto profiles = std::make_unique<ON_PolyCurve>();
  profiles->m_segment.push_back(Circle(2));
  profiles->m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0}));
  profiles->m_t = {0, 1, 2};
  block->m_profile = std::move(profiles);
  EXPECT_FALSE(block->IsValid());
  block->m_profile_count = 3;
  EXPECT_FALSE(block->IsValid());
}

TEST(ExtrusionBrep, AnOpenProfileMakesOneSurface) {
  ON_Extrusion sheet = Bar();
  sheet.m_profile = std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{2, 1, 0});
  sheet.m_bCap = {true, true};
  sheet.m_path_domain = {10, 13};
  const auto brep = sheet.BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  EXPECT_TRUE(brep->IsSurface());
  EXPECT_THAT(brep->m_V, SizeIs(4));
  EXPECT_THAT(brep->m_E, SizeIs(4));
  EXPECT_THAT(TypesOf(*brep), testing::Each(Type::boundary));
  EXPECT_EQ(brep->m_S[0]->Domain(1), (ON_Interval{10, 13}));
  EXPECT_EQ(brep->m_is_solid, 3);
}

TEST(ExtrusionBrep, EachStraightPieceIsAFaceAndCapsLookOut) {
  ON_Extrusion bar = Bar();
  bar.m_bCap = {true, true};
  const auto brep = bar.BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  ASSERT_THAT(brep->m_F, SizeIs(6));
  EXPECT_THAT(brep->m_V, SizeIs(8));
  EXPECT_THAT(brep->m_E, SizeIs(12));
  EXPECT_THAT(TypesOf(*brep), testing::Each(Type::mated));
  EXPECT_EQ(brep->m_is_solid, 1);
  const ON_3dPoint middle{1.5, 1, 1};
  for (std::size_t i = 0; i < 6; ++i) {
    const ON_Surface& surface = *brep->m_S[i];
    const ON_3dPoint p =
        surface.PointAt(surface.Domain(0).ParameterAt(0.5), surface.Domain(1).ParameterAt(0.5));
    EXPECT_GT(ON_DotProduct(Normals(*brep)[i], p - middle), 0.9) << i;
  }
  // The caps are the whole of their surfaces.
  EXPECT_TRUE(brep->FaceIsSurface(4));
  EXPECT_TRUE(brep->FaceIsSurface(5));
  EXPECT_EQ(brep->BoundingBox().m_max, (ON_3dPoint{3, 2, 2}));
}

TEST(ExtrusionBrep, OnlyOneEndMayBeCapped) {
  ON_Extrusion bar = Bar();
  bar.m_bCap = {false, true};
  const auto brep = bar.BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  ASSERT_THAT(brep->m_F, SizeIs(5));
  EXPECT_FALSE(brep->m_F[4].m_bRev);
  EXPECT_EQ(brep->m_is_solid, 3);
}

TEST(ExtrusionBrep, ASmoothClosedProfileIsOneFaceWithASeam) {
  ON_Extrusion pipe = Bar();
  pipe.m_profile = Circle(2);
  auto brep = pipe.BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  EXPECT_TRUE(brep->IsSurface());
  EXPECT_THAT(brep->m_E, SizeIs(3));
  EXPECT_THAT(brep->m_V, SizeIs(2));
  EXPECT_THAT(TypesOf(*brep), ElementsAre(Type::boundary, Type::seam, Type::boundary, Type::seam));
  pipe.m_bCap = {true, true};
  brep = pipe.BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  ASSERT_THAT(brep->m_F, SizeIs(3));
  EXPECT_FALSE(brep->FaceIsSurface(1));
  // A cap is an eighth larger than the circle on each side.
  EXPECT_NEAR(brep->m_S[1]->Domain(0).Min, -2.5, 1e-9);
  EXPECT_NEAR(brep->m_S[1]->Domain(1).Max, 2.5, 1e-9);
}

TEST(ExtrusionBrep, InnerProfilesMakeHolesInTheCaps) {
  const auto brep = MakeDrilledBlock()->BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  ASSERT_THAT(brep->m_F, SizeIs(7));
  // The wall of the hole looks to the hole's middle.
  const ON_Surface& wall = *brep->m_S[4];
  const double u = wall.Domain(0).Min, v = wall.Domain(1).Min;
  EXPECT_GT(ON_DotProduct(wall.NormalAt(u, v), ON_3dPoint{5, 4, 0} - wall.PointAt(u, v)), 1.9);
  for (const std::size_t cap : {5u, 6u}) {
    ASSERT_THAT(brep->m_F[cap].m_li, SizeIs(2));
    EXPECT_EQ(brep->m_L[static_cast<std::size_t>(brep->m_F[cap].m_li[0])].m_type,
              ON_BrepLoop::Type::outer);
    EXPECT_EQ(brep->m_L[static_cast<std::size_t>(brep->m_F[cap].m_li[1])].m_type,
              ON_BrepLoop::Type::inner);
    EXPECT_FALSE(brep->FaceIsSurface(static_cast<int>(cap)));
  }
}

TEST(ExtrusionBrep, ProfilesThatRunTheWrongWayHaveNoCaps) {
  ON_Extrusion bar = Bar();
  bar.m_bCap = {true, true};
  bar.m_profile = MakePolygon({{0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}});
  EXPECT_THAT(bar.BrepForm()->m_F, SizeIs(4));
  auto block = MakeDrilledBlock();
  auto profiles = std::make_unique<ON_PolyCurve>();
  profiles->m_segment.push_back(MakePolygon({{0, 0, 0}, {10, 0, 0}, {10, 8, 0}, {0, 8, 0}}));
  profiles->m_segment.push_back(MakePolygon({{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}));
  profiles->m_t = {0, 1, 2};
  block->m_profile = std::move(profiles);
  EXPECT_THAT(block->BrepForm()->m_F, SizeIs(8));
}

TEST(ExtrusionBrep, ABoundaryAlongTheAxesThatIsNoRectangleTrimsItsCap) {
  ON_Extrusion bar = Bar();
  bar.m_bCap = {true, true};
  bar.m_profile = MakePolygon({{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}, {1, 2, 0}, {0, 2, 0}});
  const auto brep = bar.BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  ASSERT_THAT(brep->m_F, SizeIs(8));
  EXPECT_EQ(brep->m_S[6]->Domain(0), (ON_Interval{0, 2}));
  EXPECT_FALSE(brep->FaceIsSurface(6));
  std::vector<Iso> isos;
  for (const int ti : brep->m_L[6].m_ti) {
    isos.push_back(brep->m_T[static_cast<std::size_t>(ti)].m_iso);
  }
  EXPECT_THAT(isos, ElementsAre(Iso::south, Iso::east, Iso::y, Iso::x, Iso::north, Iso::west));
}

TEST(ExtrusionBrep, MitredCapsLieInTheirPlane) {
  auto block = MakeDrilledBlock();
  block->m_bHaveN = {true, true};
  block->m_N = {{{0.3, -0.2, 1}, {-0.1, 0.4, 1}}};
  const auto brep = block->BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  ASSERT_THAT(brep->m_F, SizeIs(7));
  // The caps look out along the normals of their planes.
  const ON_3dVector bottom = Normals(*brep)[5], top = Normals(*brep)[6];
  EXPECT_LT(bottom.z, -0.9);
  EXPECT_NEAR(bottom.x / bottom.z, 0.3, 1e-12);
  EXPECT_GT(top.z, 0.9);
  EXPECT_NEAR(top.y / top.z, 0.4, 1e-12);
}

TEST(ExtrusionBrep, TransposedSidesRunAlongThePathFirst) {
  auto block = MakeDrilledBlock();
  block->m_bTransposed = true;
  const auto brep = block->BrepForm();
  ASSERT_NE(brep, nullptr);
  ExpectTrimsOnEdges(*brep);
  EXPECT_EQ(brep->m_S[0]->Domain(0), (ON_Interval{0, 6}));
  EXPECT_EQ(brep->m_S[0]->Domain(1), (ON_Interval{0, 1}));
  // The sides look inside now, and the caps with them.
  EXPECT_EQ(brep->m_is_solid, 2);
  ExpectNear({Normals(*brep)[0].x, Normals(*brep)[0].y, Normals(*brep)[0].z}, {0, 1, 0});
  EXPECT_GT(Normals(*brep)[5].z, 0.9);
  EXPECT_LT(Normals(*brep)[6].z, -0.9);
}

TEST(ExtrusionBrep, AProfileWithoutLengthHasNone) {
  ON_Extrusion bar = Bar();
  bar.m_profile = MakePolygon({{1, 1, 0}, {1, 1, 0}});
  EXPECT_TRUE(bar.IsValid());
  EXPECT_EQ(bar.BrepForm(), nullptr);
}

}  // namespace
