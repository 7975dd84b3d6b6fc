#include "host/geometry/on_nurbs_surface.h"

#include <gtest/gtest.h>

#include <limits>

#include "surface_checks.h"
#include "surface_samples.h"

namespace {

// Order 4 by 3 over the whole plane z = 0, both directions unclamped.
ON_NurbsSurface UnclampedPatch() {
  ON_NurbsSurface surface;
  ON_SimpleArray<ON_4dPoint> cvs;
  for (int i = 0; i < 5; ++i) {
    for (int j = 0; j < 4; ++j) {
      cvs.push_back(ON_NurbsCurve::Unweighted({1.0 * i, 1.0 * j, 0.5 * ((i * j) % 3)}));
    }
  }
  surface.Create({4, 3}, {{{-2, -1, 0, 1, 2, 4, 7}, {0, 1, 2, 3, 5}}}, std::move(cvs), false);
  return surface;
}

TEST(NurbsSurface, CountsKnotsAsTheHostDoes) {
  const ON_NurbsSurface surface = RationalPatch();
  ASSERT_TRUE(surface.IsValid());
  EXPECT_EQ(3, surface.Order(0));
  EXPECT_EQ(1, surface.Degree(1));
  EXPECT_EQ(5, surface.KnotCount(0));
  EXPECT_EQ(4, surface.CVCount(0));
  EXPECT_EQ(2, surface.CVCount(1));
  EXPECT_EQ((ON_4dPoint{3, 6, 3, 3}), surface.CV(1, 1));
  EXPECT_EQ((ON_Interval{0, 3}), surface.Domain(0));
  EXPECT_EQ((ON_Interval{2, 4}), surface.Domain(1));
}

TEST(NurbsSurface, ItsPointsAreThoseOfTheTextBooksFormula) {
  const ON_NurbsSurface surface = RationalPatch();
  for (const double s : kFractions) {
    for (const double t : kFractions) {
      const double u = surface.Domain(0).ParameterAt(s), v = surface.Domain(1).ParameterAt(t);
      ExpectPointsAgree(PointByBasis(surface, u, v), surface.PointAt(u, v));
    }
  }
}

TEST(NurbsSurface, PointsOfUnclampedKnotsAreThoseOfTheFormulaToo) {
  const ON_NurbsSurface surface = UnclampedPatch();
  ASSERT_TRUE(surface.IsValid());
  EXPECT_EQ((ON_Interval{0, 2}), surface.Domain(0));
  EXPECT_EQ((ON_Interval{1, 3}), surface.Domain(1));
  for (const double s : {0.1, 0.3, 0.5, 0.8}) {
    ExpectPointsAgree(PointByBasis(surface, 2 * s, 1 + 2 * s), surface.PointAt(2 * s, 1 + 2 * s));
  }
}

TEST(NurbsSurface, ItsDerivativesAreTheLimitsOfDifferences) {
  ExpectDerivativesAreLimits(RationalPatch());
  ExpectDerivativesAreLimits(UnclampedPatch());
}

TEST(NurbsSurface, CurvesInItLieInIt) {
  for (const ON_NurbsSurface& surface : {RationalPatch(), UnclampedPatch()}) {
    for (const double s : kFractions) {
      const double u = surface.Domain(0).ParameterAt(s), v = surface.Domain(1).ParameterAt(s);
      const ON_NurbsCurve along_u = surface.IsoCurve(0, v), along_v = surface.IsoCurve(1, u);
      ASSERT_TRUE(along_u.IsValid() && along_v.IsValid());
      EXPECT_EQ(surface.Domain(0), along_u.Domain());
      EXPECT_EQ(surface.Domain(1), along_v.Domain());
      for (const double t : kFractions) {
        const double x = surface.Domain(0).ParameterAt(t), y = surface.Domain(1).ParameterAt(t);
        ExpectPointsAgree(surface.PointAt(x, v), along_u.PointAt(x));
        ExpectPointsAgree(surface.PointAt(u, y), along_v.PointAt(y));
      }
    }
  }
}

TEST(NurbsSurface, ANewDomainMovesParametersAndNoPoint) {
  const ON_NurbsSurface old = RationalPatch();
  ON_NurbsSurface surface = old;
  surface.SetDomain(0, {0, 1});
  surface.SetDomain(1, {-5, 7});
  EXPECT_EQ((ON_Interval{0, 1}), surface.Domain(0));
  EXPECT_EQ((ON_Interval{-5, 7}), surface.Domain(1));
  EXPECT_EQ(old.m_cv, surface.m_cv);
  EXPECT_TRUE(surface.IsValid());
  for (const double s : kFractions) {
    ExpectPointsAgree(
        old.PointAt(old.Domain(0).ParameterAt(s), old.Domain(1).ParameterAt(1 - s)),
        surface.PointAt(surface.Domain(0).ParameterAt(s), surface.Domain(1).ParameterAt(1 - s)));
  }
}

TEST(NurbsSurface, WhatCannotBeEvaluatedIsNotValid) {
  const ON_NurbsSurface good = RationalPatch();
  const auto is_valid = [&](const std::function<void(ON_NurbsSurface&)>& change) {
    ON_NurbsSurface surface = good;
    change(surface);
    return surface.IsValid();
  };
  EXPECT_FALSE(ON_NurbsSurface().IsValid());
  EXPECT_FALSE(is_valid([](auto& s) { s.m_order[1] = 1; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_order[0] = 33; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_order[0] = 5; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_knot[1].push_back(5); }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_knot[0][2] = -1; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_knot[0] = {0, 0, 0, 3, 3}; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_cv.pop_back(); }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_cv[3].z = std::numeric_limits<double>::infinity(); }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_cv[0].w = 0; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_cv.back().w = 0; }));
  EXPECT_TRUE(is_valid([](auto& s) { s.m_cv[3].w = 0; }));
}

TEST(NurbsSurface, IsClosedWhenItsSidesAreOneCurve) {
  EXPECT_FALSE(RationalPatch().IsClosed(0));
  EXPECT_FALSE(RationalPatch().IsClosed(1));
  ON_NurbsSurface form;
  ASSERT_TRUE(Cylinder().GetNurbForm(form));
  EXPECT_TRUE(form.IsClosed(0));
  EXPECT_FALSE(form.IsClosed(1));
  // The same points with other weights are another curve.
  form.m_cv.front() = form.m_cv.front() * 2;
  EXPECT_FALSE(form.IsClosed(0));
}

TEST(NurbsSurface, ASideIsSingularWhenItIsOnePoint) {
  using Side = ON_Surface::Side;
  ON_NurbsSurface form;
  ASSERT_TRUE(Sphere().GetNurbForm(form));
  EXPECT_TRUE(form.IsSingular(Side::south));
  EXPECT_FALSE(form.IsSingular(Side::east));
  EXPECT_TRUE(form.IsSingular(Side::north));
  EXPECT_FALSE(form.IsSingular(Side::west));
}

}  // namespace
