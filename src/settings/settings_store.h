#pragma once

#include <span>

#include "host/geometry/on_user_string_list.h"
#include "settings/bake_settings.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "settings/setting_field.h"
#include "settings/user_values.h"

// Between the settings records and the document's list of settings. A record that is loaded has
// the defaults, then the values of the keys that the list has, held to their bounds, then the
// user's values. Storing writes every key as it stands in the record; it is held to its bounds
// when it is next loaded.
namespace orv {

// The tables of all keys, in the order in which a record is stored.
std::span<const SettingField<RenderSettings>> RenderSettingFields();
std::span<const SettingField<IprSettings>> IprSettingFields();
std::span<const SettingField<BakeSettings>> BakeSettingFields();

// The row of a field of RenderSettings that has a key.
const SettingField<RenderSettings>& RenderSettingFieldOf(
    SettingField<RenderSettings>::Member field);

RenderSettings LoadRenderSettings(const ON_UserStringList& list, const UserValues& user);
// Sets the user's Threads, Gyre and ConvertTextures too; IlluminanceUnity stays.
void StoreRenderSettings(const RenderSettings& settings, ON_UserStringList& list, UserValues& user);

IprSettings LoadIprSettings(const ON_UserStringList& list, const UserValues& user);
// Sets the user's IprThreads too.
void StoreIprSettings(const IprSettings& settings, ON_UserStringList& list, UserValues& user);

BakeSettings LoadBakeSettings(const ON_UserStringList& list);
void StoreBakeSettings(const BakeSettings& settings, ON_UserStringList& list);

// RhinoGamma alone, without loading a record. 1 when the list has no such key, which is not the
// default of the record.
float StoredRhinoGamma(const ON_UserStringList& list);
// The same for TextureGamma.
double StoredTextureGamma(const ON_UserStringList& list);

}  // namespace orv
