#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

// The per-user store of typed values by section and key, a text file of the user's own.
//
// The file's form: a line "[section]", then lines "key=value". A backslash, a line feed and a
// carriage return are written "\\", "\n" and "\r", "=" in a key and "]" in a section "\=" and "\]",
// and
// "[" at the start of a key "\[". A line that is neither is kept as it is and ignored; of two lines
// for one key the last holds. Numbers are text ("%d", the shortest form that reads back as the same
// double); a bool is 0 or 1.
class Profile {
 public:
  // The profile kept in `path`. Nothing is read before Load.
  explicit Profile(std::string path) : path_(std::move(path)) {}

  // Reads the file; a missing one is an empty profile. False, with Error, when it can't be read.
  [[nodiscard]] bool Load();
  // Writes the file, with its folder, when something has changed since Load. A crash in the middle
  // leaves the old file. False, with Error, when it can't be written, and when the last Load could
  // not read what is there.
  [[nodiscard]] bool Save();
  [[nodiscard]] const std::string& Error() const { return error_; }

  // Replaces the content by `text`, the content of a profile file. Never fails.
  void Parse(std::string_view text);
  [[nodiscard]] std::string Text() const;

  // The value of a key; nothing when it is absent or no such value. An integer beyond those of int
  // is the nearest of them.
  std::optional<bool> LoadProfileBool(std::string_view section, std::string_view key) const;
  std::optional<int> LoadProfileInt(std::string_view section, std::string_view key) const;
  std::optional<double> LoadProfileDouble(std::string_view section, std::string_view key) const;
  std::optional<std::string> LoadProfileString(std::string_view section,
                                               std::string_view key) const;

  void SaveProfileBool(std::string_view section, std::string_view key, bool value);
  void SaveProfileInt(std::string_view section, std::string_view key, int value);
  void SaveProfileDouble(std::string_view section, std::string_view key, double value);
  void SaveProfileString(std::string_view section, std::string_view key, std::string_view value);

 private:
  // One line of the file: a section's head, a value, or text that is only kept.
  struct Line {
    enum class Kind { kSection, kValue, kOther };
    Kind kind = Kind::kOther;
    std::string name;   // the section, the key, or the kept text
    std::string value;  // of a key
  };
  static Line ParseLine(std::string_view text);
  std::optional<std::size_t> LineOf(std::string_view section, std::string_view key) const;
  const std::string* Find(std::string_view section, std::string_view key) const;
  void Store(std::string_view section, std::string_view key, std::string value);
  std::size_t EndOfSection(std::string_view section);

  std::vector<Line> lines_;
  std::string path_;
  std::string error_;
  bool changed_ = false;
  bool unreadable_ = false;
};

// The profile file of this program's user: profile.ini in the folder that ORV_PROFILE_DIR names,
// else rhinoorv/profile.ini in UserConfigurationFolder. Empty when the environment tells neither.
std::string DefaultProfilePath();

}  // namespace host
