#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "support/corpus_facts.h"
#include "vrml_checker.h"
#include "vrml_fixture.h"

// VRML files of real documents, compared with what another reader found in them.

namespace {

using Json = nlohmann::json;

class CorpusVrmlTest : public VrmlTest {
 protected:
  VrmlReport Export(const std::filesystem::path& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    return CheckVrml(Vrml());
  }
};

const VrmlShape* ShapeOf(const VrmlReport& report, const std::string& id) {
  for (const VrmlShape& shape : report.shapes) {
    if (shape.map == "hall_" + id + ".png") return &shape;
  }
  return nullptr;
}

void ExpectMesh(const VrmlMesh& mesh, const Json& facts) {
  EXPECT_EQ(mesh.faces.size(), facts["F"].get<std::size_t>());
  ASSERT_EQ(mesh.points.size(), facts["V"].get<std::size_t>());
  std::array<double, 3> sum{};
  std::array<double, 3> size{};
  std::array<double, 2> textureSum{};
  for (const auto& point : mesh.points) {
    for (std::size_t i = 0; i < 3; ++i) sum[i] += point[i];
    for (std::size_t i = 0; i < 3; ++i) size[i] += std::fabs(point[i]);
  }
  for (const auto& st : mesh.texture) {
    for (std::size_t i = 0; i < 2; ++i) textureSum[i] += st[i];
  }
  const char* key = facts.contains("float_coord_sum") ? "float_coord_sum" : "coord_sum";
  const auto expected = facts[key].get<std::array<double, 3>>();
  constexpr double kSixDigits = 5e-6;
  EXPECT_NEAR(sum[0], expected[0], size[0] * kSixDigits + 1e-9);
  EXPECT_NEAR(sum[1], expected[2], size[1] * kSixDigits + 1e-9);
  EXPECT_NEAR(sum[2], -expected[1], size[2] * kSixDigits + 1e-9);
  const auto uv = facts["uv_sum"].get<std::array<double, 2>>();
  const double count = static_cast<double>(mesh.points.size());
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_NEAR(textureSum[i], uv[i], (count + std::fabs(uv[i])) * kSixDigits);
  }
}

// Meshes that are visible, with faces and texture coordinates; the number of them that was checked.
int ExpectMeshes(const VrmlReport& report, const Json& facts) {
  int count = 0;
  for (const Json& object : facts["objects"]) {
    const bool isMember = object.value("in_instance_definition", false);
    if (object["type"] != "mesh" || object["uuid"].is_null() || isMember) continue;
    if (!IsVisible(facts, object["attributes"])) continue;
    const Json& geometry = object["geometry"];
    const VrmlShape* shape = ShapeOf(report, object["uuid"]);
    EXPECT_NE(shape, nullptr) << object["uuid"];
    if (shape == nullptr) continue;
    const bool isWritten = geometry["F"].get<int>() > 0 && geometry["hasT"].get<bool>();
    EXPECT_EQ(shape->meshes.size(), isWritten ? 1U : 0U);
    if (isWritten && shape->meshes.size() == 1) ExpectMesh(shape->meshes[0], geometry);
    count += isWritten ? 1 : 0;
  }
  return count;
}

std::size_t PerspectiveModelViews(const Json& facts) {
  std::size_t count = 0;
  for (const Json& view : facts["views"]) {
    if (view["view_type"] == 0 && view["projection"] == "perspective") ++count;
  }
  return count;
}

TEST_F(CorpusVrmlTest, EveryDocumentBecomesAFile) {
  int meshes = 0;
  const bool hasCorpus = ForEachDocument([&](const Json& facts, const auto& path) {
    const VrmlReport report = Export(path);
    EXPECT_THAT(report.sky, testing::SizeIs(3));
    meshes += ExpectMeshes(report, facts);
    EXPECT_TRUE(facts["views"].empty() || report.views.size() == PerspectiveModelViews(facts));
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(meshes, 0);
}

}  // namespace
