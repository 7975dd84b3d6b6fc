#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "settings/profile_values.h"
#include "settings/settings_store.h"
#include "support/scoped_environment.h"
#include "support/temp_folder.h"

// docs/settings.md names every key with its kind, default and bounds: a chapter for each table of
// the code, parted into tables whose rows keep that order. Its last chapter tells what the export
// uses.
namespace orv {
namespace {

constexpr const char* kDocument = ORV_TEST_FOLDER "/../../docs/settings.md";
constexpr const char* kExportFolder = ORV_TEST_FOLDER "/../../src/export";

// The rows "| `Key` | kind | default | bounds |" of a table, without what follows.
using Table = std::vector<std::string>;

std::string WithoutMeaning(const std::string& row) {
  std::size_t end = 0;
  for (int cell = 0; cell < 4; ++cell) end = row.find('|', end + 1);
  return row.substr(0, end + 1);
}

// The tables of each chapter, by its title.
std::map<std::string, std::vector<Table>> DocumentedTables() {
  std::istringstream text(FileContent(kDocument));
  std::map<std::string, std::vector<Table>> chapters;
  std::string chapter;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("## ")) chapter = line.substr(3);
    if (line.starts_with("| Key |")) chapters[chapter].emplace_back();
    if (line.starts_with("| `")) chapters[chapter].back().push_back(WithoutMeaning(line));
  }
  return chapters;
}

// The tables have the expected rows, each once, and each table in the expected order.
void ExpectTables(const std::vector<Table>& tables, const Table& expected) {
  Table documented;
  for (const Table& table : tables) {
    auto place = expected.begin();
    for (const std::string& row : table) {
      place = std::find(place, expected.end(), row);
      ASSERT_NE(place, expected.end()) << "wrong, or not in its place: " << row;
    }
    documented.insert(documented.end(), table.begin(), table.end());
  }
  EXPECT_THAT(documented, testing::UnorderedElementsAreArray(expected));
}

bool IsPartOfAName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool ContainsName(std::string_view text, std::string_view name) {
  for (std::size_t at = text.find(name); at != std::string_view::npos;
       at = text.find(name, at + 1)) {
    const std::size_t end = at + name.size();
    if (end == text.size() || !IsPartOfAName(text[end])) return true;
  }
  return false;
}

// The keys of render settings that `text` holds between `before` and a character of no name.
std::set<std::string> KeysIn(std::string_view text, std::string_view before) {
  std::set<std::string> keys;
  for (const auto& field : RenderSettingFields()) {
    if (ContainsName(text, std::string(before) + std::string(field.Key))) {
      keys.emplace(field.Key);
    }
  }
  return keys;
}

std::string SourcesOfTheExport() {
  std::string text;
  for (const auto& entry : std::filesystem::directory_iterator(kExportFolder)) {
    if (entry.path().extension() == ".cpp") text += FileContent(entry.path());
  }
  return text;
}

std::string Row(std::string_view key, std::string_view kind, std::string_view value,
                std::string_view bounds) {
  std::string row = "| `" + std::string(key) + "` | " + std::string(kind) + " | ";
  row += value.empty() ? "empty" : "`" + std::string(value) + "`";
  return row + " | " + std::string(bounds) + " |";
}

std::string_view Kind(bool) {
  return "flag";
}
std::string_view Kind(int) {
  return "integer";
}
std::string_view Kind(double) {
  return "real";
}
std::string_view Kind(const std::string&) {
  return "text";
}
std::string_view Kind(ON_Color) {
  return "colour";
}
std::string_view Kind(const std::array<double, 4>&) {
  return "4 reals";
}

// A bound as a person writes it.
std::string Bound(double value) {
  return value == static_cast<int>(value) ? SettingText(static_cast<int>(value))
                                          : SettingText(value);
}

template <class Record>
Table ExpectedRows(std::span<const SettingField<Record>> fields) {
  const Record defaults;
  Table rows;
  for (const auto& field : fields) {
    const std::string_view kind =
        std::visit([&](auto member) { return Kind(defaults.*member); }, field.Field);
    const bool bounded = kind == "integer" || kind == "real";
    rows.push_back(Row(field.Key, kind, field.Text(defaults),
                       bounded ? Bound(field.Bounds.Minimum) + " to " + Bound(field.Bounds.Maximum)
                               : std::string()));
  }
  return rows;
}

struct ProfileRow {
  const ProfileField& field;
  const UserValues defaults{};

  template <class Value>
  std::string operator()(Value UserValues::*member) const {
    return Row(field.Key, Kind(defaults.*member), SettingText(defaults.*member), Bounds());
  }
  std::string operator()(double RenderSettings::*) const { return Row(field.Key, "real", "", ""); }
  std::string Bounds() const {
    if (field.Maximum < 100) {
      return SettingText(field.Minimum) + " to " + SettingText(field.Maximum);
    }
    return field.MostBytes < 10000 ? std::to_string(field.MostBytes) + " bytes" : std::string();
  }
};

Table ExpectedProfileRows() {
  Table rows;
  for (const ProfileField& field : ProfileFields()) {
    rows.push_back(std::visit(ProfileRow{field}, field.Field));
  }
  return rows;
}

TEST(SettingsDocumentation, NamesEveryKeyWithItsDefaultAndBounds) {
  const ScopedEnvironment temp("TEMP", "%TEMP%");
  auto chapters = DocumentedTables();
  ASSERT_EQ(chapters.size(), 4u);
  ExpectTables(chapters["Render settings"], ExpectedRows(RenderSettingFields()));
  ExpectTables(chapters["Interactive render"], ExpectedRows(IprSettingFields()));
  ExpectTables(chapters["Baking"], ExpectedRows(BakeSettingFields()));
  ExpectTables(chapters["The user's profile"], ExpectedProfileRows());
}

TEST(SettingsDocumentation, NamesWhatTheExportUses) {
  const std::string document = FileContent(kDocument);
  const std::size_t chapter = document.find("\n## What has an effect today\n");
  ASSERT_NE(chapter, std::string::npos);
  // What is said of the render settings ends with the profile.
  const std::size_t end = document.find("\nOf the user's profile", chapter);
  ASSERT_NE(end, std::string::npos);
  const std::string_view text = std::string_view(document).substr(chapter, end - chapter);
  std::set<std::string> used;
  for (const char* record : {"settings.", "settings_.", ".Settings."}) {
    used.merge(KeysIn(SourcesOfTheExport(), record));
  }
  EXPECT_EQ(KeysIn(text, "`"), used);
}

}  // namespace
}  // namespace orv
