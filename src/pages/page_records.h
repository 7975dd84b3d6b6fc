#pragma once

#include <string_view>
#include <variant>

#include "jobs/plugin.h"
#include "settings/settings_store.h"

namespace orv {

// All that the pages of the document edit.
struct PageRecords {
  RenderSettings Render;
  IprSettings Ipr;
  BakeSettings Bake;
  UserValues User;
};

PageRecords LoadPageRecords(const CSceneOutPlugIn& plugIn);

// A field of one of the records.
template <class Value>
using PageField = std::variant<Value RenderSettings::*, Value IprSettings::*, Value BakeSettings::*,
                               Value UserValues::*>;

// The value of a field.
template <class Records>
struct PageFieldValue {
  Records& From;

  template <class Value>
  auto& operator()(Value RenderSettings::*field) const {
    return From.Render.*field;
  }
  template <class Value>
  auto& operator()(Value IprSettings::*field) const {
    return From.Ipr.*field;
  }
  template <class Value>
  auto& operator()(Value BakeSettings::*field) const {
    return From.Bake.*field;
  }
  template <class Value>
  auto& operator()(Value UserValues::*field) const {
    return From.User.*field;
  }
};
template <class Value>
Value& ValueOf(PageRecords& records, const PageField<Value>& field) {
  return std::visit(PageFieldValue<PageRecords>{records}, field);
}
template <class Value>
const Value& ValueOf(const PageRecords& records, const PageField<Value>& field) {
  return std::visit(PageFieldValue<const PageRecords>{records}, field);
}

// The key of a field in the document or the profile; empty when it has none.
std::string_view KeyOf(const PageField<bool>& field);
std::string_view KeyOf(const PageField<int>& field);
std::string_view KeyOf(const PageField<double>& field);
std::string_view KeyOf(const PageField<std::string>& field);
std::string_view KeyOf(const PageField<ON_Color>& field);

}  // namespace orv
