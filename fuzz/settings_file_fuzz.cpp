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

// The text of every field comes back when it is read.
template <class Record>
void CheckFields(std::span<const orv::SettingField<Record>> fields, const Record& record) {
  Record again;
  for (const orv::SettingField<Record>& field : fields) {
    const std::string text = field.Text(record);
    field.Read(text, again);
    if (field.Text(again) != text) std::abort();
  }
}

}  // namespace

// Any bytes are a settings file, and what was read from it is read again from the file that is
// written of it. Its values can be loaded, and each keeps its text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto list = orv::SettingsFromText({reinterpret_cast<const char*>(data), size});
  if (!list) return 0;
  std::erase_if(list->m_e, [](const ON_UserString& setting) { return !Fits(setting); });
  const auto again = orv::SettingsFromText(orv::TextFromSettings(*list));
  if (!again || again->m_e != list->m_e) std::abort();

  const orv::UserValues user;
  CheckFields(orv::RenderSettingFields(), orv::LoadRenderSettings(*list, user));
  CheckFields(orv::IprSettingFields(), orv::LoadIprSettings(*list, user));
  CheckFields(orv::BakeSettingFields(), orv::LoadBakeSettings(*list));
  return 0;
}
