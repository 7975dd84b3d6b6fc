#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "pages/property_control.h"
#include "pages/property_value.h"

namespace orv {

// A field of an attribute record as a control of a page: the one place where its label, choices and
// limit stand. `Changed` is what says that the field is to be stored.
template <class Record, class Mark>
struct PropertyRow {
  using Member = std::variant<bool Record::*, int Record::*, double Record::*,
                              std::string Record::*, ON_Color Record::*>;

  std::string_view Id;
  std::string_view Label;
  CRhinoControlKind Kind;
  Member Field;
  Mark Changed;
  PropertyRule Rule{};

  CRhinoControl Control(const Record& record) const {
    CRhinoControl control = MakeControl(
        Id, Label, Kind,
        std::visit([&](auto member) { return PropertyText(Rule, record.*member); }, Field));
    if (Kind != CRhinoControlKind::three_state) {
      control.Choices.assign(Rule.Choices.begin(), Rule.Choices.end());
    }
    return control;
  }
  // Sets the field in `record` from a text; what is wrong with it, as ReadPropertyText says.
  std::string Read(std::string_view text, Record& record) const {
    return std::visit([&](auto member) { return ReadPropertyText(Id, text, Rule, record.*member); },
                      Field);
  }
  void Copy(const Record& from, Record& to) const {
    std::visit([&](auto member) { to.*member = from.*member; }, Field);
  }
  bool IsSame(const Record& a, const Record& b) const {
    return std::visit([&](auto member) { return a.*member == b.*member; }, Field);
  }
};

}  // namespace orv
