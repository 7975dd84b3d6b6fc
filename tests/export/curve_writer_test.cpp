#include "export/curve_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "line_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kRibbon = "Attribute \"curve\" \"string type\" \"ribbon\"\n";
constexpr const char* kSolid = "Surface \"constant\"\n";

class CurveWriterTest : public LineTest {
 protected:
  std::string BodyOf(std::shared_ptr<ON_Curve> curve) {
    return WrittenOf(curve, [&](const auto& stream, const auto& object) {
      orv::WriteCurveBody(stream, object, *curve, attributes_);
    });
  }
  // What is written of a curve behind the constant look.
  std::string GeometryOf(std::shared_ptr<ON_Curve> curve) {
    const std::string body = BodyOf(std::move(curve));
    const std::string look = ConstantLook() + kSolid;
    EXPECT_TRUE(body.starts_with(look)) << body;
    return body.substr(look.size());
  }
  // Objects take the linetype of a dash of 2 and a gap of 1.
  void UseDashes() {
    model_.m_linetype_table.resize(1);
    model_.m_linetype_table[0].m_segments = {{2, false}, {1, true}};
    hostAttributes_.m_linetype_source = ON_AttributeSource::object;
    hostAttributes_.m_linetype_index = 0;
  }
};

std::shared_ptr<ON_PolylineCurve> Polyline(std::vector<ON_3dPoint> points) {
  auto curve = std::make_shared<ON_PolylineCurve>();
  for (const ON_3dPoint& point : points) {
    curve->m_pline.push_back(point);
    curve->m_t.push_back(static_cast<double>(curve->m_t.size()));
  }
  return curve;
}

std::shared_ptr<ON_PolylineCurve> Hook() {
  return Polyline({{0, 0, 0}, {3, 0, 0}, {3, 1, 0}});
}

std::shared_ptr<ON_NurbsCurve> Cubic() {
  auto curve = std::make_shared<ON_NurbsCurve>();
  curve->Create(4, {0, 0, 0, 2, 2, 2}, {{0, 0, 0, 1}, {1, 1, 0, 1}, {2, -1, 0.5, 1}, {3, 0, 0, 1}});
  return curve;
}

std::shared_ptr<ON_ArcCurve> Circle() {
  ON_Arc arc;
  arc.radius = 2;
  arc.m_angle = {0, 6.2831853071795862};
  return std::make_shared<ON_ArcCurve>(arc);
}

TEST_F(CurveWriterTest, APolylineIsWrittenByItsPoints) {
  settings_.CurveWidth = 0.25;
  EXPECT_EQ(GeometryOf(Hook()),
            "Curves \"linear\" [3] \"nonperiodic\" \"P\" [ 0 0 0 3 0 0 3 1 0 ] "
            "\"constantwidth\" [0.25]\n");
}

TEST_F(CurveWriterTest, ALineIsAPolyline) {
  EXPECT_EQ(GeometryOf(std::make_shared<ON_LineCurve>(ON_3dPoint{1, 2, 3}, ON_3dPoint{4, 5, 6})),
            "Curves \"linear\" [2] \"nonperiodic\" \"P\" [ 1 2 3 4 5 6 ] \"constantwidth\" [1]\n");
}

TEST_F(CurveWriterTest, ANurbsCurveHasItsEndKnotsTwice) {
  EXPECT_EQ(GeometryOf(Cubic()), std::string(kRibbon) +
                                     "NuCurves [4] [4] [0 0 0 0 2 2 2 2] [0] [2] "
                                     "\"P\" [0 0 0 1 1 0 2 -1 0.5 3 0 0 ] \"constantwidth\" [1]\n");
}

TEST_F(CurveWriterTest, ARationalCurveHasWeightedPoints) {
  auto curve = Cubic();
  curve->m_is_rat = true;
  curve->m_cv[1] = {2, 2, 0, 2};
  EXPECT_THAT(GeometryOf(curve),
              HasSubstr("\"Pw\" [0 0 0 1 2 2 0 2 2 -1 0.5 1 3 0 0 1 ] \"constantwidth\" [1]\n"));
}

TEST_F(CurveWriterTest, AnyOtherCurveIsWrittenInItsNurbsForm) {
  const std::string circle = GeometryOf(Circle());
  EXPECT_THAT(circle, HasSubstr("NuCurves [9] [3] [0 0 0 3.14159 3.14159 6.28319 6.28319 9.42478 "
                                "9.42478 12.5664 12.5664 12.5664] [0] [12.5664] \"Pw\" [2 0 0 1 "
                                "1.41421 1.41421 0 0.707107 "));
}

TEST_F(CurveWriterTest, OnlyWhatIsNoPolylineIsARibbonByItself) {
  EXPECT_THAT(GeometryOf(Circle()), testing::StartsWith(kRibbon));
  EXPECT_THAT(GeometryOf(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}})),
              Not(HasSubstr("ribbon")));
}

TEST_F(CurveWriterTest, AChosenKindOfCurveIsWrittenWithTheAttributes) {
  for (const auto& [type, name] : {std::pair{1, "polyline"}, {2, "ribbon"}, {3, "tube"}}) {
    attributes_.CurveType = type;
    EXPECT_THAT(BodyOf(Circle()),
                testing::StartsWith("Attribute \"curve\" \"string type\" \"" + std::string(name) +
                                    "\"\n" + ConstantLook() + kSolid + "NuCurves [9]"));
  }
}

TEST_F(CurveWriterTest, APolylineOfOnePointWritesNoStatement) {
  EXPECT_EQ(GeometryOf(Polyline({{1, 2, 3}})), "");
}

// A curve without a NURBS form.
class FormlessCurve : public ON_ArcCurve {
 public:
  using ON_ArcCurve::ON_ArcCurve;
  bool GetNurbForm(ON_NurbsCurve&) const override { return false; }
};

TEST_F(CurveWriterTest, ACurveWithoutANurbsFormWritesNoStatement) {
  EXPECT_EQ(GeometryOf(std::make_shared<FormlessCurve>(Circle()->m_arc)), kRibbon);
}

TEST_F(CurveWriterTest, ADashedPolylineTellsTheLengthToEachPoint) {
  UseDashes();
  EXPECT_EQ(BodyOf(Hook()),
            ConstantLook() +
                "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n"
                "Surface \"VDashes\" \"float Frequency\" [1.33333] \"float FirstDash\" [0.666667]\n"
                "Curves \"linear\" [3] \"nonperiodic\" \"P\" [ 0 0 0 3 0 0 3 1 0 ] "
                "\"constantwidth\" [1]\n"
                "\"varying float t\" [0  0.75 1]\n");
}

TEST_F(CurveWriterTest, ADashedNurbsCurveTellsNoLengths) {
  UseDashes();
  const std::string body = BodyOf(Cubic());
  EXPECT_THAT(body, HasSubstr("\"VDashes\""));
  EXPECT_THAT(body, Not(HasSubstr("varying")));
}

TEST_F(CurveWriterTest, AShadedCurveHasItsMaterialAndNoDashes) {
  UseDashes();
  settings_.Colors = false;
  attributes_.ShadeCurves = true;
  hostAttributes_.m_name = "wire";
  hostAttributes_.m_material_source = ON_AttributeSource::object;
  hostAttributes_.m_material_index = 0;
  model_.m_material_table.resize(1);
  model_.m_material_table[0].SetUserString("OrvSurface", "\"matte\"");
  model_.m_material_table[0].SetUserString("OrvDisplacementMode", "off");
  const std::string rest =
      "Surface \"matte\"\n"
      "Opacity [ 1 1 1 ]\n"
      "Curves \"linear\" [3] \"nonperiodic\" \"P\" [ 0 0 0 3 0 0 3 1 0 ] \"constantwidth\" [1]\n";
  EXPECT_EQ(BodyOf(Hook()), "Attribute \"identifier\" \"name\" [\"wire\"]\n" + rest);
  useObjectNumbers_ = true;
  EXPECT_THAT(BodyOf(Hook()), testing::StartsWith("Attribute \"identifier\" \"name\" [\"Object_"));
}

TEST_F(CurveWriterTest, AnUnshadedCurveHasNoIdentifier) {
  hostAttributes_.m_name = "wire";
  EXPECT_THAT(BodyOf(Hook()), Not(HasSubstr("identifier")));
}

TEST_F(CurveWriterTest, TheObjectsOwnWidthIsAFactor) {
  settings_.CurveWidth = 0.5;
  attributes_.UseLineWidth = true;
  attributes_.LineWidth = 3;
  EXPECT_THAT(BodyOf(Hook()), testing::EndsWith("\"constantwidth\" [1.5]\n"));
  EXPECT_THAT(BodyOf(Cubic()), testing::EndsWith("\"constantwidth\" [1.5]\n"));
}

TEST_F(CurveWriterTest, AnArchiveStandsBesideTheCurve) {
  attributes_.Archive = "tree.rib";
  attributes_.ArchiveMode = 2;
  EXPECT_EQ(BodyOf(Hook()), "ReadArchive \"tree.rib\"\n" + ConstantLook() + kSolid +
                                "Curves \"linear\" [3] \"nonperiodic\" \"P\" [ 0 0 0 3 0 0 3 1 0 ] "
                                "\"constantwidth\" [1]\n");
}

TEST_F(CurveWriterTest, HasTheObjectsLineColour) {
  attributes_.UseLineColor = true;
  attributes_.LineColor = {255, 0, 51};
  EXPECT_THAT(BodyOf(Hook()), testing::StartsWith(ConstantLook("1 0 0.2")));
}

}  // namespace
