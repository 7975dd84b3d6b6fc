#include "host/modeling/planar_breps.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_polyline_curve.h"
#include "host/modeling/text_outlines.h"

namespace {

using Curve = std::shared_ptr<const ON_Curve>;
using Curves = std::vector<Curve>;
using Breps = std::vector<std::unique_ptr<ON_Brep>>;

Curve Polygon(ON_SimpleArray<ON_3dPoint> points) {
  auto curve = std::make_shared<ON_PolylineCurve>();
  points.push_back(points.front());
  for (std::size_t i = 0; i < points.size(); ++i) curve->m_t.push_back(static_cast<double>(i));
  curve->m_pline = std::move(points);
  return curve;
}

Curve Square(double x, double y, double side, double z = 0) {
  return Polygon({{x, y, z}, {x + side, y, z}, {x + side, y + side, z}, {x, y + side, z}});
}

// Runs clockwise.
Curve BackwardsSquare(double x, double y, double side) {
  return Polygon({{x, y, 0}, {x, y + side, 0}, {x + side, y + side, 0}, {x + side, y, 0}});
}

Curve Circle(ON_3dPoint center, double radius) {
  ON_Plane plane;
  plane.origin = center;
  return std::make_shared<ON_ArcCurve>(ON_Arc{plane, radius, {0, 2 * std::numbers::pi}});
}

// How many loops each brep has.
std::vector<std::size_t> LoopCounts(const Breps& breps) {
  std::vector<std::size_t> counts;
  for (const auto& brep : breps) counts.push_back(brep->m_F[0].m_li.size());
  return counts;
}

Breps Fill(const Curves& curves, double tolerance = 1e-6) {
  return RhinoMakePlanarBreps(curves, tolerance);
}

ON_TextEntity2 Text(std::string letters, double height = 1) {
  ON_TextEntity2 text;
  text.m_text = std::move(letters);
  text.m_height = height;
  text.m_font = "Liberation Sans";
  return text;
}

Breps FillText(const ON_TextEntity2& text) {
  return Fill(host::TextOutlines(text), 1e-6 * text.m_height);
}

ON_3dVector NormalOf(const ON_Brep& brep) {
  const ON_Surface& surface = brep.SurfaceOf(brep.m_F[0]);
  const ON_3dVector normal = surface.NormalAt(surface.Domain(0).Min, surface.Domain(1).Min);
  return brep.m_F[0].m_bRev ? -normal : normal;
}

// What the trims of a loop enclose in the surface's parameters, which are lengths.
double LoopArea(const ON_Brep& brep, const ON_BrepLoop& loop) {
  std::vector<ON_3dPoint> points;
  for (const int index : loop.m_ti) {
    const ON_Curve& curve = brep.CurveOf(brep.m_T[static_cast<std::size_t>(index)]);
    for (int i = 0; i < 1000; ++i) {
      points.push_back(curve.PointAt(curve.Domain().ParameterAt(i / 1000.0)));
    }
  }
  double area = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const ON_3dPoint &a = points[i], &b = points[(i + 1) % points.size()];
    area += (a.x * b.y - b.x * a.y) / 2;
  }
  return area;
}

double AreaOf(const Breps& breps) {
  double area = 0;
  for (const auto& brep : breps) {
    for (const ON_BrepLoop& loop : brep->m_L) area += LoopArea(*brep, loop);
  }
  return area;
}

// What the writer of faces relies on.
void ExpectWritable(const ON_Brep& brep) {
  EXPECT_TRUE(brep.IsValid());
  ASSERT_EQ(brep.m_F.size(), 1U);
  const ON_Surface& surface = brep.SurfaceOf(brep.m_F[0]);
  ON_NurbsSurface form;
  EXPECT_TRUE(surface.GetNurbForm(form));
  const double slack = 1e-12 * (surface.Domain(0).Length() + surface.Domain(1).Length());
  for (const ON_BrepTrim& trim : brep.m_T) {
    const ON_Curve& curve = brep.CurveOf(trim);
    const ON_BrepEdge& edge = brep.m_E[static_cast<std::size_t>(trim.m_ei)];
    EXPECT_NE(ON_NurbsCurve::Cast(&curve), nullptr);
    EXPECT_FALSE(trim.m_bReversed);
    EXPECT_EQ(trim.m_domain, curve.Domain());
    for (int i = 0; i <= 20; ++i) {
      const ON_3dPoint p = curve.PointAt(curve.Domain().ParameterAt(i / 20.0));
      EXPECT_GE(p.x, surface.Domain(0).Min - slack);
      EXPECT_LE(p.x, surface.Domain(0).Max + slack);
      EXPECT_GE(p.y, surface.Domain(1).Min - slack);
      EXPECT_LE(p.y, surface.Domain(1).Max + slack);
      // The trim is the edge's image.
      const double fraction = trim.m_bRev3d ? 1 - i / 20.0 : i / 20.0;
      const ON_3dPoint q = brep.CurveOf(edge).PointAt(edge.m_domain.ParameterAt(fraction));
      if (i % 20 == 0) {
        EXPECT_LT(surface.PointAt(p.x, p.y).DistanceTo(q), 1e-5);
      }
    }
  }
  for (const ON_BrepLoop& loop : brep.m_L) {
    const bool is_outer = loop.m_type == ON_BrepLoop::Type::outer;
    EXPECT_EQ(is_outer, &loop == brep.m_L.data());
    EXPECT_EQ(LoopArea(brep, loop) > 0, is_outer);
  }
}

TEST(PlanarBreps, OfLetters) {
  struct Row {
    const char* letters;
    std::vector<std::size_t> loops;
  };
  const Row rows[] = {{"O", {2}}, {"i", {1, 1}},      {"%", {2, 1, 2}},     {"8", {3}}, {"B", {3}},
                      {"l", {1}}, {"AOB", {2, 2, 3}}, {"\xc2\xae", {2, 2}}, {" ", {}},  {"", {}}};
  for (const Row& row : rows) {
    const Breps breps = FillText(Text(row.letters));
    std::vector<std::size_t> counts = LoopCounts(breps), expected = row.loops;
    std::sort(counts.begin(), counts.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(counts, expected) << row.letters;
    for (const auto& brep : breps) ExpectWritable(*brep);
  }
}

TEST(PlanarBreps, ATextLooksWhereItsPlaneDoes) {
  ON_TextEntity2 text = Text("Bi8", 3);
  text.m_plane = {{10, 20, 30}, {0, 0.6, 0.8}, {-1, 0, 0}, {0, -0.8, 0.6}};
  const Breps breps = FillText(text);
  ASSERT_EQ(breps.size(), 4U);
  for (const auto& brep : breps) {
    ExpectWritable(*brep);
    const ON_3dVector normal = NormalOf(*brep);
    EXPECT_NEAR((normal - text.m_plane.zaxis).Length(), 0, 1e-12);
  }
  EXPECT_NEAR(AreaOf(breps), AreaOf(FillText(Text("Bi8", 3))), 1e-9);
}

TEST(PlanarBreps, ALetterInTheCounterOfAnotherIsAFaceOfItsOwn) {
  Curves curves = host::TextOutlines(Text("O", 10));
  ON_TextEntity2 small = Text("B");
  small.m_plane.origin = {4, 5, 0};
  for (const Curve& curve : host::TextOutlines(small)) curves.push_back(curve);
  const Breps breps = Fill(curves);
  EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{2, 3}));
  for (const auto& brep : breps) {
    ExpectWritable(*brep);
    EXPECT_NEAR(NormalOf(*brep).z, 1, 1e-15);
  }
}

TEST(PlanarBreps, NestedCurvesAreFilledByTurns) {
  // From outside to inside: filled, hole, filled, hole, filled.
  const Curves curves{Square(4, 4, 2), Square(0, 0, 10), BackwardsSquare(1, 1, 8),
                      Circle({5, 5, 0}, 3.5), BackwardsSquare(3, 3, 4)};
  const Breps breps = Fill(curves);
  EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{1, 2, 2}));
  const double circle = std::numbers::pi * 3.5 * 3.5;
  EXPECT_NEAR(AreaOf(breps), 4 + (100 - 64) + (circle - 16), 1e-3);
  for (const auto& brep : breps) ExpectWritable(*brep);
}

TEST(PlanarBreps, NearlyEqualCirclesAreARing) {
  for (const double width : {1e-1, 1e-3, 1e-5}) {
    const Breps breps = Fill({Circle({0, 0, 0}, 1), Circle({0, 0, 0}, 1 - width)}, 1e-9);
    EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{2})) << width;
    // Also when they are not made alike.
    ON_SimpleArray<ON_3dPoint> points;
    for (int i = 0; i < 5000; ++i) {
      const double angle = 0.3 + 2 * std::numbers::pi * i / 5000;
      points.push_back({(1 - width) * std::cos(angle), (1 - width) * std::sin(angle), 0});
    }
    EXPECT_EQ(LoopCounts(Fill({Circle({0, 0, 0}, 1), Polygon(points)}, 1e-9)),
              (std::vector<std::size_t>{2}))
        << width;
  }
}

TEST(PlanarBreps, CurvesThatTouchFromInsideAreHoles) {
  EXPECT_EQ(LoopCounts(Fill({Square(0, 0, 10), Square(0, 2, 3)})), (std::vector<std::size_t>{2}));
  // From outside they are not.
  EXPECT_EQ(LoopCounts(Fill({Square(0, 0, 10), Square(10, 2, 3)})),
            (std::vector<std::size_t>{1, 1}));
}

TEST(PlanarBreps, ACurveThatIsThereTwiceCountsOnce) {
  EXPECT_EQ(LoopCounts(Fill({Square(0, 0, 10), Square(0, 0, 10), BackwardsSquare(0, 0, 10)})),
            (std::vector<std::size_t>{1}));
  EXPECT_EQ(LoopCounts(Fill({Square(0, 0, 10), Square(1, 1, 3), Square(1, 1, 3)})),
            (std::vector<std::size_t>{2}));
}

TEST(PlanarBreps, CurvesThatCrossAreFilledEachByItself) {
  const Breps breps = Fill({Square(0, 0, 10), Square(5, 5, 10), Square(-1, 4, 3)});
  EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{1, 1, 1}));
  // The box of the second one lies in that of the first.
  EXPECT_EQ(LoopCounts(Fill({Circle({0, 0, 0}, 5), Square(0.5, 0.5, 4.4)})),
            (std::vector<std::size_t>{1, 1}));
}

TEST(PlanarBreps, ACurveThatCrossesItselfIsNoReasonToFail) {
  const Curve eight = Polygon({{0, 0, 0}, {4, 4, 0}, {4, 0, 0}, {0, 4, 0}});
  const Curve uneven = Polygon({{0, 0, 0}, {4, 4, 0}, {4, 0, 0}, {0, 3, 0}});
  EXPECT_TRUE(Fill({eight}).empty());
  const Breps breps = Fill({uneven});
  ASSERT_EQ(breps.size(), 1U);
  EXPECT_TRUE(breps[0]->IsValid());
}

TEST(PlanarBreps, CurvesOfSeveralPlanesAreKeptApart) {
  const Curves curves{Square(0, 0, 10), Square(1, 1, 3, 5), Square(2, 2, 2),
                      Polygon({{1, 5, 1}, {1, 6, 1}, {1, 6, 2}})};
  const Breps breps = Fill(curves);
  EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{2, 1, 1}));
  for (const auto& brep : breps) ExpectWritable(*brep);
  EXPECT_NEAR(NormalOf(*breps[2]).x, 1, 1e-15);
  // Within the tolerance they are in one.
  EXPECT_EQ(LoopCounts(Fill({Square(0, 0, 10), Square(1, 1, 3, 0.01)}, 0.1)),
            (std::vector<std::size_t>{2}));
  EXPECT_EQ(LoopCounts(Fill({Square(0, 0, 10), Square(1, 1, 3, 0.01)}, 0.001)),
            (std::vector<std::size_t>{1, 1}));
}

TEST(PlanarBreps, AllOfAPlaneLookToWhereTheLargestRunsCounterclockwise) {
  const Breps breps = Fill({Square(20, 0, 1), BackwardsSquare(0, 0, 10), Square(1, 1, 2)});
  EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{1, 2}));
  for (const auto& brep : breps) {
    ExpectWritable(*brep);
    EXPECT_NEAR(NormalOf(*brep).z, -1, 1e-15);
  }
}

TEST(PlanarBreps, WhatIsNotClosedOrPlanarIsLeftOut) {
  auto open = std::make_shared<ON_PolylineCurve>();
  open->m_pline = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
  open->m_t = {0, 1, 2};
  const double nan = std::nan("");
  const Curves curves{nullptr,
                      open,
                      std::make_shared<ON_PolylineCurve>(),
                      std::make_shared<ON_NurbsCurve>(),
                      Polygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0.5}, {0, 1, 0}}),
                      Polygon({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}),
                      Polygon({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}}),
                      Polygon({{0, 0, 0}, {nan, 0, 0}, {1, 1, 0}}),
                      Polygon({{0, 0, 0}, {HUGE_VAL, 0, 0}, {1, 1, 0}}),
                      Polygon({{0, 0, 0}, {1e200, 0, 0}, {1e200, 1e200, 0}}),
                      Polygon({{-1.7e308, 0, 0}, {1.7e308, 0, 0}, {0, 1.7e308, 0}}),
                      Square(0, 0, 1)};
  for (const double tolerance : {1e-6, 0.0, -1.0, nan}) {
    EXPECT_EQ(LoopCounts(Fill(curves, tolerance)), (std::vector<std::size_t>{1}));
  }
  EXPECT_TRUE(Fill({}).empty());
  // With a tolerance, what is nearly planar is.
  EXPECT_EQ(Fill({curves[4]}, 0.5).size(), 1U);
}

TEST(PlanarBreps, FarFromTheOriginTheParametersAreAsExact) {
  ON_TextEntity2 text = Text("O8");
  text.m_plane.origin = {1e6, -2e6, 5e5};
  const Breps breps = FillText(text);
  EXPECT_EQ(LoopCounts(breps), (std::vector<std::size_t>{2, 3}));
  for (const auto& brep : breps) {
    ExpectWritable(*brep);
    const ON_Interval u = brep->m_S[0]->Domain(0);
    EXPECT_NEAR(u.Min, 0, 1e-3);
    EXPECT_LT(u.Max, 2);
  }
}

TEST(PlanarBreps, OfALongTextAreAsManyAsItsLettersHave) {
  std::string letters;
  for (int line = 0; line < 20; ++line) {
    for (int i = 0; i < 5; ++i) letters += "ABdeg%O8iQ";
    letters += '\n';
  }
  // One face a letter, two more for "%" and one more for "i".
  EXPECT_EQ(FillText(Text(letters)).size(), 1300U);
}

TEST(PlanarBreps, OfThousandsOfNestedCurvesTakeMoments) {
  Curves curves;
  for (int i = 1; i <= 2000; ++i) curves.push_back(Square(-i, -i, 2 * i));
  EXPECT_EQ(LoopCounts(Fill(curves)), std::vector<std::size_t>(1000, 2));
}

TEST(PlanarBreps, OfManyNearlyEqualCurvesThatCrossTakeMoments) {
  Curves curves;
  for (int i = 0; i < 60; ++i) {
    const double angle = 2 * std::numbers::pi * i / 60;
    curves.push_back(Circle({1e-5 * std::cos(angle), 1e-5 * std::sin(angle), 0}, 1));
  }
  const Breps breps = Fill(curves, 1e-3);
  EXPECT_EQ(LoopCounts(breps), std::vector<std::size_t>(60, 1));
}

TEST(PlanarBreps, OfRandomCurvesAreValid) {
  std::minstd_rand random(1);
  const auto number = [&] { return static_cast<double>(random() % 21) - 10; };
  Curves curves;
  for (int i = 0; i < 300; ++i) {
    ON_SimpleArray<ON_3dPoint> points;
    const ON_3dPoint center{number(), number(), 0};
    const double size = std::pow(2, number() / 5);
    const auto count = 3 + random() % 9;
    for (std::size_t k = 0; k < count; ++k) {
      points.push_back({center.x + size * number(), center.y + size * number(), 0});
    }
    curves.push_back(Polygon(points));
    if (i % 3 == 0) curves.push_back(Circle(center, size));
  }
  const Breps breps = Fill(curves);
  EXPECT_GT(breps.size(), 100U);
  for (const auto& brep : breps) ExpectWritable(*brep);
}

}  // namespace
