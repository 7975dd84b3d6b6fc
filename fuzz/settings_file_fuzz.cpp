#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "settings/settings_file.h"
#include "settings/settings_store.h"

namespace {

// Whether a file can hold the setting: its key is long enough and its line short enough.
bool Fits(const ON_UserString& setting) {
  constexpr std::size_t kLongestLine = 1999;
  return setting.m_key.size() >= 2 &&
         setting.m_key.size() + setting.m_string_value.size() + 2 <= kLongestLine;
}

}  // namespace

// Any bytes are a settings file, and what was read from it is read again from the file that is
// written of it. Its values can be loaded and stored, and storing what was loaded changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto list = orv::SettingsFromText({reinterpret_cast<const char*>(data), size});
  if (!list) return 0;
  std::erase_if(list->m_e, [](const ON_UserString& setting) { return !Fits(setting); });
  const auto again = orv::SettingsFromText(orv::TextFromSettings(*list));
  if (!again || again->m_e != list->m_e) std::abort();

  orv::UserValues user;
  ON_UserStringList stored;
  orv::StoreRenderSettings(orv::LoadRenderSettings(*list, user), stored, user);
  orv::StoreIprSettings(orv::LoadIprSettings(*list, user), stored, user);
  orv::StoreBakeSettings(orv::LoadBakeSettings(*list), stored);
  ON_UserStringList storedAgain;
  orv::StoreRenderSettings(orv::LoadRenderSettings(stored, user), storedAgain, user);
  orv::StoreIprSettings(orv::LoadIprSettings(stored, user), storedAgain, user);
  orv::StoreBakeSettings(orv::LoadBakeSettings(stored), storedAgain);
  if (storedAgain.m_e != stored.m_e) std::abort();
  return 0;
}
