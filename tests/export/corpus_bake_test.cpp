#include <gmock/gmock.h>

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "export_fixture.h"
#include "host/system/path.h"
#include "support/corpus_facts.h"
#include "support/rib_checker.h"

// Bake passes of real documents, compared with what another reader found in them.

namespace {

using Json = nlohmann::json;

// The breps and meshes that aren't hidden themselves, by their ids; `nameless` of them have none.
std::map<std::string, Json> ObjectsToBake(const Json& facts, int& nameless) {
  constexpr int kHidden = 1;
  constexpr int kMember = 3;
  std::map<std::string, Json> objects;
  for (const Json& object : facts["objects"]) {
    const Json& attributes = object["attributes"];
    const int mode = attributes.value("mode", 0);
    const bool isShown = mode != kHidden && mode != kMember && attributes.value("visible", true) &&
                         !object.value("in_instance_definition", false);
    const bool isKind = object["type"] == "brep" || object["type"] == "mesh";
    if (!isShown || !isKind) continue;
    if (object["uuid"].is_null()) {
      ++nameless;
    } else {
      objects[object["uuid"]] = object;
    }
  }
  return objects;
}

bool HasTexture(const Json& mesh) {
  return mesh["F"].get<int>() > 0 && mesh["hasT"].get<bool>();
}

// The ids in the names of the maps, in their order.
std::vector<std::string> IdsOfMaps(const RibReport& report) {
  constexpr std::size_t kIdLength = 36;
  std::vector<std::string> ids;
  for (const RibStatement* display : report.Named("Display")) {
    const std::string name = host::SplitPath(display->Arguments[0].Texts[0]).Base;
    EXPECT_GT(name.size(), kIdLength);
    ids.push_back(name.substr(name.size() - std::min(name.size(), kIdLength)));
  }
  return ids;
}

class CorpusBakeTest : public ExportTest {
 protected:
  CorpusBakeTest() {
    settings_.BakeEnable = true;
    settings_.ImageName = "maps\\baked.png";
    settings_.BakeUseMap1 = settings_.BakeUseMap2 = true;
    settings_.BakeSuffix2 = "_diffuse";
    settings_.BakeDisplayChannels2 = "__diffuse";
    settings_.ImageWidth = settings_.ImageHeight = 512;
  }
};

TEST_F(CorpusBakeTest, MapsAreMadeOfBrepsAndMeshes) {
  int maps = 0;
  const bool hasCorpus = ForEachDocument([&](const Json& facts, const auto& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    const RibReport report = CheckRib(Rib());
    const std::vector<std::string> ids = IdsOfMaps(report);
    EXPECT_EQ(settings_.BakeDisplayCount, static_cast<int>(ids.size()));
    maps += settings_.BakeDisplayCount;
    int nameless = 0;
    const std::map<std::string, Json> objects = ObjectsToBake(facts, nameless);
    for (std::size_t i = 0; i < ids.size(); i += 2) {
      ASSERT_EQ(ids[i], ids.at(i + 1));
      const auto found = objects.find(ids[i]);
      if (found == objects.end()) {
        // An object without an id of its own has got one.
        EXPECT_GE(--nameless, 0) << ids[i];
        continue;
      }
      const Json& object = found->second;
      EXPECT_TRUE(object["type"] == "brep" || HasTexture(object["geometry"])) << ids[i];
    }
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GT(maps, 0);
}

// One mode after the other, each of many documents.
TEST_F(CorpusBakeTest, MeshesAreBakedInEveryMode) {
  settings_.BakeMesh = true;
  const orv::RenderSettings before = settings_;
  int documents = 0;
  const bool hasCorpus = ForEachDocument([&](const Json&, const auto& path) {
    doc_.SetModel(ReadDocument(path), path.string());
    settings_ = before;
    settings_.BakeMeshMode = documents++ % 6;
    settings_.BakeNormals = documents % 2 == 0;
    const RibReport report = CheckRib(Rib());
    ASSERT_EQ(report.Named("Display").size(), 1U);
    EXPECT_EQ(report.Named("Display")[0]->Arguments[0].Texts[0], "bakemesh.tif");
    EXPECT_TRUE(settings_.BakeMeshMode != 5 || report.Named("LightSource").empty());
    EXPECT_EQ(settings_.BakeDisplayCount, 0);
  });
  if (!hasCorpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_GE(documents, 6);
}

}  // namespace
