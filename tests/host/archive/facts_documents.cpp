#include "facts_documents.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>

#include "host/archive/model_reader.h"
#include "support/model_corpus.h"

using nlohmann::json;

static std::string DocumentPath(const std::filesystem::path& corpus, const std::string& name) {
  for (const char* folder : {"real", "made"}) {
    const auto path = corpus / folder / (name + ".3dm");
    if (std::filesystem::exists(path)) return path.string();
  }
  return "";
}

static std::vector<FactsDocument> ReadFactsDocuments() {
  std::vector<FactsDocument> documents;
  const auto corpus = ModelCorpus();
  if (!corpus) return documents;
  for (const auto& entry : std::filesystem::directory_iterator(*corpus / "facts")) {
    const std::string name = entry.path().stem().string();
    const std::string path = DocumentPath(*corpus, name);
    if (path.empty()) continue;
    FactsDocument document{name, json::parse(std::ifstream(entry.path())), {}};
    const ON_ReadResult result = ON_ReadModel(path, document.model);
    EXPECT_TRUE(result.ok) << name << ": " << result.error;
    documents.push_back(std::move(document));
  }
  std::sort(documents.begin(), documents.end(),
            [](const FactsDocument& a, const FactsDocument& b) { return a.name < b.name; });
  return documents;
}

const std::vector<FactsDocument>& FactsDocuments() {
  static const std::vector<FactsDocument> documents = ReadFactsDocuments();
  return documents;
}

void ForEachFactsDocument(const std::function<void(const FactsDocument&)>& check) {
  if (!ModelCorpus()) GTEST_SKIP() << "ORV_MODEL_CORPUS names no folder of documents";
  EXPECT_FALSE(FactsDocuments().empty());
  for (const FactsDocument& document : FactsDocuments()) {
    SCOPED_TRACE(document.name);
    check(document);
  }
}

void ExpectId(const json& fact, const ON_UUID& id, const std::string& what) {
  const ON_UUID nil;
  EXPECT_EQ(fact.is_null() ? nil.ToString() : fact.get<std::string>(), id.ToString()) << what;
}

void ExpectNumber(const json& fact, double value, const std::string& what) {
  EXPECT_DOUBLE_EQ(fact.is_null() ? ON_UNSET_VALUE : fact.get<double>(), value) << what;
}

void ExpectNumbers(const json& fact, std::initializer_list<double> values,
                   const std::string& what) {
  ASSERT_TRUE(fact.is_array() && fact.size() == values.size()) << what;
  std::size_t i = 0;
  for (const double value : values) {
    ExpectNumber(fact[i], value, what + "[" + std::to_string(i) + "]");
    ++i;
  }
}

void ExpectNearly(const json& fact, std::span<const double> values, double tolerance,
                  const std::string& what) {
  ASSERT_TRUE(fact.is_array() && fact.size() == values.size()) << what;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double expected = fact[i].get<double>();
    EXPECT_NEAR(expected, values[i], tolerance * std::max(1.0, std::abs(expected)))
        << what << "[" << i << "]";
  }
}

void ExpectColor(const json& fact, ON_Color color, const std::string& what) {
  const json found = {color.Red(), color.Green(), color.Blue(), color.Alpha()};
  EXPECT_EQ(fact.is_null() ? json({255, 255, 255, 255}) : fact, found) << what;
}

void ExpectUserStrings(const json& fact, const ON_UserStringList& strings,
                       const std::string& what) {
  json found = json::array();
  for (const ON_UserString& entry : strings.m_e) {
    found.push_back({entry.m_key, entry.m_string_value});
  }
  EXPECT_EQ(fact.is_null() ? json::array() : fact, found) << what;
}

void ExpectBox(const json& fact, const ON_BoundingBox& box, double tolerance,
               const std::string& what) {
  if (fact.is_null()) {
    EXPECT_FALSE(box.IsValid()) << what;
    return;
  }
  const std::array<double, 6> found = {box.m_min.x, box.m_min.y, box.m_min.z,
                                       box.m_max.x, box.m_max.y, box.m_max.z};
  ExpectNearly(fact, found, tolerance, what);
}

json FactOrNull(const json& facts, const char* name) {
  const auto found = facts.find(name);
  return found == facts.end() ? json() : *found;
}
