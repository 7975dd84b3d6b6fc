#pragma once

#include <limits>
#include <span>
#include <string_view>
#include <variant>

#include "host/geometry/on_user_string_list.h"
#include "host/system/profile.h"
#include "settings/render_settings.h"
#include "settings/user_values.h"

// The user's values in the host's profile.
namespace orv {

inline constexpr std::string_view kProfileSection =
    R"(Plug-Ins\7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4\Settings)";

// One key of the profile: a value of the user, or a setting that new documents start from.
struct ProfileField {
  std::string_view Key;
  std::variant<bool UserValues::*, int UserValues::*, double UserValues::*,
               std::string UserValues::*, double RenderSettings::*>
      Field;
  // What an integer is held to when it is read.
  int Minimum = std::numeric_limits<int>::min();
  int Maximum = std::numeric_limits<int>::max();
  // What a text is cut to when it is read, never inside a character.
  std::size_t MostBytes = std::numeric_limits<std::size_t>::max();
};

// All keys, in the order in which they are written.
std::span<const ProfileField> ProfileFields();

// The values in the profile, with the defaults for the keys that it lacks. The settings that it has
// (the gammas) go into `list`.
UserValues LoadProfileValues(const host::Profile& profile, ON_UserStringList& list);

// Writes all values, with the settings of `list` or their defaults.
void SaveProfileValues(host::Profile& profile, const UserValues& user,
                       const ON_UserStringList& list);

}  // namespace orv
