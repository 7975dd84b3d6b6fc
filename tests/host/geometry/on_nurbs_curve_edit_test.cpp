#include <gtest/gtest.h>

#include <limits>

#include "curve_samples.h"
#include "surface_checks.h"

namespace {

ON_NurbsCurve RationalArc() {
  ON_NurbsCurve form;
  EXPECT_TRUE(UprightArc({1, 2, 3}, 5, {0.5, 4}).GetNurbForm(form));
  return form;
}

constexpr ON_Interval kPieces[] = {{0.25, 0.75}, {0, 0.3}, {0.6, 1}, {0.5, 0.625}};

TEST(NurbsCurveEdit, ATrimmedCurveHasThePointsOfTheWhole) {
  for (const ON_NurbsCurve& whole : {ClampedCubic(), PeriodicCubic(), RationalArc()}) {
    for (const ON_Interval& fractions : kPieces) {
      const ON_Interval piece{whole.Domain().ParameterAt(fractions.Min),
                              whole.Domain().ParameterAt(fractions.Max)};
      ON_NurbsCurve part = whole;
      ASSERT_TRUE(part.Trim(piece));
      ASSERT_TRUE(part.IsValid());
      EXPECT_EQ(piece, part.Domain());
      EXPECT_EQ(whole.Order(), part.Order());
      for (const double s : {0.0, 0.1, 0.4, 0.77, 1.0}) {
        const double t = piece.ParameterAt(s);
        ExpectPointsAgree(whole.PointAt(t), part.PointAt(t));
      }
      ExpectPointsAgree(part.PointAtStart(), part.m_cv.front().Euclidean());
      ExpectPointsAgree(part.PointAtEnd(), part.m_cv.back().Euclidean());
    }
  }
}

TEST(NurbsCurveEdit, TrimmingKeepsOnlyTheKnotsInside) {
  ON_NurbsCurve curve = ClampedCubic();
  ASSERT_TRUE(curve.Trim({1, 2}));
  EXPECT_EQ((ON_SimpleArray<double>{1, 1, 1, 2, 2, 2}), curve.m_knot);
  EXPECT_EQ(4, curve.CVCount());
}

TEST(NurbsCurveEdit, TrimmingGoesNoFurtherThanTheDomain) {
  ON_NurbsCurve curve = ClampedCubic();
  ASSERT_TRUE(curve.Trim({-5, 0.5}));
  EXPECT_EQ((ON_Interval{0, 0.5}), curve.Domain());
}

TEST(NurbsCurveEdit, TrimmingToNothingChangesNothing) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const ON_NurbsCurve whole = ClampedCubic();
  for (const ON_Interval& bad : {ON_Interval{1, 1}, {1.5, 0.5}, {2, 3}, {-3, 0}, {kNaN, kNaN}}) {
    ON_NurbsCurve curve = whole;
    EXPECT_FALSE(curve.Trim(bad));
    EXPECT_EQ(whole.m_cv, curve.m_cv);
    EXPECT_EQ(whole.m_knot, curve.m_knot);
  }
}

TEST(NurbsCurveEdit, AClampedCurveIsItsWholeDomain) {
  const ON_NurbsCurve whole = ClampedCubic();
  ON_NurbsCurve curve = whole;
  ASSERT_TRUE(curve.Trim({0, 2}));
  EXPECT_EQ(whole.m_cv, curve.m_cv);
  EXPECT_EQ(whole.m_knot, curve.m_knot);
}

TEST(NurbsCurveEdit, AReversedCurveKeepsItsDomain) {
  for (const ON_NurbsCurve& curve : {ClampedCubic(), PeriodicCubic(), RationalArc()}) {
    ON_NurbsCurve reversed = curve;
    reversed.Reverse();
    ASSERT_TRUE(reversed.IsValid());
    EXPECT_EQ(curve.Domain(), reversed.Domain());
    for (const double s : {0.0, 0.1, 0.4, 0.77, 1.0}) {
      ExpectPointsAgree(curve.PointAt(curve.Domain().ParameterAt(s)),
                        reversed.PointAt(curve.Domain().ParameterAt(1 - s)));
    }
  }
}

TEST(NurbsCurveEdit, AnAffineMapMovesEachPoint) {
  ON_Xform xform;
  xform.m_xform = {{{0, -2, 0, 7}, {3, 0, 0, -1}, {0, 1, 1, 4}, {0, 0, 0, 1}}};
  for (const ON_NurbsCurve& curve : {ClampedCubic(), RationalArc()}) {
    ON_NurbsCurve moved = curve;
    moved.Transform(xform);
    for (const double s : {0.0, 0.3, 1.0}) {
      const double t = curve.Domain().ParameterAt(s);
      ExpectPointsAgree(xform * curve.PointAt(t), moved.PointAt(t));
    }
    EXPECT_EQ(curve.m_cv[1].w, moved.m_cv[1].w);
  }
}

TEST(NurbsCurveEdit, APlaneCurveThatLeavesThePlaneGetsAThirdCoordinate) {
  ON_NurbsCurve curve = Nurbs(2, {0, 1}, {{0, 0, 0}, {1, 2, 0}});
  curve.m_dim = 2;
  ON_Xform xform;
  xform.m_xform[0][3] = 5;
  curve.Transform(xform);
  EXPECT_EQ(2, curve.m_dim);
  xform.m_xform[2][3] = 5;
  curve.Transform(xform);
  EXPECT_EQ(3, curve.m_dim);
}

}  // namespace
