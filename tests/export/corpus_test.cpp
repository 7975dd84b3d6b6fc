#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "export_fixture.h"
#include "host/system/number_text.h"
#include "support/corpus_facts.h"

// Exports of real documents, compared with what another reader found in them.

namespace {

using Json = nlohmann::json;

// The numbers between the brackets that open at `start`.
std::vector<double> NumbersAfter(std::string_view text, std::size_t start) {
  std::vector<double> numbers;
  std::size_t at = text.find('[', start) + 1;
  const std::size_t end = text.find(']', at);
  while (at < end) {
    at = text.find_first_not_of(" \n", at);
    if (at >= end) break;
    numbers.push_back(host::ParseReal(text.substr(at, 32)));
    at = text.find_first_of(" \n", at);
  }
  return numbers;
}

std::size_t CountOf(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != std::string_view::npos;
       at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

// Vertices and their sum over several polygon meshes.
struct VertexSum {
  std::size_t count = 0;
  std::array<double, 3> sum{};
  // How far the sum may be off when each coordinate has six digits.
  std::array<double, 3> tolerance{};
};

VertexSum VerticesInStream(std::string_view rib) {
  constexpr std::string_view kMesh = "PointsPolygons [ ";
  VertexSum result;
  for (std::size_t at = rib.find(kMesh); at != std::string_view::npos;
       at = rib.find(kMesh, at + 1)) {
    const std::vector<double> numbers = NumbersAfter(rib, rib.find("\"P\" [ ", at));
    EXPECT_EQ(numbers.size() % 3, 0U);
    result.count += numbers.size() / 3;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      result.sum[i % 3] += numbers[i];
      result.tolerance[i % 3] += std::fabs(numbers[i]) * 5e-6;
    }
  }
  return result;
}

// Those of block definitions once, where they are placed.
std::vector<Json> VisibleMeshesWithFaces(const Json& facts) {
  std::vector<Json> meshes;
  for (const ShownObject& shown : ShownObjects(facts)) {
    const Json& object = *shown.object;
    if (object["type"] == "mesh" && object["geometry"]["F"].get<int>() > 0) {
      meshes.push_back(object["geometry"]);
    }
  }
  return meshes;
}

// The view that is active when the document is opened.
std::optional<Json> ActiveView(const Json& facts) {
  const Json& views = facts["views"];
  const Json& id = facts["settings_misc"]["active_view_id"];
  const auto isNil = [](const Json& uuid) {
    return uuid.is_null() || uuid == "00000000-0000-0000-0000-000000000000";
  };
  std::optional<Json> maximized, perspective;
  for (const Json& view : views) {
    if (!isNil(id) && view["viewport_id"] == id) return view;
    if (view["view_type"] != 0) continue;
    if (!maximized && view["maximized"].get<bool>()) maximized = view;
    if (!perspective && view["projection"] == "perspective") perspective = view;
  }
  if (maximized) return maximized;
  if (perspective) return perspective;
  return views.empty() ? std::nullopt : std::optional<Json>(views[0]);
}

void ExpectNear(const std::vector<double>& numbers, const std::vector<double>& expected,
                std::string_view what) {
  ASSERT_EQ(numbers.size(), expected.size()) << what;
  const auto larger = [](double a, double b) { return std::fabs(a) < std::fabs(b); };
  const double size = std::fabs(*std::max_element(expected.begin(), expected.end(), larger));
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_NEAR(numbers[i], expected[i], std::fabs(expected[i]) * 6e-6 + size * 1e-12)
        << what << ' ' << i;
  }
}

std::vector<double> ExpectedTransform(const Json& view) {
  const auto vector = [&view](const char* key) { return view[key].get<std::array<double, 3>>(); };
  const auto dot = [](const auto& a, const auto& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
  };
  const auto x = vector("camera_x"), y = vector("camera_y"), z = vector("camera_z");
  const auto location = vector("camera_location");
  return {x[0],
          y[0],
          -z[0],
          0,
          x[1],
          y[1],
          -z[1],
          0,
          x[2],
          y[2],
          -z[2],
          0,
          -dot(location, x),
          -dot(location, y),
          dot(location, z),
          1};
}

void ExpectCamera(const std::string& rib, const Json& view) {
  ExpectNear(NumbersAfter(rib, rib.find("\nConcatTransform")), ExpectedTransform(view),
             "ConcatTransform");
  if (view["projection"] == "perspective") {
    const auto angles = view["half_angles_diag_vert_horz_radians"].get<std::vector<double>>();
    const double degrees = std::min(angles[1], angles[2]) * 360 / std::acos(-1.0);
    ExpectNear(NumbersAfter(rib, rib.find("\nProjection \"perspective\"")), {degrees}, "fov");
  } else {
    EXPECT_NE(rib.find("\nProjection \"orthographic\"\n"), std::string::npos);
  }
  const auto port = view["screen_port_lrbtnf"].get<std::vector<int>>();
  const std::string format = "\nFormat " + std::to_string(port[1] - port[0]) + ' ' +
                             std::to_string(port[2] - port[3]) + " 1\n";
  EXPECT_NE(rib.find(format), std::string::npos) << format;
}

void ExpectMeshes(const std::string& rib, const std::vector<Json>& meshes) {
  EXPECT_EQ(CountOf(rib, "PointsPolygons"), meshes.size());
  VertexSum expected;
  for (const Json& mesh : meshes) {
    expected.count += mesh["V"].get<std::size_t>();
    const char* key = mesh.contains("float_coord_sum") ? "float_coord_sum" : "coord_sum";
    const auto sum = mesh[key].get<std::array<double, 3>>();
    for (std::size_t i = 0; i < 3; ++i) expected.sum[i] += sum[i];
  }
  const VertexSum written = VerticesInStream(rib);
  EXPECT_EQ(written.count, expected.count);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(written.sum[i], expected.sum[i], written.tolerance[i]) << i;
  }
}

using CorpusTest = ExportTest;

TEST_F(CorpusTest, EveryDocumentBecomesAScene) {
  // Surfaces must not become meshes.
  settings_.RenderMesh = 0;
  const bool hasCorpus = ForEachDocument([this](const Json& facts, const auto& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    const std::string rib = Rib();
    ExpectMeshes(rib, VisibleMeshesWithFaces(facts));
    if (const std::optional<Json> view = ActiveView(facts)) ExpectCamera(rib, *view);
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
}

}  // namespace
