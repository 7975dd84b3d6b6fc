#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <vector>

#include "host/archive/model.h"

// The documents of the corpus beside the facts that another reader found in them, and comparisons
// of single values with such facts. A failed comparison names the document and the place.

struct FactsDocument {
  // Without extension, "v3_Smooth".
  std::string name;
  nlohmann::json facts;
  ONX_Model model;
};

// All documents that have facts, read once for all tests of the program; empty without a corpus.
// A document that can't be read fails the test.
const std::vector<FactsDocument>& FactsDocuments();

// Calls `check` for each document; skips the test when there is no corpus.
void ForEachFactsDocument(const std::function<void(const FactsDocument&)>& check);

// `fact` is null for a nil id.
void ExpectId(const nlohmann::json& fact, const ON_UUID& id, const std::string& what);
// `fact` is null for a number that isn't set.
void ExpectNumber(const nlohmann::json& fact, double value, const std::string& what);
void ExpectNumbers(const nlohmann::json& fact, std::initializer_list<double> values,
                   const std::string& what);
// Within `tolerance`, relative to the larger of 1 and the fact.
void ExpectNearly(const nlohmann::json& fact, std::span<const double> values, double tolerance,
                  const std::string& what);
// `fact` is null for a colour that isn't set.
void ExpectColor(const nlohmann::json& fact, ON_Color color, const std::string& what);
// `fact` is a list of pairs; it may be absent (null) for none.
void ExpectUserStrings(const nlohmann::json& fact, const ON_UserStringList& strings,
                       const std::string& what);
// `fact` is null for an empty box.
void ExpectBox(const nlohmann::json& fact, const ON_BoundingBox& box, double tolerance,
               const std::string& what);
// The fact of that name, null when it is absent.
nlohmann::json FactOrNull(const nlohmann::json& facts, const char* name);
