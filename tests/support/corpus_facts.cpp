#include "support/corpus_facts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <utility>

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

namespace {

class ShownObjectList {
 public:
  explicit ShownObjectList(const Json& facts) : facts_(facts) {
    for (const Json& object : facts["objects"]) {
      if (!object["uuid"].is_null()) by_id_[object["uuid"]] = &object;
    }
  }

  void Add(const Json& object, bool isPiece) {
    if (object["type"] == "instance_reference") {
      return AddBlock(object["geometry"]["definition_uuid"]);
    }
    const auto [known, isNew] = positions_.try_emplace(&object, shown_.size());
    if (isNew) shown_.push_back({&object, 0});
    if (isPiece) ++shown_[known->second].pieces;
  }
  std::vector<ShownObject> Take() { return std::move(shown_); }

 private:
  void AddBlock(const Json& id) {
    for (const Json& block : facts_["instance_definitions"]) {
      if (block["uuid"] != id) continue;
      for (const Json& member : block["objects"]) {
        const auto found = by_id_.find(member);
        if (found == by_id_.end()) continue;
        Json attributes = (*found->second)["attributes"];
        constexpr int kMemberMode = 3;
        if (attributes.value("mode", 0) == kMemberMode) attributes["mode"] = 0;
        if (IsVisible(facts_, attributes)) Add(*found->second, true);
      }
    }
  }

  const Json& facts_;
  std::map<std::string, const Json*> by_id_;
  std::map<const Json*, std::size_t> positions_;
  std::vector<ShownObject> shown_;
};

}  // namespace

std::vector<ShownObject> ShownObjects(const Json& facts) {
  ShownObjectList list(facts);
  for (const Json& object : facts["objects"]) {
    const bool isMember = object.value("in_instance_definition", false);
    if (!isMember && IsVisible(facts, object["attributes"])) list.Add(object, false);
  }
  return list.Take();
}
