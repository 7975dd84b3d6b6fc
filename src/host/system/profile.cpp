#include "host/system/profile.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <system_error>

#include "host/system/environment.h"
#include "host/system/file.h"
#include "host/system/file_replacement.h"
#include "host/system/path.h"

namespace host {
namespace {

constexpr std::uint64_t kLargestProfile = std::uint64_t{1} << 24;

std::string Escaped(std::string_view text, std::string_view special) {
  std::string out;
  for (const char c : text) {
    if (c == '\n') {
      out += "\\n";
    } else if (c == '\r') {
      out += "\\r";
    } else {
      if (c == '\\' || special.find(c) != std::string_view::npos) out += '\\';
      out += c;
    }
  }
  return out;
}

// A backslash before any other character than those that Escaped writes stands for itself.
std::string Unescaped(std::string_view text) {
  constexpr std::string_view kEscapes = "\\=][nr";
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '\\' && i + 1 < text.size() &&
                        kEscapes.find(text[i + 1]) != std::string_view::npos;
    if (escape) ++i;
    if (escape && text[i] == 'n') {
      out += '\n';
    } else if (escape && text[i] == 'r') {
      out += '\r';
    } else {
      out += text[i];
    }
  }
  return out;
}

// Where `c` first stands without a backslash before it.
std::size_t FindUnescaped(std::string_view text, char c) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == c) return i;
    if (text[i] == '\\') ++i;
  }
  return std::string_view::npos;
}

std::string EscapedKey(std::string_view key) {
  const std::string escaped = Escaped(key, "=");
  return key.starts_with('[') ? '\\' + escaped : escaped;
}

// A whole number beyond those of Number counts as the nearest of them, a real one as no number.
template <typename Number>
std::optional<Number> NumberFromText(const std::string* text) {
  using Limits = std::numeric_limits<Number>;
  if (text == nullptr) return std::nullopt;
  Number value = 0;
  const char* end = text->data() + text->size();
  const auto [stop, error] = std::from_chars(text->data(), end, value);
  if (stop != end) return std::nullopt;
  if (Limits::is_integer && error == std::errc::result_out_of_range) {
    return text->starts_with('-') ? Limits::min() : Limits::max();
  }
  if (error != std::errc()) return std::nullopt;
  return value;
}

template <typename Number>
std::string TextFromNumber(Number value) {
  char text[32];
  const auto result = std::to_chars(text, text + sizeof(text), value);
  return {text, result.ptr};
}

}  // namespace

bool Profile::Load() {
  lines_.clear();
  error_.clear();
  changed_ = false;
  std::error_code failure;
  const auto kind = std::filesystem::status(NativePath(path_), failure).type();
  unreadable_ = false;
  if (kind == std::filesystem::file_type::not_found) return true;
  const std::optional<std::string> text = ReadWholeFile(path_, kLargestProfile);
  if (!text) {
    error_ = "Unable to read " + path_ + ": " + LastSystemError();
    unreadable_ = true;
    return false;
  }
  Parse(*text);
  return true;
}

bool Profile::Save() {
  if (!changed_) return true;
  if (unreadable_) return false;
  error_.clear();
  const PathParts parts = SplitPath(path_);
  const std::string folder = parts.Drive + parts.Folder;
  const bool folderStands = folder.empty() || CreatePrivateFolder(folder);
  if (!folderStands || !ReplaceFile(path_, Text())) {
    error_ = "Unable to save " + path_ + ": " + LastSystemError();
    return false;
  }
  changed_ = false;
  return true;
}

void Profile::Parse(std::string_view text) {
  lines_.clear();
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    while (line.ends_with('\r')) line.remove_suffix(1);
    lines_.push_back(ParseLine(line));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
}

Profile::Line Profile::ParseLine(std::string_view text) {
  if (text.starts_with('[') && FindUnescaped(text, ']') == text.size() - 1) {
    return {Line::Kind::kSection, Unescaped(text.substr(1, text.size() - 2)), {}};
  }
  const std::size_t equals = FindUnescaped(text, '=');
  if (equals == std::string_view::npos) return {Line::Kind::kOther, std::string(text), {}};
  return {Line::Kind::kValue, Unescaped(text.substr(0, equals)),
          Unescaped(text.substr(equals + 1))};
}

std::string Profile::Text() const {
  std::string text;
  for (const Line& line : lines_) {
    switch (line.kind) {
      case Line::Kind::kSection:
        text += '[' + Escaped(line.name, "]") + ']';
        break;
      case Line::Kind::kValue:
        text += EscapedKey(line.name) + '=' + Escaped(line.value, "");
        break;
      case Line::Kind::kOther:
        text += line.name;
        break;
    }
    text += '\n';
  }
  return text;
}

std::optional<std::size_t> Profile::LineOf(std::string_view section, std::string_view key) const {
  std::optional<std::size_t> found;
  bool inSection = section.empty();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& line = lines_[i];
    if (line.kind == Line::Kind::kSection) inSection = line.name == section;
    if (line.kind == Line::Kind::kValue && inSection && line.name == key) found = i;
  }
  return found;
}

const std::string* Profile::Find(std::string_view section, std::string_view key) const {
  const std::optional<std::size_t> line = LineOf(section, key);
  return line ? &lines_[*line].value : nullptr;
}

// Where a new value of the section goes: behind its last line that isn't blank. A missing section
// is begun at the end.
std::size_t Profile::EndOfSection(std::string_view section) {
  std::size_t end = 0;
  bool inSection = section.empty();
  bool found = inSection;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& line = lines_[i];
    if (line.kind == Line::Kind::kSection) inSection = line.name == section;
    const bool blank = line.kind == Line::Kind::kOther && line.name.empty();
    if (inSection && !blank) end = i + 1;
    found = found || inSection;
  }
  if (found) return end;
  lines_.push_back({Line::Kind::kSection, std::string(section), {}});
  return lines_.size();
}

void Profile::Store(std::string_view section, std::string_view key, std::string value) {
  if (const std::optional<std::size_t> line = LineOf(section, key)) {
    if (lines_[*line].value == value) return;
    lines_[*line].value = std::move(value);
  } else {
    const auto place = static_cast<std::ptrdiff_t>(EndOfSection(section));
    lines_.insert(lines_.begin() + place,
                  Line{Line::Kind::kValue, std::string(key), std::move(value)});
  }
  changed_ = true;
}

std::optional<bool> Profile::LoadProfileBool(std::string_view section, std::string_view key) const {
  const std::string* text = Find(section, key);
  if (text == nullptr || (*text != "0" && *text != "1")) return std::nullopt;
  return *text == "1";
}

std::optional<int> Profile::LoadProfileInt(std::string_view section, std::string_view key) const {
  return NumberFromText<int>(Find(section, key));
}

std::optional<double> Profile::LoadProfileDouble(std::string_view section,
                                                 std::string_view key) const {
  const std::optional<double> value = NumberFromText<double>(Find(section, key));
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<std::string> Profile::LoadProfileString(std::string_view section,
                                                      std::string_view key) const {
  const std::string* text = Find(section, key);
  if (text == nullptr) return std::nullopt;
  return *text;
}

void Profile::SaveProfileBool(std::string_view section, std::string_view key, bool value) {
  Store(section, key, value ? "1" : "0");
}

void Profile::SaveProfileInt(std::string_view section, std::string_view key, int value) {
  Store(section, key, TextFromNumber(value));
}

void Profile::SaveProfileDouble(std::string_view section, std::string_view key, double value) {
  Store(section, key, TextFromNumber(value));
}

void Profile::SaveProfileString(std::string_view section, std::string_view key,
                                std::string_view value) {
  Store(section, key, std::string(value));
}

std::string DefaultProfilePath() {
  const std::string folder = EnvironmentValue("ORV_PROFILE_DIR").value_or("");
  if (!folder.empty()) return AppendPath(folder, "profile.ini");
  const std::string configuration = UserConfigurationFolder();
  return configuration.empty() ? std::string() : AppendPath(configuration, "rhinoorv/profile.ini");
}

}  // namespace host
