#pragma once

#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <vector>

#include "host/archive/model.h"

// Calls `check` for each document of the corpus that has facts, with the document's path. Its name
// is told when a test fails meanwhile. False when there is no corpus.
bool ForEachDocument(const std::function<void(const nlohmann::json& facts,
                                              const std::filesystem::path& path)>& check);

// The document at a path, which must be readable.
ONX_Model ReadDocument(const std::filesystem::path& path);

// True when an object or light of the facts isn't hidden, neither itself nor by its layer.
bool IsVisible(const nlohmann::json& facts, const nlohmann::json& attributes);

// An object of the facts that is to be seen somewhere.
struct ShownObject {
  const nlohmann::json* object;
  // How often blocks show it; 0 for an object that stands by itself.
  int pieces = 0;
};

// The visible objects of the facts and, in the place of block references, the members of the blocks
// that they show; each object once, in the order in which it is met first.
std::vector<ShownObject> ShownObjects(const nlohmann::json& facts);
