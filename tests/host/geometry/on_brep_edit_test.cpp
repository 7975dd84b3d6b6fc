#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_poly_curve.h"
#include "support/brep_shapes.h"

// Changes of breps that leave their shape as it is.

using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr double kRounding = 1e-12;
constexpr ON_Interval kUnit{0, 1};

// A curve that has no NURBS form.
class FormlessCurve : public ON_LineCurve {
 public:
  using ON_LineCurve::ON_LineCurve;
  bool GetNurbForm(ON_NurbsCurve&) const override { return false; }
};

// Places along a trim, in its own direction.
ON_3dPoint TrimPoint(const ON_Brep& brep, const ON_BrepTrim& trim, double fraction) {
  return brep.CurveOf(trim).PointAt(
      trim.m_domain.ParameterAt(trim.m_bReversed ? 1 - fraction : fraction));
}

ON_3dPoint PointInSpace(const ON_Brep& brep, const ON_BrepFace& face, const ON_BrepTrim& trim,
                        double fraction) {
  const ON_3dPoint uv = TrimPoint(brep, trim, fraction);
  return brep.SurfaceOf(face).PointAt(uv.x, uv.y);
}

const ON_BrepFace& FaceOf(const ON_Brep& brep, const ON_BrepTrim& trim) {
  const ON_BrepLoop& loop = brep.m_L[static_cast<std::size_t>(trim.m_li)];
  return brep.m_F[static_cast<std::size_t>(loop.m_fi)];
}

// The ends and middles of all trims are where they were.
void ExpectSamePlaces(const ON_Brep& before, const ON_Brep& after) {
  ASSERT_EQ(before.m_T.size(), after.m_T.size());
  for (std::size_t i = 0; i < before.m_T.size(); ++i) {
    for (const double fraction : {0.0, 0.5, 1.0}) {
      const ON_3dPoint was =
          PointInSpace(before, FaceOf(before, before.m_T[i]), before.m_T[i], fraction);
      const ON_3dPoint is =
          PointInSpace(after, FaceOf(after, after.m_T[i]), after.m_T[i], fraction);
      EXPECT_LT(was.DistanceTo(is), kRounding) << "trim " << i << " at " << fraction;
    }
  }
}

// A plate whose hole is described by the parts `stretches` of one curve.
std::unique_ptr<ON_Brep> PlateWithHole(const std::shared_ptr<const ON_Curve>& curve,
                                       const std::vector<ON_Interval>& stretches, bool reversed) {
  const auto brep = MakePlateBrep(5, 2);
  ON_Brep& b = *brep;
  b.m_C2.back() = curve;
  const ON_BrepTrim model = b.m_T.back();
  b.m_T.pop_back();
  b.m_L[1].m_ti.clear();
  b.m_E.back().m_ti.clear();
  for (const ON_Interval& stretch : stretches) {
    ON_BrepTrim& trim = b.m_T.emplace_back(model);
    trim.m_domain = stretch;
    trim.m_bReversed = reversed;
    const int index = static_cast<int>(b.m_T.size()) - 1;
    b.m_L[1].m_ti.push_back(index);
    b.m_E.back().m_ti.push_back(index);
  }
  return brep->BrepForm();
}

std::shared_ptr<ON_ArcCurve> Circle() {
  return std::make_shared<ON_ArcCurve>(ON_Arc{{{5, 5, 0}}, 2, {0, 2 * std::numbers::pi}});
}

void ExpectWholeCurves(const ON_Brep& brep) {
  ASSERT_EQ(brep.m_T.size(), brep.m_C2.size());
  for (std::size_t i = 0; i < brep.m_T.size(); ++i) {
    const ON_BrepTrim& trim = brep.m_T[i];
    EXPECT_EQ(static_cast<int>(i), trim.m_c2i);
    EXPECT_FALSE(trim.m_bReversed);
    EXPECT_EQ(brep.CurveOf(trim).Domain(), trim.m_domain);
    EXPECT_NE(nullptr, ON_NurbsCurve::Cast(&brep.CurveOf(trim)));
  }
}

}  // namespace

TEST(BrepSetFaceDomain, TheSurfaceAndItsTrimsAreStretched) {
  const auto brep = MakePlateBrep(5, 2);
  const ON_Brep before = *brep;
  ASSERT_TRUE(brep->SetFaceDomain(0, kUnit, {10, 30}));
  ASSERT_TRUE(brep->IsValid());
  EXPECT_EQ(kUnit, brep->SurfaceOf(brep->m_F[0]).Domain(0));
  EXPECT_EQ((ON_Interval{10, 30}), brep->SurfaceOf(brep->m_F[0]).Domain(1));
  ExpectSamePlaces(before, *brep);
  EXPECT_EQ((ON_3dPoint{0, 10, 0}), TrimPoint(*brep, brep->m_T[0], 0));
  EXPECT_EQ((ON_3dPoint{1, 30, 0}), TrimPoint(*brep, brep->m_T[2], 0));
}

TEST(BrepSetFaceDomain, AllFacesOfASolidCanBeStretched) {
  const auto brep = MakeCylinderBrep(2, 5);
  const ON_Brep before = *brep;
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(brep->SetFaceDomain(i, kUnit, kUnit));
  ASSERT_TRUE(brep->IsValid());
  ExpectSamePlaces(before, *brep);
  brep->Compact();
  ASSERT_TRUE(brep->IsValid());
  EXPECT_THAT(brep->m_S, SizeIs(3));
  EXPECT_THAT(brep->m_C2, SizeIs(6));
  for (const ON_BrepFace& face : brep->m_F) EXPECT_EQ(kUnit, brep->SurfaceOf(face).Domain(0));
}

TEST(BrepSetFaceDomain, TheSurfaceOfAnOnlyFaceStaysFirst) {
  const auto brep = MakePlateBrep(5, 2);
  ASSERT_TRUE(brep->SetFaceDomain(0, kUnit, kUnit));
  ASSERT_THAT(brep->m_S, SizeIs(1));
  EXPECT_EQ(kUnit, brep->m_S[0]->Domain(0));
}

TEST(BrepSetFaceDomain, AFaceOfTheSameSurfaceKeepsIt) {
  // Two faces of one plane: its left and its right half.
  BrepBuilder builder;
  const auto plane = std::make_shared<ON_PlaneSurface>();
  for (const ON_Interval& half : {ON_Interval{-1, 0}, ON_Interval{0, 1}}) {
    std::vector<BrepBuilder::Trim> trims = RectangleTrims(half, {-1, 1});
    std::vector<int> vertices;
    for (const auto& trim : trims)
      vertices.push_back(builder.AddVertex(trim.curve->PointAtStart()));
    for (std::size_t i = 0; i < 4; ++i) {
      trims[i].edge = builder.AddEdge(trims[i].curve, vertices[i], vertices[(i + 1) % 4]);
    }
    builder.AddFace(plane);
    builder.AddLoop(ON_BrepLoop::Type::outer, trims);
  }
  const auto brep = builder.Take();
  brep->m_F[1].m_si = 0;
  brep->Compact();
  ASSERT_THAT(brep->m_S, SizeIs(1));
  ASSERT_TRUE(brep->IsValid());
  const ON_Brep before = *brep;
  ASSERT_TRUE(brep->SetFaceDomain(0, kUnit, kUnit));
  EXPECT_TRUE(brep->IsValid());
  EXPECT_EQ(plane.get(), &brep->SurfaceOf(brep->m_F[1]));
  EXPECT_EQ((ON_Interval{-1, 1}), brep->SurfaceOf(brep->m_F[1]).Domain(0));
  EXPECT_EQ(kUnit, brep->SurfaceOf(brep->m_F[0]).Domain(0));
  ExpectSamePlaces(before, *brep);
}

TEST(BrepSetFaceDomain, TrimsOfPartsOfACurveAndAgainstItAreStretchedAsTheyRun) {
  const ON_Interval whole = Circle()->Domain();
  const double cut = whole.ParameterAt(0.3);
  const auto brep = PlateWithHole(Circle(), {{cut, whole.Max}, {whole.Min, cut}}, true);
  ASSERT_TRUE(brep->IsValid());
  const ON_Brep before = *brep;
  ASSERT_TRUE(brep->SetFaceDomain(0, kUnit, kUnit));
  EXPECT_TRUE(brep->IsValid());
  ExpectSamePlaces(before, *brep);
}

TEST(BrepSetFaceDomain, WhatCanNotBeDoneChangesNothing) {
  const auto brep = MakePlateBrep(5, 2);
  brep->m_C2.back() = std::make_shared<FormlessCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0});
  brep->m_T.back().m_domain = brep->m_C2.back()->Domain();
  const auto curves = brep->m_C2;
  const auto surfaces = brep->m_S;
  EXPECT_FALSE(brep->SetFaceDomain(0, kUnit, kUnit));
  EXPECT_FALSE(brep->SetFaceDomain(1, kUnit, kUnit));
  EXPECT_FALSE(brep->SetFaceDomain(-1, kUnit, kUnit));
  EXPECT_FALSE(brep->SetFaceDomain(0, {1, 0}, kUnit));
  EXPECT_FALSE(brep->SetFaceDomain(0, kUnit, {0, 0}));
  EXPECT_FALSE(brep->SetFaceDomain(0, kUnit, {}));
  EXPECT_EQ(curves, brep->m_C2);
  EXPECT_EQ(surfaces, brep->m_S);
}

TEST(BrepSetFaceDomain, ADomainInWhichKnotsFallTogetherIsRefused) {
  const auto surface = std::make_shared<ON_NurbsSurface>();
  ON_SimpleArray<ON_4dPoint> cvs;
  for (int i = 0; i < 6; ++i) cvs.push_back({i / 2 * 1.0, i % 2 * 1.0, 0, 1});
  surface->Create({2, 2}, {ON_SimpleArray<double>{0, 1e-20, 1}, ON_SimpleArray<double>{0, 1}},
                  std::move(cvs), false);
  const auto brep = surface->BrepForm();
  ASSERT_NE(nullptr, brep);
  EXPECT_FALSE(brep->SetFaceDomain(0, {1, 2}, kUnit));
  EXPECT_TRUE(brep->SetFaceDomain(0, kUnit, {1, 2}));
}

TEST(BrepCompact, DropsWhatNobodyNamesAndKeepsTheOrder) {
  const auto brep = MakeBoxBrep({{0, 0, 0}, {1, 2, 3}});
  const ON_Brep before = *brep;
  const auto line = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0});
  brep->m_C2.insert(brep->m_C2.begin() + 3, line);
  brep->m_C3.insert(brep->m_C3.begin(), line);
  brep->m_S.insert(brep->m_S.begin() + 2, brep->m_S[0]);
  for (ON_BrepTrim& trim : brep->m_T) trim.m_c2i += trim.m_c2i >= 3 ? 1 : 0;
  for (ON_BrepEdge& edge : brep->m_E) ++edge.m_c3i;
  for (ON_BrepFace& face : brep->m_F) face.m_si += face.m_si >= 2 ? 1 : 0;
  ASSERT_TRUE(brep->IsValid());
  brep->Compact();
  EXPECT_TRUE(brep->IsValid());
  EXPECT_EQ(before.m_C2, brep->m_C2);
  EXPECT_EQ(before.m_C3, brep->m_C3);
  EXPECT_EQ(before.m_S, brep->m_S);
  ExpectSamePlaces(before, *brep);
}

TEST(BrepMakeValidForV2, EachTrimGetsAWholeNurbsCurveOfItsOwn) {
  const auto brep = MakeCylinderBrep(2, 5);
  const ON_Brep before = *brep;
  ASSERT_TRUE(brep->MakeValidForV2());
  EXPECT_TRUE(brep->IsValid());
  ExpectWholeCurves(*brep);
  ExpectSamePlaces(before, *brep);
}

TEST(BrepMakeValidForV2, PartsOfOneArcAreCutWhereTheyMeet) {
  const ON_Interval whole = Circle()->Domain();
  const double cut = whole.ParameterAt(0.3);
  for (const bool reversed : {false, true}) {
    std::vector<ON_Interval> stretches{{whole.Min, cut}, {cut, whole.Max}};
    if (reversed) std::swap(stretches[0], stretches[1]);
    const auto brep = PlateWithHole(Circle(), stretches, reversed);
    const ON_Brep before = *brep;
    ASSERT_TRUE(brep->MakeValidForV2());
    EXPECT_TRUE(brep->IsValid());
    ExpectWholeCurves(*brep);
    ExpectSamePlaces(before, *brep);
    EXPECT_LT(TrimPoint(*brep, brep->m_T[4], 1).DistanceTo(TrimPoint(*brep, brep->m_T[5], 0)),
              kRounding);
  }
}

TEST(BrepMakeValidForV2, PartsOfAPolycurveGoThroughItsSegments) {
  // A half circle, and a straight line back.
  const auto poly = std::make_shared<ON_PolyCurve>();
  poly->m_segment.push_back(
      std::make_unique<ON_ArcCurve>(ON_Arc{{{5, 5, 0}}, 2, {0, std::numbers::pi}}));
  poly->m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{3, 5, 0}, ON_3dPoint{7, 5, 0}));
  poly->m_t = {0, 1, 3};
  const auto brep = PlateWithHole(poly, {{0, 0.25}, {0.25, 2}, {2, 3}}, false);
  const ON_Brep before = *brep;
  ASSERT_TRUE(brep->MakeValidForV2());
  EXPECT_TRUE(brep->IsValid());
  ExpectWholeCurves(*brep);
  for (const std::size_t i : {4U, 5U, 6U}) {
    for (const double fraction : {0.0, 1.0}) {
      EXPECT_LT(TrimPoint(before, before.m_T[i], fraction)
                    .DistanceTo(TrimPoint(*brep, brep->m_T[i], fraction)),
                kRounding);
    }
  }
  // The middle one turns the corner.
  EXPECT_LT(brep->CurveOf(brep->m_T[5]).PointAt(1).DistanceTo({3, 5, 0}), kRounding);
  EXPECT_EQ(3, ON_NurbsCurve::Cast(brep->m_C2[5].get())->Order());
}

// The domains of a trim and of its curve's segments are stored each for itself.
TEST(BrepMakeValidForV2, APartThatReachesIntoASegmentForRoundingAloneEndsBeforeIt) {
  constexpr double kEnd = std::numbers::pi;
  const auto poly = std::make_shared<ON_PolyCurve>();
  poly->m_segment.push_back(std::make_unique<ON_ArcCurve>(ON_Arc{{{5, 5, 0}}, 2, {0, kEnd}}));
  poly->m_segment.push_back(
      std::make_unique<ON_ArcCurve>(ON_Arc{{{5, 5, 0}}, 2, {kEnd, 2 * kEnd}}));
  poly->m_t = {0, kEnd, 2 * kEnd};
  const double above = std::nextafter(kEnd, 4), below = std::nextafter(kEnd, 3);
  for (const std::vector<ON_Interval>& stretches :
       {std::vector<ON_Interval>{{0, above}, {above, 2 * kEnd}},
        std::vector<ON_Interval>{{0, below}, {below, 2 * kEnd}}}) {
    const auto brep = PlateWithHole(poly, stretches, false);
    ASSERT_TRUE(brep->IsValid());
    ASSERT_TRUE(brep->MakeValidForV2());
    ExpectWholeCurves(*brep);
    for (const std::size_t i : {4U, 5U}) {
      const ON_NurbsCurve& half = *ON_NurbsCurve::Cast(brep->m_C2[i].get());
      EXPECT_EQ(5, half.CVCount());
      EXPECT_EQ(stretches[i - 4], half.Domain());
      EXPECT_LT(half.PointAtStart().DistanceTo({i == 4 ? 7.0 : 3.0, 5, 0}), kRounding);
      EXPECT_LT(half.PointAtEnd().DistanceTo({i == 4 ? 3.0 : 7.0, 5, 0}), kRounding);
    }
  }
}

TEST(BrepMakeValidForV2, ATrimWithoutAFormKeepsWhatItHasAndSpoilsNoOther) {
  const auto brep = MakePlateBrep(5, 2);
  const auto formless = std::make_shared<FormlessCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0});
  brep->m_C2.insert(brep->m_C2.begin() + 1, formless);
  for (ON_BrepTrim& trim : brep->m_T) trim.m_c2i += trim.m_c2i >= 1 ? 1 : 0;
  brep->m_T[2].m_c2i = 1;
  brep->m_T[2].m_domain = formless->Domain();
  brep->m_T[2].m_bReversed = true;
  const ON_Brep before = *brep;
  EXPECT_FALSE(brep->MakeValidForV2());
  EXPECT_TRUE(brep->IsValid());
  ASSERT_THAT(brep->m_C2, SizeIs(5));
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(i == 2, brep->m_T[i].m_bReversed);
    EXPECT_EQ(i != 2, ON_NurbsCurve::Cast(&brep->CurveOf(brep->m_T[i])) != nullptr);
  }
  EXPECT_EQ(formless.get(), &brep->CurveOf(brep->m_T[2]));
  ExpectSamePlaces(before, *brep);
}
