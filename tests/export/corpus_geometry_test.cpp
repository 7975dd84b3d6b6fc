#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "export_fixture.h"
#include "support/corpus_facts.h"
#include "support/rib_checker.h"

// The geometry of real documents in the stream, compared with what another reader found in them.

namespace {

using Json = nlohmann::json;

// What of a document should be seen in the stream, by the facts.
class ExpectedStream {
 public:
  ExpectedStream(const Json& facts, const CRhinoDoc& doc, int renderMesh)
      : renderMesh_(renderMesh) {
    for (const ShownObject& shown : ShownObjects(facts)) {
      // The other reader turns the arrows of version 2 into lines.
      const auto& read = doc.Objects()[(*shown.object)["i"].get<std::size_t>()];
      if (read->ShortDescription() == "annotation arrow") continue;
      Add(*shown.object, shown.pieces);
    }
  }

  // A face that goes out as NURBS.
  struct Face {
    const Json* face;
    // Whether it has trims; the facts tell it of a brep's only face.
    std::optional<bool> isTrimmed;
  };

  // How often each statement should occur.
  std::map<std::string, std::size_t> Counts;
  // In their order.
  std::vector<Face> Faces;
  std::vector<const Json*> Curves;

 private:
  // Objects of blocks become archives, but for points, which are written with each placement.
  void Add(const Json& object, int pieces) {
    const bool isPoints = object["type"] == "point" || object["type"] == "pointset";
    const bool goesOut = AddBody(object);
    if (pieces == 0 || !goesOut) return;
    if (isPoints) {
      Counts["Points"] += static_cast<std::size_t>(pieces - 1);
      return;
    }
    ++Counts["ArchiveBegin"];
    ++Counts["ArchiveEnd"];
    ++Counts["FreeArchive"];
    Counts["ArchiveInstance"] += static_cast<std::size_t>(pieces);
  }

  static const Json* BrepOf(const Json& object) {
    const Json& geometry = object["geometry"];
    if (object["type"] == "brep") return &geometry;
    return object["type"] == "extrusion" ? &geometry["brep_form"] : nullptr;
  }

  // False for an object of a kind that isn't written.
  bool AddBody(const Json& object) {
    const std::string type = object["type"];
    const Json& geometry = object["geometry"];
    if (const Json* brep = BrepOf(object)) {
      if (renderMesh_ == 2) {
        Counts["PointsPolygons"] += MeshCount(geometry, *brep);
      } else {
        AddFaces(*brep);
      }
    } else if (type == "surface") {
      ++Counts[renderMesh_ == 2 ? "PointsPolygons" : "NuPatch"];
      if (renderMesh_ != 2) Faces.push_back({&geometry, false});
    } else if (type == "mesh") {
      if (geometry["F"].get<int>() > 0) ++Counts["PointsPolygons"];
    } else if (type == "subd") {
      ++Counts["SubdivisionMesh"];
    } else if (type == "curve") {
      Curves.push_back(&geometry);
      ++Counts[geometry["is_polyline_count"].get<int>() >= 2 ? "Curves" : "NuCurves"];
    } else if (type == "point" || type == "pointset") {
      ++Counts["Points"];
    } else {
      return false;
    }
    return true;
  }

  void AddFaces(const Json& brep) {
    const bool isOnlyFace = brep["face"].size() == 1;
    for (const Json& face : brep["face"]) {
      Faces.push_back({&face, std::nullopt});
      if (face["loops"].size() > 1) Faces.back().isTrimmed = true;
      if (isOnlyFace) Faces.back().isTrimmed = !brep["is_surface"].get<bool>();
      ++Counts["NuPatch"];
      if (face["rev"].get<bool>()) ++Counts["ReverseOrientation"];
    }
  }

  // The meshes that the document holds; where it has none, one is made for each face.
  static std::size_t MeshCount(const Json& geometry, const Json& brep) {
    if (geometry.contains("brep_form") && geometry.contains("render_mesh")) return 1;
    std::size_t stored = 0;
    for (const Json& face : brep["face"]) stored += face.contains("render_mesh") ? 1 : 0;
    return stored > 0 ? stored : brep["face"].size();
  }

  int renderMesh_;
};

void ExpectNearSixDigits(double written, double expected, double size, const char* what) {
  EXPECT_NEAR(written, expected, std::fabs(expected) * 6e-6 + size * 1e-11) << what;
}

// One direction of a patch, or a curve. The document's knots lack the first and the last one.
void ExpectKnots(const std::vector<double>& knots, double expectedSum) {
  double sum = 0, size = 0;
  for (std::size_t i = 1; i + 1 < knots.size(); ++i) {
    sum += knots[i];
    size += std::fabs(knots[i]);
  }
  EXPECT_EQ(knots.front(), knots[1]);
  EXPECT_EQ(knots.back(), knots[knots.size() - 2]);
  EXPECT_NEAR(sum, expectedSum, size * 6e-6 + 1e-9) << "knots";
}

// The control points of a patch or curve against count, sum, first and last of the facts.
void ExpectControlPoints(const RibStatement& statement, const Json& nurbs) {
  const bool isRational = nurbs["rational"].get<bool>();
  const RibArgument* points = statement.Parameter(isRational ? "Pw" : "P");
  ASSERT_NE(points, nullptr);
  const std::size_t dimension = isRational ? 4 : 3;
  const auto sum = nurbs["cv_sum"].get<std::vector<double>>();
  const auto first = nurbs["cv_first"].get<std::vector<double>>();
  const auto last = nurbs["cv_last"].get<std::vector<double>>();
  const std::vector<double>& written = points->Numbers;
  ASSERT_GE(written.size(), dimension);
  for (std::size_t k = 0; k < dimension && k < sum.size(); ++k) {
    double total = 0, size = 0;
    for (std::size_t i = k; i < written.size(); i += dimension) {
      total += written[i];
      size += std::fabs(written[i]);
    }
    EXPECT_NEAR(total, sum[k], size * 6e-6 + 1e-9) << "sum " << k;
    ExpectNearSixDigits(written[k], first[k], size, "first");
    ExpectNearSixDigits(written[written.size() - dimension + k], last[k], size, "last");
  }
}

void ExpectPatch(const RibStatement& patch, const Json& nurbs) {
  const std::vector<RibArgument>& a = patch.Arguments;
  ASSERT_GE(a.size(), 12U);
  for (std::size_t direction = 0; direction < 2; ++direction) {
    SCOPED_TRACE(direction);
    EXPECT_EQ(a[5 * direction].Numbers[0], nurbs["cv_count"][direction].get<int>());
    EXPECT_EQ(a[5 * direction + 1].Numbers[0], nurbs["order"][direction].get<int>());
    ExpectKnots(a[5 * direction + 2].Numbers, nurbs["knot_sum"][direction].get<double>());
  }
  ExpectControlPoints(patch, nurbs);
}

// The trims that stand before a patch; without any, the face is its whole surface.
void ExpectTrims(const RibStatement* trims, const ExpectedStream::Face& face) {
  const bool hasTrims = trims != nullptr;
  EXPECT_EQ(hasTrims, face.isTrimmed.value_or(hasTrims));
  if (!hasTrims || !face.face->contains("loops")) return;
  std::vector<double> expected;
  for (const Json& loop : (*face.face)["loops"]) expected.push_back(loop["trims"].get<double>());
  EXPECT_EQ(trims->Arguments[0].Numbers, expected);
}

// The lines that light the scene are written as curves too: the statements of those.
bool IsLight(const RibReport& report, const RibStatement& statement) {
  for (const RibStatement* s = &statement; s != report.Statements.data(); --s) {
    if (s->Name == "AreaLightSource") return true;
    if (s->Name == "AttributeBegin") return false;
  }
  return false;
}

void ExpectFaces(const RibReport& report, const std::vector<ExpectedStream::Face>& faces) {
  std::size_t next = 0;
  const RibStatement* trims = nullptr;
  for (const RibStatement& statement : report.Statements) {
    if (statement.Name == "TrimCurve") trims = &statement;
    if (statement.Name != "NuPatch") continue;
    ASSERT_LT(next, faces.size());
    SCOPED_TRACE("face " + std::to_string(next));
    ExpectTrims(trims, faces[next]);
    const Json& face = *faces[next++].face;
    ExpectPatch(statement, face.contains("srf") ? face["srf"]["nurbs"] : face["nurbs"]);
    trims = nullptr;
  }
  EXPECT_EQ(next, faces.size());
}

void ExpectCurves(const RibReport& report, const std::vector<const Json*>& curves) {
  std::size_t next = 0;
  for (const RibStatement& statement : report.Statements) {
    const bool isPolyline = statement.Name == "Curves";
    if ((!isPolyline && statement.Name != "NuCurves") || IsLight(report, statement)) continue;
    ASSERT_LT(next, curves.size());
    SCOPED_TRACE("curve " + std::to_string(next));
    const Json& curve = *curves[next++];
    if (isPolyline) {
      EXPECT_EQ(statement.Arguments[1].Numbers[0], curve["is_polyline_count"].get<int>());
      continue;
    }
    const Json& nurbs = curve["nurbs"];
    EXPECT_EQ(statement.Arguments[0].Numbers[0], nurbs["cv_count"].get<int>());
    EXPECT_EQ(statement.Arguments[1].Numbers[0], nurbs["order"].get<int>());
    ExpectControlPoints(statement, nurbs);
  }
  EXPECT_EQ(next, curves.size());
}

// The lists of colours of clouds are never closed, as renderers of that time took them.
bool IsKnown(const std::string& complaint) {
  return complaint.find("an array is not closed") != std::string::npos;
}

std::size_t CountOf(const RibReport& report, std::string_view name) {
  std::size_t count = 0;
  for (const RibStatement* statement : report.Named(name)) {
    if (!IsLight(report, *statement)) ++count;
  }
  return count;
}

class CorpusGeometry : public ExportTest, public testing::WithParamInterface<int> {
 protected:
  RibReport Export(const std::filesystem::path& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    settings_.RenderMesh = GetParam();
    settings_.RenderCurves = true;
    // Lights have shapes too.
    settings_.UseLights = false;
    // The surfaces keep their own domains, as the facts have them.
    reparameterize_ = 0;
    const std::string file = folder_.File("scene.rib");
    EXPECT_EQ(ExportTo(file), 1) << messages_;
    RibReport report = CheckRib(FileContent(file));
    std::size_t unclosed = 0;
    for (const std::string& complaint : report.Complaints) {
      if (IsKnown(complaint)) {
        ++unclosed;
      } else {
        ADD_FAILURE() << complaint;
      }
    }
    EXPECT_EQ(unclosed, ColoredClouds(report));
    return report;
  }

 private:
  static std::size_t ColoredClouds(const RibReport& report) {
    std::size_t count = 0;
    for (const RibStatement* points : report.Named("Points")) {
      if (points->Parameter("varying color Cs") != nullptr) ++count;
    }
    return count;
  }
};

TEST_P(CorpusGeometry, EveryObjectGoesOut) {
  const bool hasCorpus = ForEachDocument([this](const Json& facts, const auto& path) {
    const RibReport report = Export(path);
    const ExpectedStream expected(facts, doc_, GetParam());
    for (const char* name :
         {"NuPatch", "ReverseOrientation", "PointsPolygons", "SubdivisionMesh", "Curves",
          "NuCurves", "Points", "ArchiveBegin", "ArchiveInstance", "FreeArchive"}) {
      const auto found = expected.Counts.find(name);
      EXPECT_EQ(CountOf(report, name), found == expected.Counts.end() ? 0 : found->second) << name;
    }
    ExpectFaces(report, expected.Faces);
    ExpectCurves(report, expected.Curves);
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
}

INSTANTIATE_TEST_SUITE_P(NurbsAndMeshes, CorpusGeometry, testing::Values(0, 2));

}  // namespace
