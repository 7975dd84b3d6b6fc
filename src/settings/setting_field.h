#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "host/geometry/on_color.h"
#include "host/geometry/on_user_string_list.h"
#include "settings/setting_text.h"

namespace orv {

// A field of a settings record that is kept in the document: the one place where its key and
// bounds stand. The bounds of a field that is no number have no meaning.
template <class Record>
struct SettingField {
  using Member =
      std::variant<bool Record::*, int Record::*, double Record::*, std::string Record::*,
                   ON_Color Record::*, std::array<double, 4> Record::*>;

  std::string_view Key;
  Member Field;
  SettingBounds Bounds{};

  // The text form of the field in `record`.
  [[nodiscard]] std::string Text(const Record& record) const {
    return std::visit([&](auto member) { return SettingText(record.*member); }, Field);
  }
  // Sets the field in `record` from a text, held to the bounds.
  void Read(std::string_view text, Record& record) const {
    std::visit([&](auto member) { ReadSettingText(text, Bounds, record.*member); }, Field);
  }
};

// Sets each field whose key the list has.
template <class Record>
void LoadSettingFields(std::span<const SettingField<Record>> fields, const ON_UserStringList& list,
                       Record& record) {
  for (const SettingField<Record>& field : fields) {
    if (const auto text = list.GetUserString(field.Key)) field.Read(*text, record);
  }
}

// Puts every field into the list, in the order of the table.
template <class Record>
void StoreSettingFields(std::span<const SettingField<Record>> fields, const Record& record,
                        ON_UserStringList& list) {
  for (const SettingField<Record>& field : fields) {
    list.SetUserString(field.Key, field.Text(record));
  }
}

}  // namespace orv
