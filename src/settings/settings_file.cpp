#include "settings/settings_file.h"

#include <unordered_map>

#include "host/system/file.h"
#include "host/system/file_replacement.h"
#include "host/system/text.h"
#include "settings/text_line.h"

namespace orv {
namespace {

constexpr std::uint64_t kLargestFile = 16 << 20;
// Far more than there are settings.
constexpr std::size_t kMostKeys = 4096;
constexpr std::size_t kShortestKey = 2;

// Where the setting with a key stands in a list, by the key's folded form.
using Places = std::unordered_map<std::string, std::size_t>;

void TakeSetting(std::string_view line, ON_UserStringList& list, Places& places) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || equals < kShortestKey) return;
  const std::string_view key = host::Trimmed(line.substr(0, equals));
  if (key.empty()) return;
  const std::string_view value = host::Trimmed(line.substr(equals + 1));
  const auto [place, isNew] = places.try_emplace(host::FoldedCase(key), list.m_e.size());
  if (isNew) {
    list.m_e.push_back({std::string(key), std::string(value)});
  } else {
    list.m_e[place->second].m_string_value = value;
  }
}

}  // namespace

std::optional<ON_UserStringList> SettingsFromText(std::string_view text) {
  ON_UserStringList list;
  Places places;
  while (!text.empty()) {
    TakeSetting(TakeTextLine(text), list, places);
    if (list.m_e.size() > kMostKeys) return std::nullopt;
  }
  return list;
}

std::string TextFromSettings(const ON_UserStringList& list) {
  std::string text;
  for (const ON_UserString& setting : list.m_e) {
    text += setting.m_key + '=' + setting.m_string_value + '\n';
  }
  return text;
}

bool LoadSettingsFile(std::string_view path, ON_UserStringList& list) {
  const auto text = host::ReadWholeFile(path, kLargestFile);
  if (!text) return false;
  auto loaded = SettingsFromText(*text);
  if (!loaded) return false;
  list = std::move(*loaded);
  return true;
}

bool SaveSettingsFile(std::string_view path, const ON_UserStringList& list) {
  const std::string text = TextFromSettings(list);
  if (text.size() > kLargestFile || !SettingsFromText(text)) return false;
  return host::ReplaceFile(path, text);
}

}  // namespace orv
