#include "export/nurbs_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "export_fixture.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/system/text.h"
#include "line_model.h"
#include "support/trimmed_faces.h"

namespace {

using orv::RibWriter;
using testing::HasSubstr;
using testing::Not;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// What is written of a brep.
std::string BrepText(const ON_Brep& brep, int reparameterize = 0) {
  return Written([&](RibWriter& writer) {
    writer.Reparameterize = reparameterize;
    EXPECT_EQ(orv::WriteBrep(writer, brep), 1);
  });
}

// A flat square over the domain, from (0,0,0) to (8,4,0).
std::shared_ptr<ON_NurbsSurface> Square(ON_Interval u = {0, 2}, ON_Interval v = {0, 1}) {
  auto surface = std::make_shared<ON_NurbsSurface>();
  surface->Create({2, 2}, {{{u.Min, u.Max}, {v.Min, v.Max}}},
                  {{0, 0, 0, 1}, {0, 4, 0, 1}, {8, 0, 0, 1}, {8, 4, 0, 1}}, false);
  return surface;
}
constexpr const char* kTexture = "TextureCoordinates [ 0 1 1 1 0 0 1 0 ]\n";
constexpr const char* kSquarePatch =
    "NuPatch 2 2 [ 0 0 2 2 ] 0 2 2 2 [ 0 0 1 1 ] 0 1 \"P\" [ 0 0 0 8 0 0 0 4 0 8 4 0 ]\n";

// One span of order 4 in both directions.
ON_NurbsSurface Bicubic() {
  ON_SimpleArray<ON_4dPoint> cvs;
  for (const double u : {0, 1, 2, 3}) {
    for (const double v : {0, 1, 2, 3}) cvs.push_back({u, v, u * v, 1});
  }
  ON_NurbsSurface surface;
  surface.Create({4, 4}, {{{0, 0, 0, 1, 1, 1}, {0, 0, 0, 1, 1, 1}}}, cvs, false);
  return surface;
}

// The square with a triangle as its boundary.
ON_Brep Triangle() {
  ON_Brep brep;
  AddTrimmedFace(brep, Square(), {PolygonLoop({{0, 0}, {2, 0}, {0, 1}})});
  return brep;
}

TEST(NurbsWriter, AnUntrimmedSurfaceHasNoBlock) {
  EXPECT_EQ(BrepText(*Square()->BrepForm()), std::string(kTexture) + kSquarePatch);
}

TEST(NurbsWriter, AReversedSurfaceSaysSo) {
  const auto brep = Square()->BrepForm();
  brep->m_F[0].m_bRev = true;
  EXPECT_EQ(BrepText(*brep), std::string(kTexture) + "ReverseOrientation\n" + kSquarePatch);
}

TEST(NurbsWriter, OrderFourWithFourPointsHasEightKnots) {
  EXPECT_EQ(BrepText(*Bicubic().BrepForm()),
            std::string(kTexture) +
                "NuPatch 4 4 [ 0 0 0 0 1 1 1 1 ] 0 1 4 4 [ 0 0 0 0 1 1 1 1 ] 0 1 \"P\" [ "
                "0 0 0 1 0 0 2 0 0 3 0 0 "
                "0 1 0 1 1 1 2 1 2 3 1 3 "
                "0 2 0 1 2 2 2 2 4 3 2 6 "
                "0 3 0 1 3 3 2 3 6 3 3 9 ]\n");
}

TEST(NurbsWriter, ARationalSurfaceHasWeightedPoints) {
  const auto surface = Square();
  surface->m_is_rat = true;
  surface->m_cv[3] = {4, 2, 0, 0.5};
  EXPECT_EQ(BrepText(*surface->BrepForm()),
            std::string(kTexture) +
                "NuPatch 2 2 [ 0 0 2 2 ] 0 2 2 2 [ 0 0 1 1 ] 0 1 \"Pw\" [ 0 0 0 1 8 0 0 1 0 4 0 1 "
                "4 2 0 0.5 ]\n");
}

TEST(NurbsWriter, ASurfaceOfAnotherKindIsWrittenInItsNurbsForm) {
  ON_PlaneSurface plane;
  plane.m_domain[0] = {0, 2};
  plane.m_domain[1] = {0, 1};
  plane.m_extents[0] = {0, 8};
  plane.m_extents[1] = {0, 4};
  EXPECT_EQ(BrepText(*plane.BrepForm()), std::string(kTexture) + kSquarePatch);
}

TEST(NurbsWriter, ATrimmedFaceHasItsTrimsInABlock) {
  EXPECT_EQ(BrepText(Triangle()),
            "AttributeBegin\n"
            "  TextureCoordinates [ 0 1 1 1 0 0 1 0 ]\n"
            "  TrimCurve [ 3 ] [ 2 2 2 ] [ 0 0 2 2 0 0 2.23607 2.23607 0 0 1 1 ] [ 0 0 0 ] "
            "[ 2 2.23607 1 ] [ 2 2 2 ] [ 0 2 2 0 0 0 ] [ 0 0 0 1 1 0 ] [ 1 1 1 1 1 1 ]\n"
            "  " +
                std::string(kSquarePatch) + "AttributeEnd\n");
}

TEST(NurbsWriter, AReversedFaceKeepsItsTrims) {
  ON_Brep brep = Triangle();
  const std::string forward = BrepText(brep);
  brep.m_F[0].m_bRev = true;
  std::string expected = forward;
  expected.insert(expected.find("  TrimCurve"), "  ReverseOrientation\n");
  EXPECT_EQ(BrepText(brep), expected);
}

TEST(NurbsWriter, EachLoopHasItsCountOfTrims) {
  ON_Brep brep;
  AddTrimmedFace(brep, Square(),
                 {PolygonLoop({{0, 0}, {2, 0}, {2, 1}, {0, 1}}), CircleLoop({1, 0.5}, 0.25)});
  const std::string text = BrepText(brep);
  EXPECT_THAT(text, HasSubstr("  TrimCurve [ 4 1 ] [ 2 2 2 2 3 ] ["));
  // The weights of the circle stand behind those of the lines.
  EXPECT_THAT(text, HasSubstr("] [ 1 1 1 1 1 1 1 1 1 0.707107 1 0.707107 1 0.707107 1 0.707107 1 "
                              "]\n"));
  // Its points are multiplied by them.
  EXPECT_THAT(text, HasSubstr(" 1.25 0.883883 1 0.53033 0.75 0.53033 1 0.883883 1.25 ] ["));
}

TEST(NurbsWriter, EachFaceHasABlock) {
  ON_Brep brep = Triangle();
  AddTrimmedFace(brep, Square(), {PolygonLoop({{0, 0}, {2, 0}, {0, 1}})});
  EXPECT_EQ(BrepText(brep), BrepText(Triangle()) + BrepText(Triangle()));
}

TEST(NurbsWriter, AFaceWithItsNaturalBoundaryHasNoTrims) {
  ON_Brep brep;
  const TrimLoop sides = PolygonLoop({{0, 0}, {2, 0}, {2, 1}, {0, 1}});
  AddTrimmedFace(brep, Square(), {sides});
  AddTrimmedFace(brep, Square(), {sides});
  for (std::size_t i = 0; i < 4; ++i) brep.m_T[i].m_iso = ON_BrepTrim::Iso::west;
  const std::string text = BrepText(brep);
  EXPECT_TRUE(text.starts_with("AttributeBegin\n  " + std::string(kTexture) + "  " + kSquarePatch +
                               "AttributeEnd\nAttributeBegin\n  " + kTexture + "  TrimCurve [ 4 ]"))
      << text;
}

TEST(NurbsWriter, ReparameterizedFacesHaveUnitDomains) {
  const std::string whole = BrepText(*Square({5, 7}, {-1, 3})->BrepForm(), 1);
  EXPECT_EQ(whole, std::string(kTexture) +
                       "NuPatch 2 2 [ 0 0 1 1 ] 0 1 2 2 [ 0 0 1 1 ] 0 1 \"P\" [ "
                       "0 0 0 8 0 0 0 4 0 8 4 0 ]\n");
  EXPECT_THAT(BrepText(*Square({5, 7}, {-1, 3})->BrepForm()),
              HasSubstr("NuPatch 2 2 [ 5 5 7 7 ] 5 7 2 2 [ -1 -1 3 3 ] -1 3 \"P\""));
  const std::string trimmed = BrepText(Triangle(), 1);
  EXPECT_THAT(trimmed, HasSubstr("NuPatch 2 2 [ 0 0 1 1 ] 0 1 2 2 [ 0 0 1 1 ] 0 1 \"P\""));
  EXPECT_THAT(trimmed, HasSubstr("] [ 0 1 1 0 0 0 ] [ 0 0 0 1 1 0 ] [ 1 1 1 1 1 1 ]\n"));
}

TEST(NurbsWriter, TheBrepItselfIsNotChanged) {
  const ON_Brep brep = Triangle();
  const std::string before = BrepText(brep);
  BrepText(brep, 1);
  EXPECT_EQ(BrepText(brep), before);
}

TEST(NurbsWriter, ABrepWithoutFacesWritesNothing) {
  EXPECT_EQ(BrepText(ON_Brep()), "");
  EXPECT_EQ(BrepText(ON_Brep(), 1), "");
}

TEST(NurbsWriter, AnInvalidTrimIsLeftOutButCounted) {
  ON_Brep brep = Triangle();
  auto broken = std::make_shared<ON_NurbsCurve>();
  broken->Create(2, {0, 1}, {{2, 0, 0, 1}, {0, kNaN, 0, 1}});
  brep.m_C2[1] = broken;
  EXPECT_THAT(BrepText(brep), HasSubstr("  TrimCurve [ 3 ] [ 2 2 ] [ 0 0 2 2 0 0 1 1 ] [ 0 0 ] "
                                        "[ 2 1 ] [ 2 2 ] [ 0 2 0 0 ] [ 0 0 1 0 ] [ 1 1 1 1 ]\n"));
}

TEST(NurbsWriter, AnInvalidSurfaceHasNoPatch) {
  const auto surface = Square();
  const auto whole = surface->BrepForm();
  const auto broken = std::make_shared<ON_NurbsSurface>(*surface);
  broken->m_cv[1].z = kNaN;
  whole->m_S[0] = broken;
  EXPECT_EQ(BrepText(*whole), "");
  ON_Brep trimmed = Triangle();
  trimmed.m_S[0] = broken;
  const std::string text = BrepText(trimmed);
  EXPECT_THAT(text, HasSubstr("  TrimCurve [ 3 ]"));
  EXPECT_THAT(text, Not(HasSubstr("NuPatch")));
  EXPECT_TRUE(text.ends_with("]\nAttributeEnd\n"));
}

// Writes the trims of a face by walking over them for each array, a text for each number.
class PlainTrims {
 public:
  PlainTrims(LineModel& lines, const ON_Brep& brep) : lines_(lines), brep_(brep) {}

  void Write() {
    lines_.Add("TrimCurve [ ");
    for (const int loop : brep_.m_F[0].m_li) {
      Add("%d ", static_cast<int>(brep_.m_L[static_cast<std::size_t>(loop)].m_ti.size()));
    }
    Array([&](const ON_NurbsCurve& trim) { Add("%d ", trim.Degree() + 1); });
    Array([&](const ON_NurbsCurve& trim) {
      Add("%g ", trim.m_knot.front());
      for (const double knot : trim.m_knot) Add("%g ", knot);
      Add("%g ", trim.m_knot.back());
    });
    Array([&](const ON_NurbsCurve& trim) { Add("%g ", trim.Domain().Min); });
    Array([&](const ON_NurbsCurve& trim) { Add("%g ", trim.Domain().Max); });
    Array([&](const ON_NurbsCurve& trim) { Add("%d ", trim.CVCount()); });
    Array([&](const ON_NurbsCurve& trim) {
      for (const ON_4dPoint& cv : trim.m_cv) Add("%g ", cv.x);
    });
    Array([&](const ON_NurbsCurve& trim) {
      for (const ON_4dPoint& cv : trim.m_cv) Add("%g ", cv.y);
    });
    Array([&](const ON_NurbsCurve& trim) {
      for (const ON_4dPoint& cv : trim.m_cv) Add("%g ", trim.IsRational() ? cv.w : 1.0);
    });
    lines_.Add("]\n");
  }

 private:
  template <class Number>
  void Add(const char* format, Number number) {
    lines_.Add(host::Format(format, number));
  }
  template <class Write>
  void Array(Write write) {
    lines_.Add("] [ ");
    for (const int loop : brep_.m_F[0].m_li) {
      for (const int trim : brep_.m_L[static_cast<std::size_t>(loop)].m_ti) {
        write(*brep_.CurveOf(brep_.m_T[static_cast<std::size_t>(trim)]).NurbsCurve());
      }
    }
  }

  LineModel& lines_;
  const ON_Brep& brep_;
};

void AddPlainPatch(LineModel& lines, const ON_NurbsSurface& surface) {
  for (const int direction : {0, 1}) {
    lines.Add(host::Format(direction == 0 ? "NuPatch %d %d [ " : "%d %d [ ",
                           surface.CVCount(direction), surface.Order(direction)));
    lines.Add(host::Format("%g ", surface.Knots(direction).front()));
    for (const double knot : surface.Knots(direction)) lines.Add(host::Format("%g ", knot));
    lines.Add(host::Format("%g ] ", surface.Knots(direction).back()));
    const ON_Interval domain = surface.Domain(direction);
    lines.Add(host::Format("%g %g ", domain.Min, domain.Max));
  }
  lines.Add("\"P\" [ ");
  for (int j = 0; j < surface.CVCount(1); ++j) {
    for (int i = 0; i < surface.CVCount(0); ++i) {
      const ON_4dPoint& cv = surface.CV(i, j);
      lines.Add(host::Format("%g %g %g ", cv.x, cv.y, cv.z));
    }
  }
  lines.Add("]\n");
}

// A surface of many spans.
std::shared_ptr<ON_NurbsSurface> Waves(std::minstd_rand& random) {
  std::uniform_real_distribution<double> number(-1000, 1000);
  std::array<ON_SimpleArray<double>, 2> knots;
  for (auto& direction : knots) {
    for (int i = 0; i < 40; ++i) direction.push_back(i / 3.0);
  }
  ON_SimpleArray<ON_4dPoint> cvs;
  for (int i = 0; i < 38 * 38; ++i) cvs.push_back({number(random), number(random), 0.1 * i, 1});
  auto surface = std::make_shared<ON_NurbsSurface>();
  surface->Create({4, 4}, knots, cvs, false);
  return surface;
}

TEST(NurbsWriter, BreaksLongLinesWhereAWriterOfSingleTextsDoes) {
  std::minstd_rand random(5);
  std::uniform_real_distribution<double> parameter(1, 12);
  std::vector<TrimLoop> loops(3);
  for (TrimLoop& loop : loops) {
    std::vector<ON_2dPoint> corners;
    for (int i = 0; i < 300; ++i) corners.push_back({parameter(random), parameter(random)});
    loop = PolygonLoop(corners);
  }
  loops.push_back(CircleLoop({5, 5}, 1));
  const auto surface = Waves(random);
  ON_Brep brep;
  AddTrimmedFace(brep, surface, loops);

  LineModel lines;
  lines.Add("AttributeBegin\n");
  lines.indent = 2;
  lines.Add(kTexture);
  PlainTrims(lines, brep).Write();
  AddPlainPatch(lines, *surface);
  lines.indent = 0;
  lines.Add("AttributeEnd\n");
  EXPECT_GT(lines.written.size(), 60000u);
  EXPECT_EQ(BrepText(brep), lines.written);
}

TEST(NurbsWriter, TheSamplesAreWhole) {
  EXPECT_TRUE(Triangle().IsValid());
  EXPECT_TRUE(Square()->BrepForm()->IsValid());
}

}  // namespace
