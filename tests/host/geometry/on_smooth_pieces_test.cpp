#include "host/geometry/on_smooth_pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "curve_samples.h"
#include "host/geometry/on_curve_spans.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
constexpr double kPi = std::numbers::pi;

std::vector<double> Starts(const std::vector<ON_NurbsCurve>& pieces) {
  std::vector<double> starts;
  for (const ON_NurbsCurve& piece : pieces) starts.push_back(piece.Domain().Min);
  return starts;
}

// The pieces of a curve in its own domain; each must follow the one before and lie on the curve.
std::vector<ON_NurbsCurve> PiecesOf(const ON_Curve& curve) {
  std::vector<ON_NurbsCurve> pieces = ON_SmoothPieces(curve, curve.Domain());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    EXPECT_TRUE(pieces[i].IsValid());
    if (i > 0) {
      EXPECT_EQ(pieces[i].Domain().Min, pieces[i - 1].Domain().Max);
      EXPECT_EQ(pieces[i].PointAtStart(), pieces[i - 1].PointAtEnd());
    }
    const auto flat_point = [&](double t) {
      const ON_3dPoint p = curve.PointAt(t);
      return ON_3dPoint{p.x, p.y, 0};
    };
    const ON_Interval domain = pieces[i].Domain();
    EXPECT_LT(pieces[i].PointAtStart().DistanceTo(flat_point(domain.Min)), 1e-12);
    EXPECT_LT(pieces[i].PointAtEnd().DistanceTo(flat_point(domain.Max)), 1e-12);
  }
  return pieces;
}

// Lines from point to point, then an arc of `angle` that goes on in the direction of the x axis.
ON_PolyCurve LineAndArc(double radius, double start) {
  ON_PolyCurve curve;
  curve.m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{3, 0, 0}));
  const ON_Plane plane{{3, radius, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  curve.m_segment.push_back(
      std::make_unique<ON_ArcCurve>(ON_Arc{plane, radius, {start, start + kPi / 2}}));
  curve.m_t = {0, 3, 5};
  return curve;
}

TEST(SmoothPieces, APolylineBreaksAtItsCorners) {
  const auto pieces = PiecesOf(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 3, 0}, {0, 3, 0}}));
  EXPECT_THAT(Starts(pieces), ElementsAre(0, 1, 3));
  // A point on a straight line is no corner.
  EXPECT_THAT(pieces[1].m_cv, SizeIs(3));
}

TEST(SmoothPieces, ATurnOfLessThanADegreeIsNone) {
  const double small = std::tan(0.9 * kPi / 180), large = std::tan(1.1 * kPi / 180);
  EXPECT_THAT(PiecesOf(Polyline({{0, 0, 0}, {1, 0, 0}, {2, small, 0}})), SizeIs(1));
  EXPECT_THAT(PiecesOf(Polyline({{0, 0, 0}, {1, 0, 0}, {2, large, 0}})), SizeIs(2));
}

TEST(SmoothPieces, ACircleIsOnePieceAsItIs) {
  const ON_ArcCurve circle({{}, 2, {0, 2 * kPi}});
  const auto pieces = PiecesOf(circle);
  ASSERT_THAT(pieces, SizeIs(1));
  EXPECT_EQ(pieces[0].m_cv, circle.NurbsCurve()->m_cv);
  EXPECT_EQ(pieces[0].m_knot, circle.NurbsCurve()->m_knot);
}

TEST(SmoothPieces, ALineThatMeetsAnArcIsAPieceOfItsOwn) {
  const auto pieces = PiecesOf(LineAndArc(2, -kPi / 2));
  ASSERT_THAT(Starts(pieces), ElementsAre(0, 3));
  EXPECT_EQ(pieces[0].Order(), 2);
  EXPECT_EQ(pieces[1].Order(), 3);
}

TEST(SmoothPieces, ArcsThatBendToOneSideAreOnePiece) {
  ON_PolyCurve curve;
  curve.m_segment.push_back(std::make_unique<ON_ArcCurve>(ON_Arc{{}, 2, {0, kPi}}));
  const ON_Plane inner{{-1, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  curve.m_segment.push_back(std::make_unique<ON_ArcCurve>(ON_Arc{inner, 1, {kPi, 2 * kPi}}));
  curve.m_t = {0, 1, 2};
  EXPECT_THAT(PiecesOf(curve), SizeIs(1));
  // Now the second one bends to the other side.
  const ON_Plane outer{{-3, 0, 0}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1}};
  curve.m_segment[1] = std::make_unique<ON_ArcCurve>(ON_Arc{outer, 1, {0, kPi}});
  EXPECT_THAT(Starts(PiecesOf(curve)), ElementsAre(0, 1));
}

TEST(SmoothPieces, APolycurveInAPolycurveHasItsShareOfTheDomain) {
  auto inner = std::make_unique<ON_PolyCurve>(LineAndArc(2, -kPi / 2));
  ON_PolyCurve outer;
  outer.m_segment.push_back(std::move(inner));
  outer.m_t = {10, 20};
  EXPECT_THAT(Starts(PiecesOf(outer)), ElementsAre(10, 16));
}

TEST(SmoothPieces, ABendThatChangesSidesAtASimpleKnotIsCutThere) {
  // Two parabolas with the same tangent in the middle, once as an S and once as a bow.
  const auto spline = [](double y) {
    return Nurbs(3, {0, 0, 1, 2, 2}, {{0, 0, 0}, {1, 1, 0}, {3, 1, 0}, {4, y, 0}});
  };
  EXPECT_THAT(Starts(PiecesOf(spline(2))), ElementsAre(0, 1));
  EXPECT_THAT(PiecesOf(spline(0)), SizeIs(1));
}

TEST(SmoothPieces, AKinkInsideASplineIsFound) {
  EXPECT_THAT(Starts(PiecesOf(Nurbs(3, {0, 0, 1, 1, 2, 2},
                                    {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {2, 2, 0}}))),
              ElementsAre(0, 1));
  EXPECT_THAT(PiecesOf(ClampedCubic()), SizeIs(1));
}

TEST(SmoothPieces, SmallGapsAreClosed) {
  ON_PolyCurve curve;
  curve.m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0}));
  curve.m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{1, 1e-13, 0}, ON_3dPoint{1, 1, 0}));
  curve.m_t = {0, 1, 2};
  const auto pieces = PiecesOf(curve);
  ASSERT_THAT(pieces, SizeIs(2));
  EXPECT_EQ(pieces[0].PointAtEnd(), (ON_3dPoint{1, 1e-13, 0}));
}

TEST(SmoothPieces, PiecesThatArePointsAreLeftOut) {
  EXPECT_THAT(ON_SmoothPieces(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {1, 1, 0}}), {0, 3}),
              SizeIs(2));
  EXPECT_THAT(ON_SmoothPieces(Polyline({{1, 0, 0}, {1, 0, 0}}), {0, 1}), IsEmpty());
  ON_PolyCurve curve;
  curve.m_segment.push_back(std::make_unique<ON_PolylineCurve>(Polyline({{0, 0, 0}, {1, 0, 0}})));
  curve.m_segment.push_back(std::make_unique<ON_PolylineCurve>(Polyline({{1, 0, 0}, {1, 0, 0}})));
  curve.m_segment.push_back(std::make_unique<ON_PolylineCurve>(Polyline({{1, 0, 0}, {1, 1, 0}})));
  curve.m_t = {0, 1, 2, 3};
  EXPECT_THAT(Starts(ON_SmoothPieces(curve, {0, 3})), ElementsAre(0, 2));
}

TEST(SmoothPieces, KnotsThatFallTogetherGiveNone) {
  EXPECT_THAT(
      ON_SmoothPieces(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}), {1, std::nextafter(1.0, 2.0)}),
      IsEmpty());
}

TEST(CurveSpans, TightBoxIsThatOfTheCurve) {
  const ON_ArcCurve arc({{}, 2, {0.2, 1.9}});
  const ON_BoundingBox box = ON_TightBoundingBox(*arc.NurbsCurve());
  EXPECT_NEAR(box.m_max.y, 2, 1e-12);
  EXPECT_NEAR(box.m_min.y, 2 * std::sin(0.2), 1e-12);
  EXPECT_NEAR(box.m_min.x, 2 * std::cos(1.9), 1e-12);
  EXPECT_NEAR(box.m_max.x, 2 * std::cos(0.2), 1e-12);
  // The control points reach further.
  EXPECT_GT(arc.NurbsCurve()->BoundingBox().m_max.y, 2.1);
}

TEST(CurveSpans, TightBoxOfASplineHoldsItsPoints) {
  const ON_NurbsCurve curve = ClampedCubic();
  const ON_BoundingBox box = ON_TightBoundingBox(curve);
  ON_BoundingBox sampled;
  for (int i = 0; i <= 10000; ++i) sampled.Include(curve.PointAt(2e-4 * i));
  EXPECT_NEAR(box.m_max.y, sampled.m_max.y, 1e-5);
  EXPECT_NEAR(box.m_min.y, sampled.m_min.y, 1e-5);
  EXPECT_GE(box.m_max.y, sampled.m_max.y - 1e-12);
}

TEST(CurveSpans, SignedAreaTellsTheDirection) {
  const ON_ArcCurve circle({{}, 2, {0, 2 * kPi}});
  ON_NurbsCurve form = *circle.NurbsCurve();
  EXPECT_NEAR(ON_TwiceSignedArea(form, {2, 0, 0}), 8 * kPi, 0.5);
  form.Reverse();
  EXPECT_NEAR(ON_TwiceSignedArea(form, {7, 5, 0}), -8 * kPi, 0.5);
}

}  // namespace
