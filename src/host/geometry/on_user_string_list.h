#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ON_UserString {
  std::string m_key;
  std::string m_string_value;
  friend bool operator==(const ON_UserString&, const ON_UserString&) = default;
};

// Texts by key, in the order of their first insertion. Keys are compared without regard to case.
class ON_UserStringList {
 public:
  // The value of the first entry with `key`; nothing when there is none.
  std::optional<std::string_view> GetUserString(std::string_view key) const;
  // Replaces the value of the first entry with `key`, or appends one. An empty value is a value.
  void SetUserString(std::string_view key, std::string_view value);
  // Removes every entry with `key`.
  void RemoveUserString(std::string_view key);

  bool IsEmpty() const { return m_e.empty(); }

  // The entries in their order. A document may hold a key twice.
  std::vector<ON_UserString> m_e;
};
