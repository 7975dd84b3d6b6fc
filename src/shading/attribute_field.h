#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "shading/attribute_text.h"

namespace orv {

// A field of an attribute record that is kept as a user string: the one place where its key, words
// and bounds stand. `Mark` is what says that the field is to be stored.
template <class Record, class Mark>
struct AttributeField {
  using Member = std::variant<bool Record::*, int Record::*, double Record::*,
                              std::string Record::*, ON_Color Record::*>;

  std::string_view Key;
  Member Field;
  Mark Changed;
  AttributeRule Rule{};

  // The text form of the field in `record`.
  [[nodiscard]] std::string Text(const Record& record) const {
    return std::visit([&](auto member) { return AttributeText(Rule, record.*member); }, Field);
  }
  // Sets the field in `record` from a text.
  void Read(std::string_view text, Record& record) const {
    std::visit([&](auto member) { ReadAttributeText(text, Rule, record.*member); }, Field);
  }
  void Store(const Record& record, ON_Object& carrier) const {
    carrier.SetUserString(Key, Text(record));
  }
};

// Sets each field whose key the carrier has, in the order of the table.
template <class Record, class Mark>
void ReadAttributeFields(std::span<const AttributeField<Record, Mark>> fields,
                         const ON_Object& carrier, Record& record) {
  if (carrier.m_user_strings.IsEmpty()) return;
  for (const auto& field : fields) {
    if (const auto text = carrier.GetUserString(field.Key)) field.Read(*text, record);
  }
}

}  // namespace orv
