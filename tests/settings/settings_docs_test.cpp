#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "settings/profile_values.h"
#include "settings/settings_store.h"
#include "support/scoped_environment.h"
#include "support/temp_folder.h"

// docs/settings.md names every key with its kind, default and bounds, in the order of the tables.
namespace orv {
namespace {

// The rows "| `Key` | kind | default | bounds |" of the reference, without what follows.
std::vector<std::string> DocumentedRows() {
  std::istringstream text(FileContent(ORV_TEST_FOLDER "/../../docs/settings.md"));
  std::vector<std::string> rows;
  for (std::string line; std::getline(text, line);) {
    if (!line.starts_with("| `")) continue;
    std::size_t end = 0;
    for (int cell = 0; cell < 4; ++cell) end = line.find('|', end + 1);
    rows.push_back(line.substr(0, end + 1));
  }
  return rows;
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
void AddRows(std::span<const SettingField<Record>> fields, std::vector<std::string>& rows) {
  const Record defaults;
  for (const auto& field : fields) {
    const std::string_view kind =
        std::visit([&](auto member) { return Kind(defaults.*member); }, field.Field);
    const bool bounded = kind == "integer" || kind == "real";
    rows.push_back(Row(field.Key, kind, field.Text(defaults),
                       bounded ? Bound(field.Bounds.Minimum) + " to " + Bound(field.Bounds.Maximum)
                               : std::string()));
  }
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

TEST(SettingsDocumentation, NamesEveryKeyWithItsDefaultAndBounds) {
  const ScopedEnvironment temp("TEMP", "%TEMP%");
  std::vector<std::string> expected;
  AddRows(RenderSettingFields(), expected);
  AddRows(IprSettingFields(), expected);
  AddRows(BakeSettingFields(), expected);
  for (const ProfileField& field : ProfileFields()) {
    expected.push_back(std::visit(ProfileRow{field}, field.Field));
  }
  const std::vector<std::string> documented = DocumentedRows();
  ASSERT_EQ(documented.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(documented[i], expected[i]);
}

}  // namespace
}  // namespace orv
