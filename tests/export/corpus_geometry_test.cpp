#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "corpus_facts.h"
#include "export_fixture.h"
#include "support/rib_checker.h"

// The geometry of real documents in their streams, counted and compared with what another reader
// found in them.

namespace {

using Json = nlohmann::json;

enum : int { kNurbs = 0, kMeshes = 2 };

using Counts = std::map<std::string, int>;

// A face as the facts tell it.
struct Face {
  bool isReversed = false;
  // Of each loop.
  std::vector<double> trimCounts;
};

// The faces of a surface object; none for any other.
std::vector<Face> FacesOf(const Json& object) {
  const std::string kind = object["class"];
  const bool isSurface = kind.ends_with("Surface") && kind != "ON_ClippingPlaneSurface";
  if (isSurface) return {{.isReversed = false, .trimCounts = {4}}};
  if (kind != "ON_Brep" && kind != "ON_Extrusion") return {};
  const Json& geometry = object["geometry"];
  const Json& brep = kind == "ON_Brep" ? geometry : geometry["brep_form"];
  std::vector<Face> faces;
  for (const Json& fact : brep["face"]) {
    Face& face = faces.emplace_back();
    face.isReversed = fact["rev"].get<bool>();
    for (const Json& loop : fact["loops"]) face.trimCounts.push_back(loop["trims"].get<double>());
  }
  return faces;
}

// The statement that a shown object without faces gives; nothing for one that isn't written.
std::string StatementOf(const Json& object) {
  const std::string kind = object["class"];
  if (kind == "ON_Mesh") return object["geometry"]["F"].get<int>() > 0 ? "PointsPolygons" : "";
  if (kind == "ON_SubD") return "SubdivisionMesh";
  if (kind == "ON_Point" || kind == "ON_PointCloud") return "Points";
  if (!kind.ends_with("Curve")) return "";
  return object["geometry"]["is_polyline_count"].get<int>() >= 2 ? "Curves" : "NuCurves";
}

// What a stream should hold of each statement, and in which order its trimmed faces may come.
struct Expected {
  Counts counts;
  std::vector<Face> faces;
  // Their list of colours has no end.
  std::size_t coloredClouds = 0;
};

Expected ExpectedOf(const Json& facts, const CRhinoDoc& doc, int renderMesh) {
  Expected expected;
  for (const ShownObject& shown : ShownObjects(facts)) {
    const Json& object = *shown.object;
    // The other reader turns the arrows of version 2 into lines.
    const auto index = object["i"].get<std::size_t>();
    if (doc.Objects()[index]->ShortDescription() == "annotation arrow") continue;
    if (object["class"] == "ON_PointCloud" && object["geometry"]["has_colors"].get<bool>()) {
      ++expected.coloredClouds;
    }
    const std::vector<Face> faces = FacesOf(object);
    for (const Face& face : faces) {
      ++expected.counts[renderMesh == kMeshes ? "PointsPolygons" : "NuPatch"];
      if (renderMesh == kNurbs && face.isReversed) ++expected.counts["ReverseOrientation"];
      expected.faces.push_back(face);
    }
    const std::string statement = faces.empty() ? StatementOf(object) : "";
    if (!statement.empty()) ++expected.counts[statement];
    const bool isArchive = !faces.empty() || (!statement.empty() && statement != "Points");
    if (statement == "Points" && shown.pieces > 0) {
      expected.counts["Points"] += shown.pieces - 1;
    }
    if (!isArchive || shown.pieces == 0) continue;
    ++expected.counts["ArchiveBegin"];
    ++expected.counts["ArchiveEnd"];
    ++expected.counts["FreeArchive"];
    expected.counts["ArchiveInstance"] += shown.pieces;
  }
  return expected;
}

Counts CountsOf(const RibReport& report) {
  static const std::set<std::string> counted = {
      "NuPatch",    "ReverseOrientation", "PointsPolygons", "SubdivisionMesh",
      "Curves",     "NuCurves",           "Points",         "ArchiveBegin",
      "ArchiveEnd", "FreeArchive",        "ArchiveInstance"};
  Counts counts;
  for (const RibStatement& statement : report.Statements) {
    if (counted.contains(statement.Name)) ++counts[statement.Name];
  }
  return counts;
}

// Each face has its trims by loops, or covers its surface and has one loop.
void ExpectTrims(const RibReport& report, const std::vector<Face>& faces) {
  const RibStatement* trims = nullptr;
  std::size_t next = 0;
  for (const RibStatement& statement : report.Statements) {
    if (statement.Name == "TrimCurve") trims = &statement;
    if (statement.Name != "NuPatch") continue;
    ASSERT_LT(next, faces.size());
    const std::vector<double>& expected = faces[next++].trimCounts;
    if (trims != nullptr) {
      EXPECT_EQ(trims->Arguments.at(0).Numbers, expected) << "line " << trims->Line;
    } else {
      EXPECT_EQ(expected.size(), 1U) << "line " << statement.Line;
    }
    trims = nullptr;
  }
  EXPECT_EQ(trims, nullptr);
}

class CorpusGeometryTest : public ExportTest {
 protected:
  CorpusGeometryTest() {
    settings_.RenderCurves = true;
    settings_.ConvertTextures = false;
    // Lights have shapes too.
    settings_.UseLights = false;
  }

  void ExpectDocument(const Json& facts, const std::filesystem::path& path, int renderMesh) {
    doc_.SetModel(ReadDocument(path), path.string());
    settings_.RenderMesh = renderMesh;
    const std::string file = folder_.File("scene.rib");
    ASSERT_EQ(ExportTo(file), 1) << messages_;
    const RibReport report = CheckRib(FileContent(file));
    const Expected expected = ExpectedOf(facts, doc_, renderMesh);
    EXPECT_THAT(report.Complaints,
                testing::AllOf(testing::SizeIs(expected.coloredClouds),
                               testing::Each(testing::EndsWith("an array is not closed"))));
    EXPECT_EQ(CountsOf(report), expected.counts);
    if (renderMesh == kNurbs) ExpectTrims(report, expected.faces);
  }
};

TEST_F(CorpusGeometryTest, EveryObjectIsWrittenAsNurbs) {
  const bool hasCorpus = ForEachDocument(
      [this](const Json& facts, const auto& path) { ExpectDocument(facts, path, kNurbs); });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
}

TEST_F(CorpusGeometryTest, EveryFaceIsWrittenAsAMesh) {
  const bool hasCorpus = ForEachDocument([this](const Json& facts, const auto& path) {
    const auto shown = ShownObjects(facts);
    const bool hasFaces = std::any_of(shown.begin(), shown.end(), [](const ShownObject& object) {
      return !FacesOf(*object.object).empty();
    });
    if (hasFaces) ExpectDocument(facts, path, kMeshes);
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
}

}  // namespace
