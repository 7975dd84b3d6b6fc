#include "host/geometry/on_brep_point.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_plane_surface.h"
#include "support/brep_shapes.h"
#include "surface_checks.h"
#include "surface_samples.h"

namespace {

ON_BrepPoint Closest(const ON_Brep& brep, ON_3dPoint p) {
  const auto found = ON_ClosestPointOnBrep(brep, p);
  EXPECT_TRUE(found);
  if (!found) return {};
  const ON_BrepFace* face = brep.Face(found->face_index);
  EXPECT_NE(face, nullptr);
  EXPECT_EQ(found->at.point, brep.SurfaceOf(*face).PointAt(found->at.u, found->at.v));
  return *found;
}

TEST(ClosestBrepPoint, OfABoxIsThePointHeldToIt) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  for (const double x : {-4.0, 0.25, 3.0}) {
    for (const double y : {-4.0, 0.5, 9.0}) {
      for (const double z : {-0.5, 3.5}) {
        const ON_3dPoint expected{std::clamp(x, 0.0, 1.0), std::clamp(y, 0.0, 2.0),
                                  std::clamp(z, 0.0, 3.0)};
        ExpectPointsAgree(expected, Closest(*box, {x, y, z}).at.point, 1e-9);
      }
    }
  }
}

TEST(ClosestBrepPoint, FromTheInsideOfABoxIsOnTheNearestFace) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  ExpectPointsAgree({0.9, 1, 3}, Closest(*box, {0.9, 1, 2.95}).at.point, 1e-9);
  ExpectPointsAgree({0, 1, 1}, Closest(*box, {0.1, 1, 1}).at.point, 1e-9);
  ExpectPointsAgree({0.5, 2, 1}, Closest(*box, {0.5, 1.8, 1}).at.point, 1e-9);
}

TEST(ClosestBrepPoint, NamesTheFace) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  for (int i = 0; i < 6; ++i) {
    const ON_Surface& surface = box->SurfaceOf(*box->Face(i));
    const double u = surface.Domain(0).ParameterAt(0.4), v = surface.Domain(1).ParameterAt(0.7);
    const ON_3dPoint p = surface.PointAt(u, v);
    const ON_BrepPoint found = Closest(*box, p);
    EXPECT_EQ(found.face_index, i);
    EXPECT_NEAR(found.at.u, u, 1e-9);
    EXPECT_NEAR(found.at.v, v, 1e-9);
  }
}

TEST(ClosestBrepPoint, OnAnEdgeIsOnTheFirstOfItsFaces) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  EXPECT_EQ(Closest(*box, {0, 0, 0}).face_index, 0);
}

// A square from -5 to 5 with a hole of radius 2.
TEST(ClosestBrepPoint, OfAPlateWithAHole) {
  const auto plate = MakePlateBrep(5, 2);
  ExpectPointsAgree({3, 1, 0}, Closest(*plate, {3, 1, 8}).at.point, 1e-9);
  ExpectPointsAgree({5, 5, 0}, Closest(*plate, {7, 9, -2}).at.point, 1e-9);
  ExpectPointsAgree({-5, 1, 0}, Closest(*plate, {-6, 1, 0}).at.point, 1e-7);
  // Over the hole the rim is closest.
  ExpectPointsAgree({1.2, 1.6, 0}, Closest(*plate, {0.6, 0.8, 0}).at.point, 1e-7);
  ExpectPointsAgree({0, -2, 0}, Closest(*plate, {0, -0.1, 3}).at.point, 1e-7);
  EXPECT_NEAR(Closest(*plate, {0, 0, 0}).at.point.DistanceTo({0, 0, 0}), 2, 1e-9);
}

TEST(ClosestBrepPoint, BesideARimIsTheRimToThePrecisionOfTheEye) {
  const auto plate = MakePlateBrep(5, 2);
  for (int i = 0; i < 100; ++i) {
    const double angle = 0.0628 * i;
    for (const double radius : {1.9999, 2.0001}) {
      const ON_3dPoint p{radius * std::cos(angle), radius * std::sin(angle), 1};
      const double expected = std::max(radius, 2.0);
      EXPECT_NEAR(Closest(*plate, p).at.point.DistanceTo({0, 0, 0}), expected, 2e-5);
    }
  }
}

TEST(ClosestBrepPoint, OfACylinderWithCaps) {
  const auto cylinder = MakeCylinderBrep(2, 5);
  ExpectPointsAgree({0, 2, 4}, Closest(*cylinder, {0, 9, 4}).at.point, 1e-7);
  ExpectPointsAgree({1, 1, 5}, Closest(*cylinder, {1, 1, 6}).at.point, 1e-9);
  ExpectPointsAgree({1, 1, 0}, Closest(*cylinder, {1, 1, 0.2}).at.point, 1e-9);
  ExpectPointsAgree({1.2, 1.6, 5}, Closest(*cylinder, {6, 8, 9}).at.point, 1e-6);
}

TEST(ClosestBrepPoint, OfASurfaceIsThatOfItsFace) {
  const auto sphere = Sphere().BrepForm();
  const ON_BrepPoint found = Closest(*sphere, {0, 0.6, 0.8});
  EXPECT_EQ(found.face_index, 0);
  ExpectPointsAgree({0, 1.2, 1.6}, found.at.point, 1e-8);
}

// The square from 10 to 11 of a plane from -1000 to 1000.
std::unique_ptr<ON_Brep> SmallPiece() {
  BrepBuilder builder;
  const std::array<ON_3dPoint, 4> corners{{{10, 10, 0}, {11, 10, 0}, {11, 11, 0}, {10, 11, 0}}};
  std::array<int, 4> vertices{};
  for (std::size_t i = 0; i < 4; ++i) vertices[i] = builder.AddVertex(corners[i]);
  auto trims = RectangleTrims({10, 11}, {10, 11});
  for (std::size_t i = 0; i < 4; ++i) {
    const std::size_t next = (i + 1) % 4;
    trims[i].edge = builder.AddEdge(std::make_shared<ON_LineCurve>(corners[i], corners[next]),
                                    vertices[i], vertices[next]);
    trims[i].iso = ON_BrepTrim::Iso::none;
  }
  const auto plane = std::make_shared<ON_PlaneSurface>();
  for (const int direction : {0, 1}) {
    plane->m_domain[direction] = plane->m_extents[direction] = {-1000, 1000};
  }
  builder.AddFace(plane);
  builder.AddLoop(ON_BrepLoop::Type::outer, trims);
  return builder.Take();
}

TEST(ClosestBrepPoint, OfASmallPieceOfALargeSurface) {
  const auto piece = SmallPiece();
  ASSERT_TRUE(piece->IsValid());
  ASSERT_FALSE(piece->IsSurface());
  ExpectPointsAgree({10, 10, 0}, Closest(*piece, {-500, -500, 300}).at.point, 1e-6);
  ExpectPointsAgree({11, 10.5, 0}, Closest(*piece, {12, 10.5, 1}).at.point, 1e-6);
  ExpectPointsAgree({10.3, 10.6, 0}, Closest(*piece, {10.3, 10.6, 1}).at.point, 1e-9);
}

// The lower side is a curve of many small waves.
TEST(ClosestBrepPoint, OfAFaceWhoseBoundaryHasThousandsOfSpans) {
  const auto piece = SmallPiece();
  constexpr int kCount = 5000;
  ON_SimpleArray<ON_4dPoint> cvs;
  std::vector<double> knots{0};
  for (int i = 0; i < kCount; ++i) {
    const double wave = i == 0 || i == kCount - 1 ? 0 : 0.002 * (i % 2);
    cvs.push_back({10 + static_cast<double>(i) / (kCount - 1), 10 + wave, 0, 1});
    if (i > 0) knots.push_back(i - 1);
  }
  knots.push_back(knots.back());
  const auto side = std::make_shared<ON_NurbsCurve>();
  side->Create(3, {knots.begin(), knots.end()}, std::move(cvs));
  ASSERT_TRUE(side->IsValid());
  ON_BrepTrim& trim = piece->m_T[0];
  trim.m_domain = side->Domain();
  piece->m_C2[static_cast<std::size_t>(trim.m_c2i)] = side;
  const ON_3dPoint below = Closest(*piece, {10.5, 9, 0}).at.point;
  EXPECT_NEAR(below.x, 10.5, 1e-3);
  EXPECT_NEAR(below.y, 10.001, 1e-3);
  ExpectPointsAgree({10.5, 10.1, 0}, Closest(*piece, {10.5, 10.1, 3}).at.point, 1e-9);
  EXPECT_TRUE(ON_PointOnBrepFace(*piece, 0, 10.5, 10.1));
  EXPECT_FALSE(ON_PointOnBrepFace(*piece, 0, 10.5, 9.9));
}

TEST(ClosestBrepPoint, ThereIsOneForEveryPoint) {
  constexpr double kFar = std::numeric_limits<double>::max();
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  const auto plate = MakePlateBrep(5, 2);
  for (const ON_3dPoint& p : {ON_3dPoint{kFar, kFar, -kFar}, {1e200, 0, 0}, {0, -1e-320, 0}}) {
    EXPECT_TRUE(ON_ClosestPointOnBrep(*box, p));
    EXPECT_TRUE(ON_ClosestPointOnBrep(*plate, p));
  }
}

TEST(ClosestBrepPoint, ThereIsNoneOnABrepWithoutFaces) {
  EXPECT_FALSE(ON_ClosestPointOnBrep(ON_Brep(), {0, 0, 0}));
}

TEST(PointOnBrepFace, IsThePointAtTheParametersOfItsSurface) {
  const auto box = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  for (int i = 0; i < 6; ++i) {
    const ON_Surface& surface = box->SurfaceOf(*box->Face(i));
    const double u = surface.Domain(0).ParameterAt(0.25), v = surface.Domain(1).Max;
    const auto found = ON_PointOnBrepFace(*box, i, u, v);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->face_index, i);
    EXPECT_EQ(found->at.point, surface.PointAt(u, v));
    EXPECT_FALSE(ON_PointOnBrepFace(*box, i, u, surface.Domain(1).Max + 1e-3));
    EXPECT_FALSE(ON_PointOnBrepFace(*box, i, surface.Domain(0).Min - 1e-3, v));
  }
  EXPECT_FALSE(ON_PointOnBrepFace(*box, 6, 0, 0));
  EXPECT_FALSE(ON_PointOnBrepFace(*box, -1, 0, 0));
}

TEST(PointOnBrepFace, IsNotThereWhereTheFaceIsTrimmedAway) {
  const auto plate = MakePlateBrep(5, 2);
  const ON_Surface& surface = plate->SurfaceOf(*plate->Face(0));
  const auto at = [&](double x, double y) {
    const ON_SurfacePoint place =
        ON_ClosestSurfacePoints(surface, {surface.Domain(0), surface.Domain(1)}, {x, y, 0}).front();
    return ON_PointOnBrepFace(*plate, 0, place.u, place.v).has_value();
  };
  EXPECT_TRUE(at(3, 1));
  EXPECT_TRUE(at(-5, 5));
  EXPECT_TRUE(at(2, 0));
  EXPECT_TRUE(at(1.2, 1.6));
  EXPECT_FALSE(at(1.9, 0));
  EXPECT_FALSE(at(0, 0));
}

}  // namespace
