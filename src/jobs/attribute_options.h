#pragma once

#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "host/command/get_option.h"
#include "host/geometry/on_color.h"
#include "settings/setting_text.h"

namespace orv {

// A field of an attribute record as a command option. `Mark` says that the field has changed.
template <class Record, class Mark>
struct AttributeOption {
  using Member = std::variant<bool Record::*, int Record::*, double Record::*, ON_Color Record::*,
                              std::string Record::*>;

  std::string_view Name;
  Member Field;
  Mark Changed;
  // What asks for a number or a colour.
  std::string_view Prompt{};
  // Of a number.
  SettingBounds Bounds{};
  // An integer with words is a list of them.
  std::span<const std::string_view> Words{};
};

// Adds the option of a field in `record`: a flag as a toggle of No and Yes, a text as a plain
// option that shows what `shown` makes of it.
template <class Record, class Mark, class Shown>
void AddAttributeOption(CRhinoGetOption& get, const AttributeOption<Record, Mark>& row,
                        Record& record, const Shown& shown) {
  const auto add = [&](auto member) {
    auto& value = record.*member;
    using Value = std::remove_reference_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, bool>) {
      return get.AddCommandOptionToggle(row.Name, "No", "Yes", &value);
    } else if constexpr (std::is_same_v<Value, double>) {
      return get.AddCommandOptionNumber(row.Name, &value, row.Prompt, row.Bounds.Minimum,
                                        row.Bounds.Maximum);
    } else if constexpr (std::is_same_v<Value, ON_Color>) {
      return get.AddCommandOptionColor(row.Name, &value, row.Prompt);
    } else if constexpr (std::is_same_v<Value, std::string>) {
      return get.AddCommandOption(row.Name, shown(row));
    } else {
      if (!row.Words.empty()) return get.AddCommandOptionList(row.Name, row.Words, &value);
      return get.AddCommandOptionInteger(row.Name, &value, row.Prompt,
                                         static_cast<int>(row.Bounds.Minimum),
                                         static_cast<int>(row.Bounds.Maximum));
    }
  };
  std::visit(add, row.Field);
}

// Lets the user change the fields of `rows` one by one, until Enter. `shown` gives what a plain
// option shows; `change` takes up the change of a field and asks for a text. Success when the user
// is done; else cancel, failure or what `change` has given.
template <class Record, class Mark, class Shown, class Change>
[[nodiscard]] CommandResult EditAttributes(CRhinoCommandContext& context, std::string_view prompt,
                                           std::span<const AttributeOption<Record, Mark>> rows,
                                           Record& record, const Shown& shown,
                                           const Change& change) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt(prompt);
  get.AcceptNothing();
  for (;;) {
    get.ClearCommandOptions();
    for (const auto& row : rows) AddAttributeOption(get, row, record, shown);
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result == CRhinoGet::Result::cancel) return CommandResult::cancel;
    if (result != CRhinoGet::Result::option) return CommandResult::failure;
    const CommandResult changed = change(rows[static_cast<std::size_t>(get.OptionIndex()) - 1]);
    if (changed != CommandResult::success) return changed;
  }
}

}  // namespace orv
