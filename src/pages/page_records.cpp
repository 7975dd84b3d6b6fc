#include "pages/page_records.h"

#include <type_traits>

#include "settings/profile_values.h"

namespace orv {
namespace {

template <class Rows, class Field>
std::string_view KeyIn(const Rows& rows, Field field) {
  for (const auto& row : rows) {
    using Any = std::remove_cvref_t<decltype(row.Field)>;
    if constexpr (std::is_constructible_v<Any, Field>) {
      if (row.Field == Any(field)) return row.Key;
    }
  }
  return {};
}

struct KeyFinder {
  template <class Value>
  std::string_view operator()(Value RenderSettings::*field) const {
    return KeyIn(RenderSettingFields(), field);
  }
  template <class Value>
  std::string_view operator()(Value IprSettings::*field) const {
    return KeyIn(IprSettingFields(), field);
  }
  template <class Value>
  std::string_view operator()(Value BakeSettings::*field) const {
    return KeyIn(BakeSettingFields(), field);
  }
  template <class Value>
  std::string_view operator()(Value UserValues::*field) const {
    return KeyIn(ProfileFields(), field);
  }
};

}  // namespace

PageRecords LoadPageRecords(const CSceneOutPlugIn& plugIn) {
  return {plugIn.LoadSettings(), LoadIprSettings(plugIn.UserStrings(), plugIn.User()),
          LoadBakeSettings(plugIn.UserStrings()), plugIn.User()};
}

std::string_view KeyOf(const PageField<bool>& field) {
  return std::visit(KeyFinder{}, field);
}

std::string_view KeyOf(const PageField<int>& field) {
  return std::visit(KeyFinder{}, field);
}

std::string_view KeyOf(const PageField<double>& field) {
  return std::visit(KeyFinder{}, field);
}

std::string_view KeyOf(const PageField<std::string>& field) {
  return std::visit(KeyFinder{}, field);
}

std::string_view KeyOf(const PageField<ON_Color>& field) {
  return std::visit(KeyFinder{}, field);
}

}  // namespace orv
