#include "host/geometry/on_sum_surface.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_polyline_curve.h"
#include "surface_checks.h"
#include "surface_samples.h"

namespace {

// An arc that is moved along a line.
ON_SumSurface Vault() {
  ON_SumSurface surface;
  surface.m_basepoint = {10, 20, 30};
  surface.m_curve[0] = std::make_shared<ON_ArcCurve>(ArcOverX({0, 0, 0}, 2, {0, kPi}));
  surface.m_curve[1] = std::make_shared<ON_LineCurve>(ON_3dPoint{1, 0, 0}, ON_3dPoint{1, 5, 0});
  return surface;
}

TEST(SumSurface, AddsItsCurvesAndItsBase) {
  const ON_SumSurface surface = Vault();
  EXPECT_EQ((ON_Interval{0, 2 * kPi}), surface.Domain(0));
  EXPECT_EQ((ON_Interval{0, 5}), surface.Domain(1));
  ExpectPointsAgree({13, 20, 30}, surface.PointAt(0, 0));
  ExpectPointsAgree({11, 23, 32}, surface.PointAt(kPi, 3));
  ExpectDerivativesAreLimits(surface);
}

TEST(SumSurface, ItsNurbsFormIsExact) {
  ExpectFormAgrees(Vault());
  ON_NurbsSurface form;
  ASSERT_TRUE(Vault().GetNurbForm(form));
  EXPECT_TRUE(form.IsRational());
  EXPECT_EQ(5, form.CVCount(0));
  EXPECT_EQ(2, form.CVCount(1));
}

TEST(SumSurface, TheFormOfPolynomialCurvesIsPolynomial) {
  ON_SumSurface surface = Vault();
  surface.m_curve[0] = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{0, 0, 4});
  ExpectFormAgrees(surface);
  ON_NurbsSurface form;
  ASSERT_TRUE(surface.GetNurbForm(form));
  EXPECT_FALSE(form.IsRational());
}

TEST(SumSurface, TheFormOfCurvesOfEndlesslyManyPointsIsRefused) {
  ON_PolylineCurve polyline;
  for (int i = 0; i < 100'000; ++i) {
    polyline.m_pline.push_back({1.0 * i, 0, 0});
    polyline.m_t.push_back(i);
  }
  ON_SumSurface surface = Vault();
  surface.m_curve = {std::make_shared<ON_PolylineCurve>(polyline),
                     std::make_shared<ON_PolylineCurve>(polyline)};
  ON_NurbsSurface form;
  EXPECT_TRUE(surface.IsValid());
  EXPECT_FALSE(surface.GetNurbForm(form));
  EXPECT_EQ(nullptr, surface.BrepForm());
  EXPECT_TRUE(surface.BoundingBox().IsValid());
}

TEST(SumSurface, IsClosedWhereItsCurveIs) {
  ON_SumSurface surface = Vault();
  EXPECT_FALSE(surface.IsClosed(0));
  surface.m_curve[0] = std::make_shared<ON_ArcCurve>(ArcOverX({0, 0, 0}, 2, {0, 2 * kPi}));
  EXPECT_TRUE(surface.IsClosed(0));
  EXPECT_FALSE(surface.IsClosed(1));
  EXPECT_FALSE(surface.IsSingular(ON_Surface::Side::south));
}

TEST(SumSurface, IsNotValidWithoutBothCurves) {
  EXPECT_TRUE(Vault().IsValid());
  for (const std::size_t i : {0U, 1U}) {
    ON_SumSurface surface = Vault();
    surface.m_curve[i] = nullptr;
    EXPECT_FALSE(surface.IsValid());
    surface.m_curve[i] = std::make_shared<ON_NurbsCurve>();
    EXPECT_FALSE(surface.IsValid());
  }
  ON_SumSurface surface = Vault();
  surface.m_basepoint.y = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(surface.IsValid());
}

TEST(SumSurface, ItsBoxIsTheSumOfTheBoxes) {
  const ON_BoundingBox box = Vault().BoundingBox();
  ExpectPointsAgree({9, 20, 30}, box.m_min);
  ExpectPointsAgree({13, 25, 32}, box.m_max);
}

}  // namespace
