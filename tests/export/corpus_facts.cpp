#include "corpus_facts.h"

#include <gtest/gtest.h>

#include <fstream>

#include "host/archive/model_reader.h"
#include "support/model_corpus.h"

namespace {

using Json = nlohmann::json;

bool IsLayerVisible(const Json& layers, int index) {
  if (index < 0 || index >= static_cast<int>(layers.size())) return true;
  const Json& layer = layers[static_cast<std::size_t>(index)];
  if (!layer["visible"].get<bool>()) return false;
  for (std::size_t i = 0; i < layers.size(); ++i) {
    const bool isParent = layers[i]["uuid"] == layer["parent_id"] && layers[i] != layer;
    if (isParent && !IsLayerVisible(layers, static_cast<int>(i))) return false;
  }
  return true;
}

}  // namespace

bool ForEachDocument(
    const std::function<void(const Json& facts, const std::filesystem::path& path)>& check) {
  const auto corpus = ModelCorpus();
  if (!corpus) return false;
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(*corpus / "facts")) {
    std::ifstream in(entry.path());
    const Json facts = Json::parse(in);
    const std::string name = facts["file"].get<std::string>();
    SCOPED_TRACE(name);
    std::filesystem::path path = *corpus / "real" / name;
    if (!std::filesystem::exists(path)) path = *corpus / "made" / name;
    check(facts, path);
    ++count;
  }
  EXPECT_GT(count, 0U);
  return true;
}

ONX_Model ReadDocument(const std::filesystem::path& path) {
  ONX_Model model;
  EXPECT_TRUE(ON_ReadModel(path.string(), model).ok);
  return model;
}

bool IsVisible(const Json& facts, const Json& attributes) {
  const int mode = attributes.value("mode", 0);
  return (mode == 0 || mode == 2) && attributes.value("visible", true) &&
         IsLayerVisible(facts["layers"], attributes.value("layer_index", 0));
}
