#include "settings/settings_file.h"

#include "host/system/file.h"
#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::uint64_t kLargestFile = 16 << 20;
// Far more than there are settings; each new key is compared with all before it.
constexpr std::size_t kMostKeys = 4096;
constexpr std::size_t kLongestLine = 1999;
constexpr std::size_t kShortestKey = 2;

// Takes the next line, with its line end, off the start of `text`. A line that is too long is cut
// between two characters.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end == std::string_view::npos ? end : end + 1);
  line = host::FirstBytes(line, kLongestLine);
  text.remove_prefix(line.size());
  return line.substr(0, line.find('\0'));
}

void TakeSetting(std::string_view line, ON_UserStringList& list) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || equals < kShortestKey) return;
  const std::string_view key = host::Trimmed(line.substr(0, equals));
  if (!key.empty()) list.SetUserString(key, host::Trimmed(line.substr(equals + 1)));
}

}  // namespace

std::optional<ON_UserStringList> SettingsFromText(std::string_view text) {
  ON_UserStringList list;
  while (!text.empty()) {
    TakeSetting(TakeLine(text), list);
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
  return host::ReplaceFile(path, TextFromSettings(list));
}

}  // namespace orv
