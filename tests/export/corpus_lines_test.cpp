#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "export/curve_writer.h"
#include "export_fixture.h"
#include "support/corpus_facts.h"
#include "support/rib_checker.h"

// Curves of real documents, compared with what another reader found in them.

namespace {

using Json = nlohmann::json;

// The lengths of the segments of the linetype that a curve is drawn in; none for a continuous one.
std::vector<double> SegmentsOf(const Json& facts, const Json& attributes) {
  int index = attributes["linetype_index"];
  if (attributes["linetype_source"] != 1) {
    index = facts["layers"].at(attributes["layer_index"].get<std::size_t>())["linetype_index"];
  }
  std::vector<double> lengths;
  for (const Json& linetype : facts["linetypes"]) {
    if (linetype["index"] != index) continue;
    for (const Json& segment : linetype["segments"]) lengths.push_back(segment[0]);
  }
  return lengths;
}

// The length of a pattern with segments that are none counted as one; of six segments at most.
double PatternLength(const std::vector<double>& segments) {
  double length = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(segments.size() / 2 * 2, 6); ++i) {
    length += segments[i] > 0 ? segments[i] : 1;
  }
  return length;
}

// The statements of a curve object.
RibReport StatementsOf(const CRhinoDoc& doc, const CRhinoObject& object, const ON_Curve& curve) {
  const orv::RenderSettings settings;
  orv::TextureConverter textures;
  orv::SceneMaterials materials(settings, textures);
  const std::string rib = Written([&](orv::RibWriter& writer) {
    const orv::ObjectStream stream{writer, doc, settings, materials};
    orv::WriteCurveBody(stream, object, curve, {});
  });
  RibReport report = CheckRib(rib);
  EXPECT_TRUE(report.Complaints.empty()) << rib;
  return report;
}

void ExpectPattern(const RibReport& report, const std::vector<double>& segments, double curveLength,
                   double scale) {
  const auto surfaces = report.Named("Surface");
  ASSERT_EQ(surfaces.size(), 1u);
  if (segments.size() < 2) {
    EXPECT_EQ(surfaces[0]->Arguments[0].Texts[0], "constant");
    return;
  }
  EXPECT_EQ(surfaces[0]->Arguments[0].Texts[0], "VDashes");
  const double expected = curveLength / (PatternLength(segments) * scale);
  EXPECT_NEAR(surfaces[0]->Parameter("float Frequency")->Numbers[0], expected, 1e-5 * expected);
  const auto curves = report.Named("Curves");
  if (!curves.empty()) {
    EXPECT_EQ(curves[0]->Parameter("varying float t")->Numbers.back(), 1);
  }
}

TEST(CorpusLines, DashesFollowTheLinetypes) {
  int dashed = 0;
  const bool hasCorpus = ForEachDocument([&](const Json& facts, const auto& path) {
    CRhinoDoc doc;
    doc.SetModel(ReadDocument(path), "");
    const double scale =
        doc.Properties().ModelUnitsAndTolerances().Scale(ON_UnitSystem::millimeters) *
        doc.Properties().Settings().m_linetype_scale;
    for (const auto& object : doc.Objects()) {
      const ON_Curve* curve = ON_Curve::Cast(object->Geometry());
      if (curve == nullptr) continue;
      const auto& all = facts["objects"];
      const auto fact = std::find_if(all.begin(), all.end(), [&](const Json& candidate) {
        return ON_UuidFromString(candidate["uuid"].get<std::string>()) ==
               object->Attributes().m_uuid;
      });
      if (fact == all.end() || !(*fact)["geometry"].contains("length")) continue;
      const std::vector<double> segments = SegmentsOf(facts, (*fact)["attributes"]);
      SCOPED_TRACE((*fact)["uuid"]);
      ExpectPattern(StatementsOf(doc, *object, *curve), segments, (*fact)["geometry"]["length"],
                    scale);
      if (segments.size() >= 2) ++dashed;
    }
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(dashed, 5);
}

}  // namespace
