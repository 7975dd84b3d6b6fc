#include <gtest/gtest.h>

#include <set>

#include "settings/setting_field.h"
#include "settings/settings_store.h"
#include "support/scoped_environment.h"
#include "support/temp_folder.h"

// What holds for every key of the three tables.
namespace orv {
namespace {

template <class Record>
std::span<const SettingField<Record>> Fields();
template <>
std::span<const SettingField<RenderSettings>> Fields() {
  return RenderSettingFields();
}
template <>
std::span<const SettingField<IprSettings>> Fields() {
  return IprSettingFields();
}
template <>
std::span<const SettingField<BakeSettings>> Fields() {
  return BakeSettingFields();
}

template <class Record>
class SettingFields : public testing::Test {
 protected:
  // The record that a list with one setting gives.
  static Record Loaded(std::string_view key, std::string_view value) {
    ON_UserStringList list;
    list.SetUserString(key, value);
    Record record;
    LoadSettingFields<Record>(Fields<Record>(), list, record);
    return record;
  }

  // The field as a number; nothing for other kinds.
  static std::optional<double> Number(const SettingField<Record>& field, const Record& record) {
    return std::visit(
        [&](auto member) -> std::optional<double> {
          using Value = std::remove_cvref_t<decltype(record.*member)>;
          if constexpr (std::is_same_v<Value, int> || std::is_same_v<Value, double>) {
            return record.*member;
          } else {
            return std::nullopt;
          }
        },
        field.Field);
  }
};

using Records = testing::Types<RenderSettings, IprSettings, BakeSettings>;
TYPED_TEST_SUITE(SettingFields, Records);

TYPED_TEST(SettingFields, KeysAndFieldsOccurOnce) {
  std::set<std::string_view> keys;
  for (const auto& field : Fields<TypeParam>()) {
    EXPECT_GE(field.Key.size(), 2u);
    EXPECT_EQ(field.Key.find('='), std::string_view::npos);
    EXPECT_TRUE(keys.insert(field.Key).second) << field.Key;
    const auto fields = Fields<TypeParam>();
    EXPECT_EQ(std::count_if(fields.begin(), fields.end(),
                            [&](const auto& other) { return other.Field == field.Field; }),
              1)
        << field.Key;
  }
}

TYPED_TEST(SettingFields, DefaultLiesWithinTheBounds) {
  const TypeParam defaults;
  for (const auto& field : Fields<TypeParam>()) {
    const auto number = this->Number(field, defaults);
    if (!number) continue;
    EXPECT_LT(field.Bounds.Minimum, field.Bounds.Maximum) << field.Key;
    EXPECT_EQ(field.Bounds.Hold(*number), *number) << field.Key;
  }
}

TYPED_TEST(SettingFields, AbsentKeyLeavesTheDefault) {
  const TypeParam defaults;
  const TypeParam loaded = this->Loaded("SomethingElse", "5");
  for (const auto& field : Fields<TypeParam>()) {
    EXPECT_EQ(field.Text(loaded), field.Text(defaults)) << field.Key;
  }
}

TYPED_TEST(SettingFields, NumberBelowOrAboveIsHeld) {
  for (const auto& field : Fields<TypeParam>()) {
    if (!this->Number(field, {})) continue;
    EXPECT_EQ(this->Number(field, this->Loaded(field.Key, "-2000000000")), field.Bounds.Minimum)
        << field.Key;
    EXPECT_EQ(this->Number(field, this->Loaded(field.Key, "2000000000")), field.Bounds.Maximum)
        << field.Key;
  }
}

TYPED_TEST(SettingFields, TextThatIsNoNumberCountsAsZero) {
  for (const auto& field : Fields<TypeParam>()) {
    if (!this->Number(field, {})) continue;
    EXPECT_EQ(this->Number(field, this->Loaded(field.Key, "x")), field.Bounds.Hold(0)) << field.Key;
    EXPECT_EQ(this->Number(field, this->Loaded(field.Key, "")), field.Bounds.Hold(0)) << field.Key;
  }
}

TYPED_TEST(SettingFields, KeyIsFoundInAnyCase) {
  for (const auto& field : Fields<TypeParam>()) {
    if (!this->Number(field, {})) continue;
    std::string key(field.Key);
    for (char& c : key) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    EXPECT_EQ(this->Number(field, this->Loaded(key, "-2000000000")), field.Bounds.Minimum) << key;
  }
}

// A text other than the default's that the field takes as it is.
template <class Record>
std::string OtherText(const SettingField<Record>& field) {
  struct Maker {
    const SettingField<Record>& field;
    const Record defaults{};
    std::string operator()(bool Record::*member) const { return defaults.*member ? "0" : "1"; }
    std::string operator()(int Record::*member) const {
      const int value = defaults.*member;
      return SettingText(value < field.Bounds.Maximum ? value + 1 : value - 1);
    }
    std::string operator()(double Record::*member) const {
      const double half = (defaults.*member + field.Bounds.Maximum) / 2;
      return SettingText(half == defaults.*member ? field.Bounds.Minimum : half);
    }
    std::string operator()(std::string Record::*) const { return " \"é = / \\ %s"; }
    std::string operator()(ON_Color Record::*) const { return "0.2,0.4,0.6"; }
    std::string operator()(std::array<double, 4> Record::*) const { return "0.1 0.2 0.3 0.4"; }
  };
  return std::visit(Maker{field}, field.Field);
}

TYPED_TEST(SettingFields, ValueComesBackFromTheList) {
  const TypeParam defaults;
  for (const auto& field : Fields<TypeParam>()) {
    const std::string text = OtherText(field);
    ASSERT_NE(text, field.Text(defaults)) << field.Key;
    const TypeParam loaded = this->Loaded(field.Key, text);
    ON_UserStringList stored;
    StoreSettingFields<TypeParam>(Fields<TypeParam>(), loaded, stored);
    for (const auto& other : Fields<TypeParam>()) {
      EXPECT_EQ(stored.GetUserString(other.Key),
                other.Key == field.Key ? text : other.Text(defaults))
          << field.Key << " " << other.Key;
    }
  }
}

TYPED_TEST(SettingFields, StoringDoesNotHoldToBounds) {
  for (const auto& field : Fields<TypeParam>()) {
    TypeParam record;
    ON_UserStringList stored;
    std::string expected;
    std::visit(
        [&](auto member) {
          using Value = std::remove_cvref_t<decltype(record.*member)>;
          if constexpr (std::is_same_v<Value, int> || std::is_same_v<Value, double>) {
            record.*member = Value{2000000000};
            expected = SettingText(record.*member);
          }
        },
        field.Field);
    if (expected.empty()) continue;
    StoreSettingFields<TypeParam>(Fields<TypeParam>(), record, stored);
    EXPECT_EQ(stored.GetUserString(field.Key), expected) << field.Key;
  }
}

}  // namespace
}  // namespace orv
