#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/geometry/on_user_string_list.h"

// Settings files (.ors): plain text, a line "key=value" for each setting, in the order of the
// list. Nothing is escaped. Text is UTF-8.
namespace orv {

// Replaces `list` by the settings in a file. False, with `list` left alone, when the file can't be
// read or is no settings file (larger than any, or with too many different keys).
[[nodiscard]] bool LoadSettingsFile(std::string_view path, ON_UserStringList& list);

// Writes `list` to a file. False when that fails, and for a list that LoadSettingsFile would not
// take; an older file is then as it was.
[[nodiscard]] bool SaveSettingsFile(std::string_view path, const ON_UserStringList& list);

// The settings in the content of a file. A line is taken when its first "=" stands at index 2 or
// later; key and value are trimmed of blanks and line ends, and the last line with a key counts.
// A line longer than 1,999 bytes goes on as a next one, and a zero byte ends its line. Nothing
// when there are too many different keys.
std::optional<ON_UserStringList> SettingsFromText(std::string_view text);

// The content of a file that holds `list`.
std::string TextFromSettings(const ON_UserStringList& list);

}  // namespace orv
