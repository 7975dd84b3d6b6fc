#include "curve_facts.h"

#include <array>
#include <map>
#include <numeric>

#include "facts_documents.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"

using nlohmann::json;

namespace {

// Two evaluations of the same curve differ by rounding only.
constexpr double kTolerance = 1e-11;

void ExpectPoint(const json& fact, const ON_3dPoint& p, const std::string& what) {
  ExpectNearly(fact, std::array{p.x, p.y, p.z}, kTolerance, what);
}

void ExpectCV(const json& fact, const ON_4dPoint& cv, const std::string& what) {
  const std::array values{cv.x, cv.y, cv.z, cv.w};
  ExpectNearly(fact, std::span(values).first(fact.size()), kTolerance, what);
}

void ExpectPoints(const json& fact, const ON_Curve& curve, const std::string& place) {
  const json& points = fact["eval_0_25_50_75_100"];
  ASSERT_EQ(5u, points.size()) << place;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double t = curve.Domain().ParameterAt(0.25 * static_cast<double>(i));
    ExpectPoint(points[i], curve.PointAt(t), place + ".point[" + std::to_string(i) + "]");
  }
}

void ExpectLength(const json& fact, const ON_Curve& curve, const std::string& place) {
  double length = 0;
  ASSERT_TRUE(curve.GetLength(&length)) << place;
  const double expected = fact["length"];
  EXPECT_NEAR(expected, length, 1e-6 * expected) << place;
}

void ExpectPolyline(const json& fact, const ON_Curve& curve, const std::string& place) {
  std::vector<ON_3dPoint> points;
  EXPECT_EQ(fact["is_polyline_count"], curve.IsPolyline(&points)) << place;
  EXPECT_EQ(fact["is_polyline_count"], points.size()) << place;
  if (points.empty()) return;
  ExpectPoint(fact["eval_0_25_50_75_100"].front(), points.front(), place + ".polyline.first");
  ExpectPoint(fact["eval_0_25_50_75_100"].back(), points.back(), place + ".polyline.last");
}

void ExpectNurbs(const json& fact, const ON_Curve& curve, const std::string& place) {
  const auto form = curve.NurbsCurve();
  ASSERT_NE(nullptr, form) << place;
  EXPECT_TRUE(form->IsValid()) << place;
  EXPECT_EQ(fact["order"], form->Order()) << place;
  EXPECT_EQ(fact["rational"], form->IsRational()) << place;
  ASSERT_EQ(fact["cv_count"], form->CVCount()) << place;
  ASSERT_EQ(fact["knot_count"], form->KnotCount()) << place;
  ExpectCV(fact["cv_first"], form->m_cv.front(), place + ".cv_first");
  ExpectCV(fact["cv_last"], form->m_cv.back(), place + ".cv_last");
  const ON_4dPoint sum =
      std::accumulate(form->m_cv.begin(), form->m_cv.end(), ON_4dPoint{0, 0, 0, 0});
  ExpectCV(fact["cv_sum"], sum, place + ".cv_sum");
  const double knots = std::accumulate(form->m_knot.begin(), form->m_knot.end(), 0.0);
  const double expected = fact["knot_sum"];
  EXPECT_NEAR(expected, knots, kTolerance * std::max(1.0, std::abs(expected))) << place;
}

void ExpectArc(const json& fact, const ON_Arc& arc, const std::string& place) {
  EXPECT_DOUBLE_EQ(fact["radius"], arc.radius) << place;
  EXPECT_DOUBLE_EQ(fact["angle_radians"], arc.m_angle.Length()) << place;
  ExpectPoint(fact["center"], arc.plane.origin, place + ".center");
  EXPECT_EQ(fact["is_circle"], arc.IsCircle()) << place;
}

void ExpectSegments(const json& fact, const ON_PolyCurve& curve, const std::string& place) {
  EXPECT_EQ(fact["segment_count"], curve.m_segment.size()) << place;
  std::map<std::string, int> classes;
  for (const auto& segment : curve.m_segment) ++classes[CurveClassName(*segment)];
  EXPECT_EQ(fact["segment_classes"], json(classes)) << place;
  EXPECT_EQ(fact["nested"], classes.contains("ON_PolyCurve")) << place;
}

}  // namespace

std::string CurveClassName(const ON_Curve& curve) {
  if (ON_LineCurve::Cast(&curve) != nullptr) return "ON_LineCurve";
  if (ON_ArcCurve::Cast(&curve) != nullptr) return "ON_ArcCurve";
  if (ON_PolylineCurve::Cast(&curve) != nullptr) return "ON_PolylineCurve";
  if (ON_PolyCurve::Cast(&curve) != nullptr) return "ON_PolyCurve";
  return ON_NurbsCurve::Cast(&curve) != nullptr ? "ON_NurbsCurve" : "";
}

void ExpectCurve(const json& fact, const ON_Curve& curve, const std::string& place) {
  EXPECT_EQ(fact["curve_class"], CurveClassName(curve)) << place;
  EXPECT_TRUE(curve.IsValid()) << place;
  ExpectNumbers(fact["domain"], {curve.Domain().Min, curve.Domain().Max}, place + ".domain");
  EXPECT_EQ(fact["closed"], curve.IsClosed()) << place;
  ExpectLength(fact, curve, place);
  ExpectPolyline(fact, curve, place);
  ExpectPoints(fact, curve, place);
  ExpectNurbs(fact["nurbs"], curve, place + ".nurbs");
  if (const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(&curve)) {
    EXPECT_EQ(fact["dim"], nurbs->m_dim) << place;
  }
  if (const ON_ArcCurve* arc = ON_ArcCurve::Cast(&curve)) ExpectArc(fact["arc"], arc->m_arc, place);
  if (const ON_PolyCurve* poly = ON_PolyCurve::Cast(&curve)) ExpectSegments(fact, *poly, place);
}
