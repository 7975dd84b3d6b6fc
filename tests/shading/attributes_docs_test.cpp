#include <gmock/gmock.h>

#include <map>
#include <sstream>

#include "shading/attribute_tables.h"
#include "support/temp_folder.h"

// docs/attributes.md names every key with its kind, default and bounds or words: a chapter with a
// table for each table of the code, in the same order.
namespace orv {
namespace {

constexpr const char* kDocument = ORV_TEST_FOLDER "/../../docs/attributes.md";

// The rows "| `Key` | kind | default | bounds |" of a table, without what follows.
using Table = std::vector<std::string>;

std::string WithoutMeaning(const std::string& row) {
  std::size_t end = 0;
  for (int cell = 0; cell < 4; ++cell) end = row.find('|', end + 1);
  return row.substr(0, end + 1);
}

// Whether the row says what its key means.
bool HasMeaning(const std::string& row) {
  const std::string meaning = row.substr(WithoutMeaning(row).size());
  return meaning.size() > 10 && meaning.ends_with(". |");
}

std::map<std::string, Table> DocumentedTables() {
  std::istringstream text(FileContent(kDocument));
  std::map<std::string, Table> chapters;
  std::string chapter;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("## ")) chapter = line.substr(3);
    if (!line.starts_with("| `")) continue;
    EXPECT_TRUE(HasMeaning(line)) << line;
    chapters[chapter].push_back(WithoutMeaning(line));
  }
  return chapters;
}

std::string_view Kind(const AttributeRule&, bool) {
  return "flag";
}
std::string_view Kind(const AttributeRule& rule, int) {
  if (rule.Words.empty()) return "integer";
  return rule.OtherWord ? "flag" : "word";
}
std::string_view Kind(const AttributeRule&, double) {
  return "real";
}
std::string_view Kind(const AttributeRule& rule, const std::string&) {
  return rule.NotEmpty ? "shader" : "text";
}
std::string_view Kind(const AttributeRule&, ON_Color) {
  return "colour";
}

// A bound as a person writes it.
std::string Bound(double value) {
  return value == static_cast<int>(value) ? SettingText(static_cast<int>(value))
                                          : SettingText(value);
}

std::string Words(const AttributeRule& rule) {
  std::string text;
  for (const std::string_view word : rule.Words) {
    if (!text.empty()) text += ", ";
    text += '`' + std::string(word) + '`';
  }
  return text;
}

std::string BoundsOrWords(const AttributeRule& rule, std::string_view kind) {
  if (kind == "word") return Words(rule);
  if (kind != "integer" && kind != "real") return {};
  return Bound(rule.Bounds.Minimum) + " to " + Bound(rule.Bounds.Maximum);
}

template <class Record, class Mark>
Table ExpectedRows(std::span<const AttributeField<Record, Mark>> fields) {
  const Record defaults;
  Table rows;
  for (const auto& field : fields) {
    const std::string_view kind =
        std::visit([&](auto member) { return Kind(field.Rule, defaults.*member); }, field.Field);
    const std::string value = field.Text(defaults);
    rows.push_back("| `" + std::string(field.Key) + "` | " + std::string(kind) + " | " +
                   (value.empty() ? "empty" : '`' + value + '`') + " | " +
                   BoundsOrWords(field.Rule, kind) + " |");
  }
  return rows;
}

TEST(AttributeDocumentation, NamesEveryKeyWithItsDefaultAndBounds) {
  auto chapters = DocumentedTables();
  EXPECT_EQ(chapters.size(), 3u);
  EXPECT_THAT(chapters["Objects"],
              testing::ElementsAreArray(ExpectedRows(ObjectAttributeFields())));
  EXPECT_THAT(chapters["Materials"],
              testing::ElementsAreArray(ExpectedRows(MaterialAttributeFields())));
  EXPECT_THAT(chapters["Lights"], testing::ElementsAreArray(ExpectedRows(LightAttributeFields())));
}

}  // namespace
}  // namespace orv
