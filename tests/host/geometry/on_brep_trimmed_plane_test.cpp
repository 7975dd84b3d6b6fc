#include <gtest/gtest.h>

#include "curve_samples.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_closed_curve.h"
#include "host/geometry/on_nurbs_surface.h"

namespace {

constexpr double kPi = std::numbers::pi;
using Iso = ON_BrepTrim::Iso;
using Curve = std::shared_ptr<const ON_Curve>;

Curve Square(double from, double to) {
  return std::make_shared<ON_PolylineCurve>(
      Polyline({{from, from, 0}, {to, from, 0}, {to, to, 0}, {from, to, 0}, {from, from, 0}}));
}

// From corner to corner in straight segments.
Curve Sides(const std::vector<ON_3dPoint>& corners) {
  auto curve = std::make_shared<ON_PolyCurve>();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    AddSegment(*curve, ON_LineCurve(corners[i], corners[(i + 1) % corners.size()]));
  }
  return curve;
}

Curve Circle(double radius, ON_3dPoint center = {0, 0, 0}) {
  ON_Plane plane;
  plane.origin = center;
  return std::make_shared<ON_ArcCurve>(ON_Arc{plane, radius, {0, 2 * kPi}});
}

double TrimArea(const ON_Brep& brep, const ON_BrepLoop& loop) {
  double area = 0;
  for (const int index : loop.m_ti) {
    ON_NurbsCurve form;
    EXPECT_TRUE(brep.CurveOf(brep.m_T[static_cast<std::size_t>(index)]).GetNurbForm(form));
    area += ON_SweptArea(form, {0, 0, 0}).z;
  }
  return area;
}

std::vector<Iso> IsosOf(const ON_Brep& brep) {
  std::vector<Iso> isos;
  for (const ON_BrepTrim& trim : brep.m_T) isos.push_back(trim.m_iso);
  return isos;
}

TEST(BrepTrimmedPlane, OfACircleIsOneFaceOfOneTrim) {
  const auto brep = ON_BrepTrimmedPlane({}, {Circle(2, {5, 7, 0})});
  ASSERT_NE(brep, nullptr);
  EXPECT_TRUE(brep->IsValid());
  EXPECT_FALSE(brep->IsSurface());
  EXPECT_EQ(brep->m_V.size(), 1U);
  ASSERT_EQ(brep->m_T.size(), 1U);
  EXPECT_EQ(brep->m_L[0].m_type, ON_BrepLoop::Type::outer);
  EXPECT_NEAR(TrimArea(*brep, brep->m_L[0]), 4 * kPi, 1e-6);
  // The surface is the circle's box, its parameters are the plane's coordinates.
  EXPECT_NEAR(brep->m_S[0]->Domain(0).Min, 3, 1e-12);
  EXPECT_NEAR(brep->m_S[0]->Domain(0).Max, 7, 1e-12);
  EXPECT_NEAR(brep->m_S[0]->Domain(1).Min, 5, 1e-12);
  EXPECT_NEAR(brep->m_S[0]->Domain(1).Max, 9, 1e-12);
  EXPECT_EQ(brep->m_S[0]->PointAt(4, 6), (ON_3dPoint{4, 6, 0}));
  const ON_NurbsCurve* trim = ON_NurbsCurve::Cast(brep->m_C2[0].get());
  ASSERT_NE(trim, nullptr);
  EXPECT_TRUE(trim->IsRational());
  EXPECT_EQ(trim->m_dim, 2);
  // The edge is the curve itself.
  EXPECT_EQ(brep->m_E[0].m_domain, brep->m_C3[0]->Domain());
  EXPECT_EQ(brep->m_E[0].m_vi, (std::array<int, 2>{0, 0}));
}

TEST(BrepTrimmedPlane, LiesInItsPlane) {
  const ON_Plane plane{{1, 2, 3}, {0, 0.6, 0.8}, {-1, 0, 0}, {0, -0.8, 0.6}};
  ON_SimpleArray<ON_3dPoint> points;
  for (const ON_2dPoint p : {ON_2dPoint{0, 0}, {4, 0}, {0, 3}, {0, 0}}) {
    points.push_back(plane.PointAt(p.x, p.y));
  }
  const auto brep =
      ON_BrepTrimmedPlane(plane, {std::make_shared<ON_PolylineCurve>(Polyline(points))});
  ASSERT_NE(brep, nullptr);
  EXPECT_NEAR(TrimArea(*brep, brep->m_L[0]), 6, 1e-12);
  const ON_Surface& surface = brep->SurfaceOf(brep->m_F[0]);
  EXPECT_NEAR(surface.PointAt(4, 0).DistanceTo(plane.PointAt(4, 0)), 0, 1e-14);
  EXPECT_NEAR((surface.NormalAt(1, 1) - plane.zaxis).Length(), 0, 1e-14);
  EXPECT_FALSE(brep->m_F[0].m_bRev);
}

TEST(BrepTrimmedPlane, OuterLoopsRunCounterclockwiseAndInnerOnesClockwise) {
  auto backwards = std::make_shared<ON_NurbsCurve>();
  ASSERT_TRUE(Circle(1)->GetNurbForm(*backwards));
  backwards->Reverse();
  for (const Curve& hole : {Circle(1), Curve(backwards)}) {
    for (const Curve& outer :
         {Square(-3, 3), Sides({{-3, -3, 0}, {-3, 3, 0}, {3, 3, 0}, {3, -3, 0}})}) {
      const auto brep = ON_BrepTrimmedPlane({}, {outer, hole});
      ASSERT_NE(brep, nullptr);
      EXPECT_TRUE(brep->IsValid());
      ASSERT_EQ(brep->m_L.size(), 2U);
      EXPECT_EQ(brep->m_F[0].m_li, (std::vector<int>{0, 1}));
      EXPECT_EQ(brep->m_L[1].m_type, ON_BrepLoop::Type::inner);
      EXPECT_NEAR(TrimArea(*brep, brep->m_L[0]), 36, 1e-12);
      EXPECT_NEAR(TrimArea(*brep, brep->m_L[1]), -kPi, 1e-6);
      EXPECT_FALSE(brep->IsSurface());
    }
  }
}

TEST(BrepTrimmedPlane, APolycurveGivesATrimASegment) {
  const auto brep = ON_BrepTrimmedPlane({}, {Sides({{0, 0, 0}, {4, 0, 0}, {2, 3, 0}})});
  ASSERT_NE(brep, nullptr);
  EXPECT_TRUE(brep->IsValid());
  EXPECT_EQ(brep->m_T.size(), 3U);
  EXPECT_EQ(brep->m_E.size(), 3U);
  EXPECT_EQ(brep->m_V.size(), 3U);
  EXPECT_EQ(IsosOf(*brep), (std::vector<Iso>{Iso::south, Iso::none, Iso::none}));
  EXPECT_EQ(brep->m_E[2].m_vi, (std::array<int, 2>{2, 0}));
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(brep->m_C2[i]->PointAtEnd(), brep->m_C2[(i + 1) % 3]->PointAtStart());
  }
}

// The trims of a clockwise boundary are those of its segments, from the last to the first.
TEST(BrepTrimmedPlane, ABackwardsPolycurveIsTurnedRound) {
  const auto brep = ON_BrepTrimmedPlane({}, {Sides({{0, 0, 0}, {2, 3, 0}, {4, 0, 0}})});
  ASSERT_NE(brep, nullptr);
  EXPECT_TRUE(brep->IsValid());
  EXPECT_NEAR(TrimArea(*brep, brep->m_L[0]), 6, 1e-14);
  for (std::size_t i = 0; i < 3; ++i) {
    const ON_BrepTrim& trim = brep->m_T[i];
    EXPECT_TRUE(trim.m_bRev3d);
    EXPECT_FALSE(trim.m_bReversed);
    EXPECT_EQ(trim.m_ei, 2 - static_cast<int>(i));
    EXPECT_EQ(trim.m_vi[1], brep->m_T[(i + 1) % 3].m_vi[0]);
    EXPECT_EQ(brep->m_V[static_cast<std::size_t>(trim.m_vi[0])].point,
              brep->CurveOf(trim).PointAtStart());
  }
}

TEST(BrepTrimmedPlane, ARectangleOfFourSidesIsAnUntrimmedSurface) {
  for (const auto& corners :
       {std::vector<ON_3dPoint>{{1, 2, 0}, {5, 2, 0}, {5, 4, 0}, {1, 4, 0}},
        std::vector<ON_3dPoint>{{1, 4, 0}, {5, 4, 0}, {5, 2, 0}, {1, 2, 0}}}) {
    const auto brep = ON_BrepTrimmedPlane({}, {Sides(corners)});
    ASSERT_NE(brep, nullptr);
    EXPECT_TRUE(brep->IsSurface());
    EXPECT_EQ(brep->m_T.size(), 4U);
  }
  // As one curve it isn't.
  EXPECT_FALSE(ON_BrepTrimmedPlane({}, {Square(0, 1)})->IsSurface());
}

TEST(BrepTrimmedPlane, TellsTrimsAlongAParameter) {
  const auto brep = ON_BrepTrimmedPlane(
      {}, {Sides({{0, 0, 0}, {4, 0, 0}, {4, 1, 0}, {2, 1, 0}, {2, 3, 0}, {0, 3, 0}})});
  ASSERT_NE(brep, nullptr);
  EXPECT_EQ(IsosOf(*brep),
            (std::vector<Iso>{Iso::south, Iso::east, Iso::y, Iso::x, Iso::north, Iso::west}));
  EXPECT_FALSE(brep->IsSurface());
}

// What the writer of faces does with them.
TEST(BrepTrimmedPlane, CanBeStretchedToTheUnitSquare) {
  auto brep = ON_BrepTrimmedPlane({}, {Circle(2, {5, 7, 0}), Square(4, 5)});
  // A hole that isn't inside is none of our business.
  ASSERT_NE(brep, nullptr);
  EXPECT_TRUE(brep->MakeValidForV2());
  brep->Compact();
  EXPECT_TRUE(brep->SetFaceDomain(0, {0, 1}, {0, 1}));
  EXPECT_TRUE(brep->IsValid());
  for (const ON_BrepTrim& trim : brep->m_T) {
    const ON_BoundingBox box = brep->CurveOf(trim).BoundingBox();
    EXPECT_GE(box.m_min.x, -1e-12);
    EXPECT_GE(box.m_min.y, -1e-12);
    EXPECT_LE(box.m_max.x, 1 + 1e-12);
    EXPECT_LE(box.m_max.y, 1 + 1e-12);
  }
  ON_NurbsSurface form;
  EXPECT_TRUE(brep->SurfaceOf(brep->m_F[0]).GetNurbForm(form));
}

TEST(BrepTrimmedPlane, SmallGapsBetweenSegmentsAreClosed) {
  auto curve = std::make_shared<ON_PolyCurve>();
  AddSegment(*curve, ON_LineCurve({0, 0, 0}, {4, 1e-8, 0}));
  AddSegment(*curve, ON_LineCurve({4, 0, 0}, {2, 3, 1e-8}));
  AddSegment(*curve, ON_LineCurve({2, 3, 0}, {0, 0, 0}));
  const auto brep = ON_BrepTrimmedPlane({}, {curve});
  ASSERT_NE(brep, nullptr);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(brep->m_C2[i]->PointAtEnd(), brep->m_C2[(i + 1) % 3]->PointAtStart());
  }
  EXPECT_EQ(ON_BrepTrimmedPlane({}, {curve}, 1e-9), nullptr);
}

TEST(BrepTrimmedPlane, WhatIsNoBoundaryGivesNothing) {
  const double nan = std::nan("");
  auto wide_gap = std::make_shared<ON_PolyCurve>();
  AddSegment(*wide_gap, ON_LineCurve({0, 0, 0}, {4, 0, 0}));
  AddSegment(*wide_gap, ON_LineCurve({5, 0, 0}, {0, 0, 0}));
  const std::vector<Curve> curves{
      nullptr, std::make_shared<ON_PolylineCurve>(), std::make_shared<ON_NurbsCurve>(),
      std::make_shared<ON_LineCurve>(ON_LineCurve({0, 0, 0}, {1, 0, 0})),
      std::make_shared<ON_PolylineCurve>(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}})),
      // Not in the plane, along a line, at a point, and with numbers that are none.
      std::make_shared<ON_PolylineCurve>(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 1e-3}, {0, 0, 0}})),
      std::make_shared<ON_PolylineCurve>(Polyline({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 0, 0}})),
      std::make_shared<ON_PolylineCurve>(Polyline({{1, 1, 0}, {1, 1, 0}, {1, 1, 0}, {1, 1, 0}})),
      std::make_shared<ON_PolylineCurve>(Polyline({{0, 0, 0}, {nan, 0, 0}, {1, 1, 0}, {0, 0, 0}})),
      std::make_shared<ON_PolylineCurve>(
          Polyline({{-1e308, 0, 0}, {1e308, 0, 0}, {1, 1e308, 0}, {-1e308, 0, 0}})),
      std::make_shared<ON_PolylineCurve>(
          Polyline({{0, 0, 0}, {1e200, 0, 0}, {0, 1e200, 0}, {0, 0, 0}})),
      Circle(1, {0, 0, 1}), wide_gap};
  for (const Curve& curve : curves) {
    EXPECT_EQ(ON_BrepTrimmedPlane({}, {curve}), nullptr);
    EXPECT_EQ(ON_BrepTrimmedPlane({}, {Square(-9, 9), curve}), nullptr);
  }
  EXPECT_EQ(ON_BrepTrimmedPlane({}, {}), nullptr);
  EXPECT_NE(ON_BrepTrimmedPlane({}, {curves[5]}, 0.01), nullptr);
  EXPECT_NE(ON_BrepTrimmedPlane({}, {Square(0, 1)}, nan), nullptr);
}

TEST(BrepTrimmedPlane, APlaneThatIsNoneGivesNothing) {
  ON_Plane plane;
  plane.origin.x = std::nan("");
  EXPECT_EQ(ON_BrepTrimmedPlane(plane, {Square(0, 1)}), nullptr);
  plane = {};
  plane.xaxis = {2, 0, 0};
  EXPECT_EQ(ON_BrepTrimmedPlane(plane, {Square(0, 1)}), nullptr);
  plane = {};
  plane.zaxis = {0, 0, -1};
  EXPECT_EQ(ON_BrepTrimmedPlane(plane, {Square(0, 1)}), nullptr);
}

// Weights below zero let a curve leave the box of its control points.
TEST(BrepTrimmedPlane, TheSurfaceHoldsCurvesWithNegativeWeights) {
  ON_NurbsCurve arc;
  // The long way round a circle of radius 1.
  const double w = -std::cos(kPi / 3);
  arc.Create(3, {0, 0, 1, 1},
             {{std::sin(kPi / 3), 0.5, 0, 1}, {0, 2 * w, 0, w}, {-std::sin(kPi / 3), 0.5, 0, 1}},
             true);
  auto curve = std::make_shared<ON_PolyCurve>();
  AddSegment(*curve, arc);
  AddSegment(*curve, ON_LineCurve(arc.PointAtEnd(), arc.PointAtStart()));
  ASSERT_TRUE(curve->IsClosed());
  const auto brep = ON_BrepTrimmedPlane({}, {curve});
  ASSERT_NE(brep, nullptr);
  EXPECT_NEAR(brep->m_S[0]->Domain(1).Min, -1, 1e-3);
  EXPECT_NEAR(brep->m_S[0]->Domain(0).Max, 1, 1e-3);
  EXPECT_GT(TrimArea(*brep, brep->m_L[0]), 2);
}

}  // namespace
