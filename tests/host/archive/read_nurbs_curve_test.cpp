#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "curve_records.h"
#include "host/geometry/on_nurbs_curve.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReadNurbsCurve, ANurbsCurveIsReadInEachForm) {
  for (const int minor : {0, 1}) {
    const auto [reading, curve] = ReadCurveRecord(kNurbs, Writer(NurbsRecord{.minor = minor}));
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(curve.get());
    ASSERT_NE(nullptr, nurbs);
    EXPECT_EQ(3, nurbs->Order());
    EXPECT_FALSE(nurbs->IsRational());
    EXPECT_THAT(nurbs->m_knot, ElementsAre(0, 0, 1, 1));
    EXPECT_THAT(nurbs->m_cv, ElementsAre(ON_4dPoint{0, 0, 0, 1}, ON_4dPoint{1, 2, 3, 1},
                                         ON_4dPoint{4, 5, 6, 1}));
  }
}

TEST(ReadNurbsCurve, APlaneNurbsCurveHasWeightsBehindItsTwoCoordinates) {
  const auto [reading, curve] = ReadCurveRecord(
      kNurbs,
      Writer(NurbsRecord{.dimension = 2, .rational = 1, .cvs = {0, 0, 1, 1, 2, 0.5, 4, 5, 1}}));
  ASSERT_TRUE(reading.ok);
  const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(curve.get());
  ASSERT_NE(nullptr, nurbs);
  EXPECT_EQ(2, nurbs->m_dim);
  EXPECT_TRUE(nurbs->IsRational());
  EXPECT_EQ((ON_4dPoint{1, 2, 0, 0.5}), nurbs->m_cv[1]);
}

TEST(ReadNurbsCurve, ANurbsCurveOfAnotherShapeIsTold) {
  ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.major = 2}),
                     "a NURBS curve of an unknown version");
  for (const int dimension : {-1, 0, 4}) {
    ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.dimension = dimension}),
                       "of an unknown dimension");
  }
  for (const int order : {-1, 0, 1, 33, 0x7fffffff}) {
    ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.order = order}), "of an order outside 2 to 32");
  }
  for (const int count : {-0x7fffffff, 0, 2}) {
    ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.cv_count = count}),
                       "fewer control points than its order");
  }
  ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.stored_knots = 3}), "another number of knots");
  ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.cv_count = 0x7fffffff}),
                     "another number of knots");
  ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.stored_knots = 0x7fffffff}),
                     "a count exceeds what its chunk can hold");
  ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.stored_cvs = 2}),
                     "another number of control points");
  ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.stored_cvs = 0x7fffffff}),
                     "a count exceeds what its chunk can hold");
}

TEST(ReadNurbsCurve, ANurbsCurveThatIsNotValidIsTold) {
  for (const std::vector<double>& knots :
       {std::vector<double>{0, 1, 0, 1}, {0, 0, 0, 0}, {0, 0, kNaN, 1}, {0, 0, 1, kInfinity}}) {
    ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.knots = knots}),
                       "a NURBS curve that isn't valid");
  }
  for (const double bad : {kNaN, kInfinity, ON_UNSET_VALUE}) {
    ExpectCurveFailure(kNurbs, Writer(NurbsRecord{.cvs = {0, 0, 0, 1, bad, 3, 4, 5, 6}}),
                       "a NURBS curve that isn't valid");
  }
}
