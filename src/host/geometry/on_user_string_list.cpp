#include "host/geometry/on_user_string_list.h"

#include <algorithm>

#include "host/system/text.h"

namespace {

bool HasKey(const ON_UserString& entry, std::string_view key) {
  return host::EqualNoCase(entry.m_key, key);
}

template <class Entries>
auto FindKey(Entries& entries, std::string_view key) {
  return std::find_if(entries.begin(), entries.end(),
                      [key](const ON_UserString& entry) { return HasKey(entry, key); });
}

}  // namespace

std::optional<std::string_view> ON_UserStringList::GetUserString(std::string_view key) const {
  const auto entry = FindKey(m_e, key);
  if (entry == m_e.end()) return std::nullopt;
  return entry->m_string_value;
}

void ON_UserStringList::SetUserString(std::string_view key, std::string_view value) {
  const auto entry = FindKey(m_e, key);
  if (entry != m_e.end()) {
    entry->m_string_value = value;
  } else {
    m_e.push_back({std::string(key), std::string(value)});
  }
}

void ON_UserStringList::RemoveUserString(std::string_view key) {
  std::erase_if(m_e, [key](const ON_UserString& entry) { return HasKey(entry, key); });
}
